#include "shell/AsciiImportModel.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_Settings.h"
#include "exchange/LinesImport.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "platform/UrlFetch.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;

namespace {

constexpr std::string_view DashKeys[] = {"str_WholeNote", "str_HalfNote", "str_4thNote", "str_8thNote",
                                         "str_16thNote",  "str_32ndNote", "str_64thNote"};

bool AskYesNo(const std::string& text, std::string_view title) {
    return Services.Messages->Show(text, LanguageText(title), Buttons::YesNo, BoxIcon::Question) == Answer::Yes;
}

void Tell(std::string_view key) {
    Services.Messages->Show(LanguageText(key), LanguageText("str_Error"), Buttons::Ok, BoxIcon::Exclamation);
}

/// What an address holds; nothing when it was cancelled. Raises when it can't be fetched. Where it leads on to another
/// host, that one is asked about too.
std::optional<std::string> FetchBytes(const std::string& url, const Exchange::ImportProgress& progress) {
    constexpr int cantBeFetched = 68;
    if (!Services.Fetch) throw RunTimeError(cantBeFetched, url);
    constexpr int mostMoves = 5;
    std::string at = url;
    for (int moves = 0;; ++moves) {
        try {
            return Services.Fetch->Fetch(at, [&] { return !progress || progress(0); });
        } catch (const FetchMoved& moved) {
            if (moves == mostMoves) throw;
            if (!AskYesNo(LanguageText("str_FetchFrom", {HostOfUrl(moved.Url)}), "str_Download")) return {};
            at = moved.Url;
        }
    }
}

constexpr std::string_view StoreSection = "Import";
constexpr std::string_view AtStartKey = "ClipboardAtStart";
std::string pendingAddress;  // that tmrImport fetches

void ImportFrom(AsciiImportModel::Source from) {
    if (!PasswordCorrect()) return;
    AsciiImportModel model;
    model.Load(from);
    Program.Dialogs->Edit(model);
}

}  // namespace

std::span<const std::string_view> AsciiImportModel::Dashes() { return DashKeys; }

std::int16_t AsciiImportModel::DashOfText(std::string_view typed) {
    const auto* const found =
        std::ranges::find_if(DashKeys, [&](std::string_view key) { return LanguageText(key) == typed; });
    return static_cast<std::int16_t>(found == std::end(DashKeys) ? std::ssize(DashKeys) - 1 : found - DashKeys);
}

void AsciiImportModel::Load(Source from) {
    From = from;
    AutoSettings = Core::Settings.AutoASCII;
    if (from == Source::Clipboard) bytes = Program.View->ClipboardText();
}

std::string_view AsciiImportModel::Caption() const {
    switch (From) {
        case Source::Web:
            return "str_HTMLIMPORT";
        case Source::Clipboard:
            return "str_CLIPBOARDIMPORT";
        default:
            return "str_ASCIIIMPORT";
    }
}

bool AsciiImportModel::ChooseFile(const std::filesystem::path& path) {
    const bool read = Guarded([&] { bytes = Services.Files->Read(path); });
    if (!read) return false;
    FileName = path;
    Changed();
    return true;
}

std::string_view AsciiImportModel::About(int reader) const {
    return reader == Classic ? "str_TextClassicAbout" : "str_TextLinesAbout";
}

int AsciiImportModel::ShownTrack() const { return IntoNew ? 0 : Open.CurTrack; }

std::string AsciiImportModel::FailureText(const RunTimeError&) const { return LanguageText("str_ErrorImporting"); }

std::string AsciiImportModel::SourceText() const {
    return From == Source::File ? FileName.string() : From == Source::Web ? Url : "";
}

bool AsciiImportModel::Read(int reader, Core::TabFile& file, Exchange::ImportReport& report,
                            const Exchange::ImportProgress& progress) const {
    const auto timing = EnforceTiming ? Exchange::ParseTiming(Timing) : std::nullopt;
    if (reader == Other) {
        return Exchange::ImportTextLines(file, ShownTrack(), bytes, {Dash, Details, timing}, report, progress);
    }
    Exchange::AsciiImportOptions options;
    options.Dash = Dash;
    options.SameLength = SameLength;
    options.Details = Details;
    options.Timing = timing;
    return Exchange::ImportTextTab(file, ShownTrack(), Exchange::TextOfBytes(bytes), options, progress, &report);
}

