#include "cli/TextFiles.h"

#include "cli/PictureFiles.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/TextFileExport.h"

namespace Quillon::Cli {

namespace {

bool Write(Exchange::TextKind kind, const std::filesystem::path& path, const ConvertOptions& options) {
    Core::LoadINISettings();
    Exchange::TextExportOptions text = Exchange::TextOptionsOfSettings(Core::Open.CurTrack);
    if (options.MaxLine) text.MaxLineLength = *options.MaxLine;
    if (options.Warning) text.Warning = *options.Warning;
    Exchange::ExportText(kind, path, text);
    return true;
}

}  // namespace

bool WriteText(const std::filesystem::path& path, const ConvertOptions& options) {
    return Write(Exchange::TextKind::Text, path, options);
}

bool WritePage(const std::filesystem::path& path, const ConvertOptions& options) {
    return Write(Exchange::TextKind::Page, path, options);
}

bool WritePdf(const std::filesystem::path& path, const ConvertOptions& options) {
    return options.Engraved ? WriteEngravedPdf(path, options) : Write(Exchange::TextKind::Pdf, path, options);
}

}  // namespace Quillon::Cli
