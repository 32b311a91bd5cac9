#include <algorithm>
#include <limits>

#include "core/mod_Common.h"
#include "core/mod_MusicFile.h"
#include "drawing/mod_PageLayout.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/DialogModels.h"

namespace Quillon::Shell {

using Core::Open;
using Core::TabFile;

namespace {

constexpr float LeastTempo = std::numeric_limits<float>::min();  // anything above 0
constexpr float MostTempo = 1000;
constexpr int MostRowSpacing = 1000;
constexpr int MostFontSize = 144;

/// What new files start with; the keys are those that NewTabFile reads.
void SaveDefaults(const TabFile& file) {
    const auto text = [](const char* key, const std::string& value) {
        Services.Settings->Save("DefaultInfo", key, value);
    };
    const auto number = [&](const char* key, std::int32_t value) { text(key, std::to_string(value)); };
    text("1", file.Artist);
    text("2", file.Album);
    text("3", file.Author);
    text("4", file.Copyright);
    text("5", file.TabbedBy);
    text("6", file.Instructions);
    text("7", file.Notice);
    text("8", file.Notes);
    number("9", file.Shuffle);
    number("10", file.AlwaysCharts);
    number("11", file.RowSpacing);
    text("12", Core::FormatSingle(file.Tempo));
    number("13", file.ShowHeader);
    text("GFONTNAME", file.FontName);
    number("GFONTSIZE", file.FontSize);
    number("GFONTBOLD", file.FontBold);
    number("GFONTITALIC", file.FontItalic);
    number("GFONTSTRIKE", file.FontStrike);
    number("GFONTUNDERLINE", file.FontUnderline);
    number("GFONTCOLOR", file.FontColor);
    number("COLOR3", file.LineColor);
    text("GNOTENAME", file.NoteFontName);
    number("GNOTESIZE", file.NoteFontSize);
    number("GNOTEBOLD", file.NoteFontBold);
    number("GNOTEITALIC", file.NoteFontItalic);
    number("GNOTESTRIKE", file.NoteFontStrike);
    number("GNOTEUNDERLINE", file.NoteFontUnderline);
    number("GNOTECOLOR", file.NoteFontColor);
    Services.Settings->Flush();
}

/// How many texts of the file's head would end it, or be cut, when it is saved.
std::ptrdiff_t ReservedTexts(TabFile head) {
    head.Tracks = TabFile().Tracks;
    return std::ranges::count(Core::SaveLosses(head), Core::LossKind::ReservedText, &Core::Loss::Kind);
}

}  // namespace

void FilePropertiesModel::Load() { File = Open.TabFile; }

std::string_view FilePropertiesModel::Validate() const {
    // An odd value that the file came with stays, and keeps nobody from changing another.
    const TabFile& before = Open.TabFile;
    const auto gone = [](const std::string& now, const std::string& was) { return now.empty() && !was.empty(); };
    const auto wrong = [](auto now, auto was, auto least, auto most) {
        return now != was && !(now >= least && now <= most);
    };
    if (ReservedTexts(File) > ReservedTexts(before)) return "str_TextReserved";
    if (wrong(File.Tempo, before.Tempo, LeastTempo, MostTempo)) return "str_TempoOutOfRange";
    if (wrong(File.RowSpacing, before.RowSpacing, 0, MostRowSpacing)) return "str_RowSpacingOutOfRange";
    if (gone(File.FontName, before.FontName) || gone(File.NoteFontName, before.NoteFontName)) return "str_FontMissing";
    if (wrong(File.FontSize, before.FontSize, 1, MostFontSize) ||
        wrong(File.NoteFontSize, before.NoteFontSize, 1, MostFontSize)) {
        return "str_FontSizeOutOfRange";
    }
    if (File.HasPassword && File.Password.empty()) return "str_PasswordMissing";
    return "";
}

bool FilePropertiesModel::Apply() const {
    if (UseAsDefaults) SaveDefaults(File);
    if (File == Open.TabFile) return false;
    Open.TabFile = File;
    Open.FileChanged = true;
    Drawing::Page.LayoutDirty = 1;
    return true;
}

Font FilePropertiesModel::TitleFont() const {
    return {File.FontName,  static_cast<double>(File.FontSize), File.FontBold, File.FontItalic, File.FontUnderline,
            File.FontStrike};
}

void FilePropertiesModel::SetTitleFont(const Font& font) {
    File.FontName = font.Name;
    File.FontSize = Core::CInt(font.Size);
    File.FontBold = font.Bold;
    File.FontItalic = font.Italic;
    File.FontUnderline = font.Underline;
    File.FontStrike = font.Strike;
}

Font FilePropertiesModel::NoteFont() const {
    return {File.NoteFontName,      static_cast<double>(File.NoteFontSize),
            File.NoteFontBold,      File.NoteFontItalic,
            File.NoteFontUnderline, File.NoteFontStrike};
}

void FilePropertiesModel::SetNoteFont(const Font& font) {
    File.NoteFontName = font.Name;
    File.NoteFontSize = Core::CInt(font.Size);
    File.NoteFontBold = font.Bold;
    File.NoteFontItalic = font.Italic;
    File.NoteFontUnderline = font.Underline;
    File.NoteFontStrike = font.Strike;
}

}  // namespace Quillon::Shell
