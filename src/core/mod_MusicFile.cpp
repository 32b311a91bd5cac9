#include "core/mod_MusicFile.h"

#include <algorithm>

#include "core/clsCryptAPI.h"
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/Services.h"

namespace Quillon::Core {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t MostLossesShown = 12;

/// The scratch files that everything shares that saves or opens, and the lock beside them.
fs::path ScratchFile(const char* name) { return Services.BaseFolder / "Data" / name; }
fs::path Temp() { return ScratchFile("temp"); }
fs::path Temp2() { return ScratchFile("temp2"); }

fs::path TempLock() { return ScratchFile("temp.lock"); }

std::unique_ptr<FileLock> LockScratchFiles() {
    Services.Files->MakeFolder(Services.BaseFolder / "Data");
    return Services.Files->Lock(TempLock());
}

clsCryptAPI Crypt() { return {*Services.Files, *Services.StreamCipher}; }

void Copy(const fs::path& from, const fs::path& to) { Services.Files->WriteScratch(to, Services.Files->Read(from)); }

void ShowCritical(const std::string& text) {
    Services.Messages->Show(text, LanguageText("str_TitleError"), Buttons::Ok, BoxIcon::Critical);
}

/// Asks once, with the list, when the file can't hold the document whole.
bool MaySave(const fs::path& path) {
    const std::vector<Loss> losses = SaveLosses(Open.TabFile);
    if (losses.empty()) return true;
    std::string list;
    for (std::size_t i = 0; i < losses.size() && i < MostLossesShown; ++i) list += LossText(losses[i]) + "\n";
    if (losses.size() > MostLossesShown) {
        list += LanguageText("str_MoreLosses", {std::to_string(losses.size() - MostLossesShown)}) + "\n";
    }
    return Services.Messages->Show(LanguageText("str_SaveLosses", {path.string(), list}),
                                   LanguageText("str_TitleQuestion"), Buttons::YesNo, BoxIcon::Question) == Answer::Yes;
}

}  // namespace

void DelTempFiles() {
    const fs::path files[] = {Temp(), Temp2(), TempLock()};
    // Taking the lock would make its file, in a folder that may be read-only.
    if (std::ranges::none_of(files, [](const fs::path& file) { return Services.Files->Exists(file); })) return;
    const auto lock = Services.Files->TryLock(TempLock());
    if (!lock) return;
    for (const fs::path& file : files) Services.Files->Delete(file);
}

std::string DecipherMusicFile(std::string_view fileBytes) {
    return Crypt().DecryptByte(fileBytes, MusicFilePassPhrase);
}

std::string EncipherMusicFile(std::string_view text) { return Crypt().EncryptByte(text, MusicFilePassPhrase); }

void WriteTabFile() {
    const auto lock = LockScratchFiles();
    Services.Files->WriteScratch(Temp(), WriteTabFileText(Open.TabFile));
    Crypt().EncryptFile(Temp(), Temp2(), MusicFilePassPhrase);
    Services.Files->Delete(Temp());
    Copy(Temp2(), Temp());
}

bool ForceSaveFile(const fs::path& path) {
    if (!MaySave(path)) return false;
    const auto lock = LockScratchFiles();
    WriteTabFile();
    Services.Files->Replace(path, Services.Files->Read(Temp()));
    return true;
}

OpenOutcome ReadTabFile() {
    MusicReadResult read;
    {
        const auto lock = LockScratchFiles();
        Crypt().DecryptFile(Temp(), Temp2(), MusicFilePassPhrase);
        Services.Files->Delete(Temp());
        Copy(Temp2(), Temp());
        read = ReadTabFileText(Services.Files->Read(Temp()), MakeNewTabFile(*Services.Settings));
    }
    if (!read.Kind) {
        ShowCritical(LanguageText("str_UnknownFile"));
        return OpenOutcome::UnknownKind;
    }
    Open.TabFile = std::move(read.Document);
    if (!read.Stopped) return OpenOutcome::Opened;
    ShowCritical(read.Stopped->Message());
    return OpenOutcome::Damaged;
}

OpenOutcome ForceOpenFile(const fs::path& path) {
    const std::string bytes = Services.Files->Read(path);
    if (IsOldMusicFile(bytes)) {
        ShowCritical(LanguageText("str_OldFile"));
        return OpenOutcome::OldKind;
    }
    OpenOutcome outcome{};
    {
        const auto lock = LockScratchFiles();
        Services.Files->WriteScratch(Temp(), bytes);
        outcome = ReadTabFile();
    }
    if (outcome == OpenOutcome::UnknownKind) return outcome;
    // A document that was read in part has no file, so that a save can't put half of it in place of the whole.
    Open.FileName = outcome == OpenOutcome::Opened ? path.string() : "";
    Open.CurTrack = Open.CurBar = Open.CurStrum = Open.CurString = 0;
    Open.FileChanged = false;
    return outcome;
}

}  // namespace Quillon::Core
