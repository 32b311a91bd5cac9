#include "shell/Recovery.h"

#include <array>
#include <ctime>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/JsonDocument.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace fs = std::filesystem;
using Core::LanguageText;
using Core::Open;
using nlohmann::json;

RecoveryState Recovery;

namespace {

constexpr std::string_view Ending = ".recovery";
constexpr int MostNames = 1000;
constexpr int CopyError = 321;  ///< the number of "invalid file format"

fs::path Folder() { return Services.BaseFolder / "Data" / "Recovery"; }
fs::path CopyFile(const std::string& name) { return Folder() / (name + std::string(Ending)); }
fs::path LockFile(const std::string& name) { return Folder() / (name + ".lock"); }

std::string LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts)};
}

/// Takes the first name whose lock and copy are free.
void TakeName() {
    Services.Files->MakeFolder(Folder());
    for (int number = 1; number <= MostNames; ++number) {
        const std::string name = std::to_string(number);
        auto lock = Services.Files->TryLock(LockFile(name));
        if (!lock || Services.Files->Exists(CopyFile(name))) continue;
        Recovery.Name = name;
        Recovery.Lock = std::move(lock);
        return;
    }
    throw RunTimeError(75, Folder().string() + ": too many copies");
}

void WriteCopy() {
    if (Recovery.Name.empty()) TakeName();
    Services.Files->Replace(CopyFile(Recovery.Name), FormatRecovery({Open.FileName, LocalTime(), Open.TabFile}));
}

std::string DocumentName(const std::string& fileName) {
    return fileName.empty() ? LanguageText("str_UnsavedSong") : fileName;
}

/// A copy that can't be read is kept for a person to look at, but not offered again and again.
void SetAside(const std::string& name, const std::string& bytes, const std::string& why) {
    const fs::path aside = Folder() / (name + ".damaged");
    Guarded([&] {
        Services.Files->Replace(aside, bytes);
        Services.Files->Delete(CopyFile(name));
    });
    Services.Messages->Show(LanguageText("str_RecoveryDamaged", {why, aside.string()}), LanguageText("str_TitleNote"),
                            Buttons::Ok, BoxIcon::Exclamation);
}

void TakeOver(RecoveryCopy copy) {
    Open.TabFile = std::move(copy.Document);
    Open.FileName = copy.FileName;
    Open.CurTrack = Open.CurBar = Open.CurStrum = Open.CurString = 0;
    Open.FileChanged = true;
    DocumentReplaced();
}

/// False when the person took this copy.
bool Offer(const std::string& name) {
    const auto lock = Services.Files->TryLock(LockFile(name));
    if (!lock) return true;  // its program runs
    const std::string bytes = Services.Files->Read(CopyFile(name));
    RecoveryCopy copy;
    try {
        copy = ParseRecovery(bytes);
    } catch (const RunTimeError& error) {
        SetAside(name, bytes, error.Description());
        return true;
    }
    const Answer answer =
        Services.Messages->Show(LanguageText("str_RecoverQuestion", {DocumentName(copy.FileName), copy.Time}),
                                LanguageText("str_TitleQuestion"), Buttons::YesNoCancel, BoxIcon::Question);
    if (answer == Answer::Cancel) return true;
    if (answer == Answer::Yes) {
        TakeOver(std::move(copy));
        // The old copy goes only when the new one stands.
        WriteCopy();
        Recovery.Written = true;
        Recovery.Copied = Open.TabFile;
    }
    Services.Files->Delete(CopyFile(name));
    Services.Files->Delete(LockFile(name));
    return answer != Answer::Yes;
}

}  // namespace

std::string FormatRecovery(const RecoveryCopy& copy) {
    // The music file's text is small and keeps every code as it is; what it can't hold goes as JSON.
    const bool asText = Core::SaveLosses(copy.Document).empty();
    const json head = {{"FileName", Core::IsUtf8(copy.FileName) ? copy.FileName : ""},
                       {"Time", copy.Time},
                       {"Kind", asText ? "text" : "json"}};
    return head.dump() + "\n" + (asText ? Core::WriteTabFileText(copy.Document) : Exchange::WriteJson(copy.Document));
}

RecoveryCopy ParseRecovery(std::string_view bytes) {
    const std::size_t end = bytes.find('\n');
    const json head = json::parse(bytes.substr(0, end), nullptr, false);
    const auto text = [&](const char* key) -> std::string {
        if (end == std::string_view::npos || !head.is_object()) return "";
        const auto found = head.find(key);
        return found != head.end() && found->is_string() ? found->get<std::string>() : "";
    };
    RecoveryCopy copy{text("FileName"), text("Time"), {}};
    const std::string kind = text("Kind");
    if (kind == "json") {
        copy.Document = Exchange::ReadJson(bytes.substr(end + 1), *Services.Settings);
        return copy;
    }
    if (kind != "text") throw RunTimeError(CopyError, LanguageText("str_UnknownFile"));
    Core::MusicReadResult read = Core::ReadTabFileText(bytes.substr(end + 1), Core::MakeNewTabFile(*Services.Settings));
    if (!read.Kind) throw RunTimeError(CopyError, LanguageText("str_UnknownFile"));
    if (read.Stopped) throw RunTimeError(CopyError, read.Stopped->Message());
    copy.Document = std::move(read.Document);
    return copy;
}

bool RecoveryDue(std::int64_t now) {
    if (!Open.FileChanged) return false;
    if (Recovery.CopiedAt && now - *Recovery.CopiedAt < RecoveryPause) return false;
    return !Recovery.Written || !(Recovery.Copied == Open.TabFile);
}

void tmrRecovery_Timer(std::int64_t now) {
    if (!Open.FileChanged && Recovery.Written) RemoveRecovery();
    if (!RecoveryDue(now)) return;
    Recovery.CopiedAt = now;
    try {
        WriteCopy();
        Recovery.Written = true;
        Recovery.Failed = false;
        Recovery.Copied = Open.TabFile;
    } catch (const RunTimeError& error) {
        if (!Recovery.Failed) Program.View->ShowStatus(LanguageText("str_RecoveryFailed", {error.Description()}));
        Recovery.Failed = true;
    }
}

void RemoveRecovery() {
    if (Recovery.Written) Guarded([] { Services.Files->Delete(CopyFile(Recovery.Name)); });
    Recovery.Written = false;
    Recovery.Copied = {};
    Recovery.CopiedAt.reset();
}

void EndRecovery() {
    RemoveRecovery();
    if (Recovery.Lock) Guarded([] { Services.Files->Delete(LockFile(Recovery.Name)); });
    Recovery = {};
}

void OfferRecovery() {
    for (const std::string& file : Services.Files->FilesIn(Folder())) {
        if (!file.ends_with(Ending)) continue;
        const std::string name = file.substr(0, file.size() - Ending.size());
        if (name == Recovery.Name) continue;
        bool goOn = true;
        Guarded([&] { goOn = Offer(name); });
        // Also when its new copy could not be written: the old one then stands until the next start.
        if (!goOn || Open.FileChanged) return;
    }
}

}  // namespace Quillon::Shell
