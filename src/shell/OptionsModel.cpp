#include <algorithm>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/AsciiImportModel.h"
#include "shell/DialogModels.h"
#include "shell/mod_Shell.h"
#include "shell/mod_Sound.h"

namespace Quillon::Shell {

namespace {

bool InLimits(int value) { return value >= LeastTabX && value <= MostTabX; }

/// Takes a number above 1 and below 50; any other text becomes that of the number as it was.
bool TakeBend(std::string& text, double& value) {
    try {
        if (const double typed = Core::ParseDouble(text); typed > 1 && typed < 50) {
            value = typed;
            return true;
        }
    } catch (const RunTimeError&) {  // no number
    }
    text = Core::FormatDouble(value);
    return false;
}

}  // namespace

void KeepSettings() {
    Guarded([] {
        Core::SaveINISettings();
        SaveStoredState();
        Services.Settings->Flush();
    });
}

void OptionsModel::Load() {
    MinTabX = Drawing::Page.MinTabX;
    MaxTabX = Drawing::Page.MaxTabX;
    Theme = Program.Theme;
    ImportAtStart = ImportsAtStart();
    Settings = Core::Settings;
    BendCoefficient = Core::FormatDouble(Settings.BendCoefficient);
    VibratoBend = Core::FormatDouble(Settings.VibratoBend);
    Synthesizer = Sound.Synthesizer;
    if (Services.Synth) SoundFonts = Services.Synth->SoundFonts();
    Languages = Core::LanguageNames(*Services.Files, Services.BaseFolder);
    Core::LanguageText("str_TitleNote");  // loads one when none was
    Language = Core::Language.Name;
}

std::string_view OptionsModel::Validate() const {
    if (!InLimits(MinTabX) || !InLimits(MaxTabX)) return "str_SpacingOutOfRange";
    if (MinTabX > MaxTabX) return "str_SpacingOrder";
    if (Theme < 0 || Theme > MostTheme) return "str_ThemeMissing";
    if (std::ranges::find(Languages, Language) == Languages.end()) return "str_LanguageMissing";
    return "";
}

std::string_view OptionsModel::CheckBends() {
    const bool bend = TakeBend(BendCoefficient, Settings.BendCoefficient);
    const bool vibrato = TakeBend(VibratoBend, Settings.VibratoBend);
    return !bend ? "str_BendOutOfRange" : !vibrato ? "str_VibratoOutOfRange" : "";
}

void OptionsModel::Preview() const {
    if (Services.Synth) Services.Synth->Apply(Synthesizer);
}

void OptionsModel::Revert() {
    if (Services.Synth) Services.Synth->Apply(Sound.Synthesizer);
}

bool OptionsModel::Apply() const {
    Core::SettingsRecord settings = Settings;
    settings.OutputDevice = Core::Settings.OutputDevice;  // which a click in the list has set already
    // The bank of the usual mode is past 7 bits, which is meant; one set by hand stays while the mode does.
    if (settings.AlternatePlayback != Core::Settings.AlternatePlayback) {
        settings.OutputBank = settings.AlternatePlayback ? 127 : 128;
    }
    Drawing::PageSetup& page = Drawing::Page;
    const bool spacing = page.MinTabX != MinTabX || page.MaxTabX != MaxTabX;
    const bool language = Core::Language.Name != Language;
    const bool synthesizer = Synthesizer != Sound.Synthesizer;
    const bool imports = ImportAtStart != ImportsAtStart();
    if (!spacing && !language && !synthesizer && !imports && Theme == Program.Theme && settings == Core::Settings) {
        return false;
    }
    if (imports) SetImportsAtStart(ImportAtStart);
    page.MinTabX = MinTabX;
    page.MaxTabX = MaxTabX;
    page.LayoutDirty = 1;
    Program.Theme = Theme;
    Core::Settings = settings;
    Sound.Synthesizer = Synthesizer;
    Preview();
    ApplySettings();
    KeepSettings();
    const auto choose = [&] { Core::ChooseLanguage(*Services.Files, Services.BaseFolder, Language); };
    if (language && !Guarded(choose)) Core::LoadLanguage(*Services.Files, Services.BaseFolder, Language);
    return true;
}

void PageSetupModel::Load() { Page = Drawing::Page; }

std::string_view PageSetupModel::Validate() const {
    if (Page.PaperSizeIndex < 0 || Page.PaperSizeIndex >= Drawing::PaperSizeCount) return "str_PaperSizeMissing";
    for (const int margin : {Page.PageLeftMargin, Page.PageTopMargin}) {
        if (margin < 0 || margin > MostMargin) return "str_MarginOutOfRange";
    }
    return "";
}

bool PageSetupModel::Apply() const {
    Drawing::PageSetup page = Drawing::Page;
    page.PaperSizeIndex = Page.PaperSizeIndex;
    page.IsLandscape = Page.IsLandscape;
    page.PageScaleIndex = Page.PageScaleIndex == 0 ? std::int16_t{0} : std::int16_t{1};
    page.PageRulerStep = page.PageScaleIndex == 0 ? 7 : 5;
    page.PageLeftMargin = Page.PageLeftMargin;
    page.PageTopMargin = Page.PageTopMargin;
    const Drawing::PageSetup& now = Drawing::Page;
    if (page.PaperSizeIndex == now.PaperSizeIndex && page.IsLandscape == now.IsLandscape &&
        page.PageScaleIndex == now.PageScaleIndex && page.PageLeftMargin == now.PageLeftMargin &&
        page.PageTopMargin == now.PageTopMargin) {
        return false;
    }
    Drawing::ApplyPaperSize(page);
    page.LayoutDirty = 1;
    Drawing::Page = page;
    KeepSettings();
    return true;
}

}  // namespace Quillon::Shell
