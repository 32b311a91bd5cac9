#include <algorithm>

#include "core/mod_Language.h"
#include "core/mod_Settings.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "shell/DialogModels.h"
#include "shell/mod_Shell.h"

namespace Quillon::Shell {

namespace {

bool InLimits(int value) { return value >= LeastTabX && value <= MostTabX; }

/// Stored at once: options must not wait for a clean end of the program. When they can't be stored a box says so, and
/// they hold for this run.
void KeepSettings() {
    Guarded([] {
        Core::SaveINISettings();
        SaveStoredState();
        Services.Settings->Flush();
    });
}

}  // namespace

void OptionsModel::Load() {
    MinTabX = Drawing::Page.MinTabX;
    MaxTabX = Drawing::Page.MaxTabX;
    Theme = Program.Theme;
    Settings = Core::Settings;
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

bool OptionsModel::Apply() const {
    Drawing::PageSetup& page = Drawing::Page;
    const bool spacing = page.MinTabX != MinTabX || page.MaxTabX != MaxTabX;
    const bool language = Core::Language.Name != Language;
    if (!spacing && !language && Theme == Program.Theme && Settings == Core::Settings) return false;
    page.MinTabX = MinTabX;
    page.MaxTabX = MaxTabX;
    page.LayoutDirty = 1;
    Program.Theme = Theme;
    Core::Settings = Settings;
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
