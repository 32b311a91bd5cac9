#include "exchange/TextFileExport.h"

#include <string>

#include "core/mod_Common.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/FileDate.h"
#include "exchange/PdfWriter.h"
#include "platform/FileSystem.h"
#include "platform/Services.h"

namespace Quillon::Exchange {

namespace {

std::string Pdf(const Core::TabFile& file, const TextExportOptions& options) {
    PdfTextOptions pdf;
    pdf.Author = Core::ToWindows1252(file.Author);
    pdf.Title = Core::ToWindows1252(file.Title);
    pdf.CreationDate = FileDate();
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
