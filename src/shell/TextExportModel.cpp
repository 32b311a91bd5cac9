#include "shell/TextExportModel.h"

#include <algorithm>
#include <vector>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

using Core::LanguageText;
using Core::Open;
using Exchange::TextKind;

namespace {

std::vector<FileKind> KindsOf(TextKind kind) {
    switch (kind) {
        case TextKind::Text:
            return {{"str_FilterText", {"txt"}}, {"str_FilterTab", {"tab"}}};
        case TextKind::Page:
            return {{"str_FilterHtml", {"html"}}, {"str_FilterHtm", {"htm"}}};
        default:
            return {{"str_FilterPdf", {"pdf"}}};
    }
}

void Export(TextKind kind) {
    if (!PasswordCorrect()) return;
    TextExportModel model;
    model.Load(kind);
    if (!Program.Dialogs->Edit(model)) return;
    model.Apply();
    const std::vector<FileKind> kinds = KindsOf(kind);
    const auto target = Program.View->AskFileToWrite(ExportName("." + kinds.front().Endings.front()), kinds);
    if (!target) return;
    const bool written = Guarded([&] {
        Exchange::ExportText(kind, *target, {Open.CurTrack, model.MaxLineLength, model.Warning});
    });
    if (written) Program.View->ShowStatus(LanguageText("str_ExportWritten", {target->filename().string()}));
}

}  // namespace

void TextExportModel::Load(TextKind kind) {
    Kind = kind;
    MaxLineLength = Core::Settings.MaxLineLength < 1 ? std::int16_t{1} : Core::Settings.MaxLineLength;
    Warning = Core::Settings.IncludeCopyrightWarning;
}

std::string_view TextExportModel::Title() const {
    switch (Kind) {
        case TextKind::Text:
            return "str_ExportTextTitle";
        case TextKind::Page:
            return "str_ExportPageTitle";
        default:
            return "str_ExportPdfTitle";
    }
}

std::string TextExportModel::Sample() const {
    constexpr int mostBars = 200;  // more are not seen
    Core::TabFile file = Open.TabFile;
    Core::Track& track = file.Tracks[Open.CurTrack];
    if (track.Bars.Count() > mostBars) track.Bars.Resize(mostBars);
    const Exchange::TextExportOptions options{Open.CurTrack, MaxLineLength, Warning};
    return Core::FromWindows1252(Kind == TextKind::Page ? Exchange::WriteWebPage(file, options)
                                                        : Exchange::WriteTextTab(file, options));
}

void TextExportModel::Apply() const {
    Core::Settings.MaxLineLength = MaxLineLength;
    Core::Settings.IncludeCopyrightWarning = Warning;
}

std::filesystem::path ExportName(std::string_view ending) {
    if (Open.FileName.empty()) return LanguageText("str_Untitled") + std::string(ending);
    constexpr std::size_t endingLength = 4;  // of ".qlm"
    return Open.FileName.substr(0, Open.FileName.size() - std::min(Open.FileName.size(), endingLength)) +
           std::string(ending);
}

void mnuFileExportASCII_Click() { Export(TextKind::Text); }
void mnuFileExportHTML_Click() { Export(TextKind::Page); }
void mnuFileExportPDF_Click() { Export(TextKind::Pdf); }

}  // namespace Quillon::Shell