bool AsciiImportModel::Look(const Exchange::ImportProgress& progress) {
    const std::string host = HostOfUrl(Url);
    if (!host.empty() && !AskYesNo(LanguageText("str_FetchFrom", {host}), "str_Download")) return false;
    Status = LanguageText("str_Downloading");
    if (progress) progress(0);
    std::optional<std::string> page;
    try {
        page = FetchBytes(Url, progress);
    } catch (const RunTimeError&) {
        Tell("str_PleaseConnect");
    }
    Status.clear();
    if (!page) return false;
    bytes = std::move(*page);
    fetchedUrl = Url;
    Changed();
    return true;
}

AsciiImportModel::Step AsciiImportModel::OfferMusicFile(const Exchange::ImportProgress& progress) {
    const std::string text = Exchange::TextOfBytes(bytes);
    const std::string address = Exchange::MarkedText(text, "<ql_qlm_addr='");
    if (address.empty() || !AskYesNo(LanguageText("str_QLMAvailable", {HostOfUrl(address)}), "str_Download")) {
        return Step::GoOn;
    }
    if (!AskYesNo(LanguageText("str_CurrFileWillBeLost"), "str_Warning")) return Step::Close;
    const auto scratch = Services.BaseFolder / "Data" / "tempX";
    try {
        const auto music = FetchBytes(address, progress);
        if (!music) return Step::Stay;
        Services.Files->Replace(scratch, *music);
        const auto outcome = Core::ForceOpenFile(scratch);
        Services.Files->Delete(scratch);
        if (outcome == Core::OpenOutcome::Opened || outcome == Core::OpenOutcome::Damaged) {
            Open.TabFile.RT = Exchange::MarkedText(text, "<ql_res_text='");
            Open.TabFile.RA = Exchange::MarkedText(text, "<ql_res_addr='");
        }
    } catch (const RunTimeError&) {
        Tell("str_PleaseConnect");
        return Step::Stay;
    }
    Open.FileName.clear();
    DocumentReplaced();
    return Step::Close;
}

bool AsciiImportModel::Command2_Click(const Exchange::ImportProgress& progress) {
    Core::Settings.AutoASCII = AutoSettings;
    if (!Exchange::ParseTiming(Timing)) {
        Tell("str_ValidTSPlease");
        return false;
    }
    if (!IntoNew && !AskYesNo(LanguageText("str_CurrTrackWilLBeLost"), "str_Warning")) return false;
    if (From == Source::File && Core::TrimBlanks(FileName.string()).empty()) {
        Tell("str_PleaseSpecifyFile");
        return false;
    }
    if (From == Source::Web) {
        if (fetchedUrl != Url && !Look(progress)) return false;
        const Step step = OfferMusicFile(progress);
        if (step != Step::GoOn) return step == Step::Close;
    }
    return Import(SourceText(), progress);
}

void mnuFileImportTab_Click() { ImportFrom(AsciiImportModel::Source::File); }
void mnuImportTabFromWeb_Click() { ImportFrom(AsciiImportModel::Source::Web); }
void mnuFileImportClipboard_Click() { ImportFrom(AsciiImportModel::Source::Clipboard); }

bool OpenTextTab(const std::filesystem::path& path) {
    AsciiImportModel model;
    model.Load(AsciiImportModel::Source::File);
    model.IntoNew = true;
    model.Details = true;
    if (!model.ChooseFile(path)) return false;
    if (!Program.Dialogs->Edit(model)) return false;
    BecomeNewSong();
    return true;
}

bool ImportsAtStart() { return Services.Settings->Get(StoreSection, AtStartKey) == "1"; }

void SetImportsAtStart(bool imports) { Services.Settings->Save(StoreSection, AtStartKey, imports ? "1" : "0"); }

void StartTmrImport() {
    if (!ImportsAtStart()) return;
    const std::string text = Program.View->ClipboardText();
    std::string_view address = Core::TrimBlanks(text);
    if (!Core::UpperAscii(address).starts_with("HTTP://") && !Core::UpperAscii(address).starts_with("HTTPS://")) return;
    pendingAddress = address;
    Program.View->ClearClipboard();
    Program.View->WhenPainted(tmrImport_Timer);
}

void tmrImport_Timer() {
    if (pendingAddress.empty() || !PasswordCorrect()) return;
    AsciiImportModel model;
    model.Load(AsciiImportModel::Source::Web);
    model.Url = std::exchange(pendingAddress, "");
    if (Core::Settings.AutoASCII) {
        model.Command2_Click({});
    } else {
        Program.Dialogs->Edit(model);
    }
}

}  // namespace Quillon::Shell
