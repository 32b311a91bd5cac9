#include "exchange/TextFileExport.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/PdfWriter.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"

namespace Quillon::Exchange {

namespace {

std::string CreationDate() {
    std::time_t when = std::time(nullptr);
    std::tm parts{};
    const char* const epoch = std::getenv("SOURCE_DATE_EPOCH");
    const std::string_view text = epoch ? epoch : "";
    if (!text.empty() && std::from_chars(text.data(), text.data() + text.size(), when).ec == std::errc()) {
        gmtime_r(&when, &parts);
    } else {
        localtime_r(&when, &parts);
    }
    char date[32];
    const std::size_t length = std::strftime(date, sizeof(date), "%Y%m%d%H%M%S", &parts);
    return {date, length};
}

std::string Pdf(const Core::TabFile& file, const TextExportOptions& options) {
    PdfTextOptions pdf;
    pdf.Author = Core::ToWindows1252(file.Author);
    pdf.Title = Core::ToWindows1252(file.Title);
    pdf.CreationDate = CreationDate();
    return WriteTextPdf(WriteTextTab(file, options), pdf);
}

}  // namespace

TextExportOptions TextOptionsOfSettings(int track) {
    return {track, Core::Settings.MaxLineLength, Core::Settings.IncludeCopyrightWarning};
}

void ExportText(TextKind kind, const std::filesystem::path& path, const TextExportOptions& options) {
    const Core::TabFile& file = Core::Open.TabFile;
    switch (kind) {
        case TextKind::Text:
            return Services.Files->Replace(path, WriteTextTab(file, options));
        case TextKind::Page:
            return Services.Files->Replace(path, WriteWebPage(file, options));
        case TextKind::Pdf:
            return Services.Files->Replace(path, Pdf(file, options));
    }
}

}  // namespace Quillon::Exchange
