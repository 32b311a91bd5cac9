#include "cli/PictureFiles.h"

#include "cli/Commands.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PrintedPages.h"
#include "exchange/PictureExport.h"
#include "exchange/PrintJob.h"
#include "platform/Services.h"
#include "platform/pdf/PdfPages.h"
#include "platform/portable/SvgPicture.h"
#include "platform/qt/QtImageFile.h"

namespace Quillon::Cli {

using Exchange::PictureKind;

namespace {

using Paint = std::function<void(Picture&)>;

std::string EncodeSvg(const Sheet& sheet, const Paint& paint) {
    SvgPicture picture(static_cast<int>(sheet.Width), static_cast<int>(sheet.Height));
    paint(picture);
    return picture.Text();
}

Exchange::PictureEncoder EncoderOf(PictureKind kind, int dpi) {
    const auto pixels = [dpi](ImageFormat format) {
        return [dpi, format](const Sheet& sheet, const Paint& paint) { return EncodeImage(sheet, dpi, format, paint); };
    };
    switch (kind) {
        case PictureKind::Svg:
            return EncodeSvg;
        case PictureKind::Png:
            return pixels(ImageFormat::Png);
        case PictureKind::Jpeg:
            return pixels(ImageFormat::Jpeg);
        case PictureKind::Bmp:
            return pixels(ImageFormat::Bmp);
    }
    return EncodeSvg;
}

void CheckPage(const ConvertOptions& options, int pages) {
    if (!options.Page || (*options.Page >= 1 && *options.Page <= pages)) return;
    throw CommandFailure("page " + std::to_string(*options.Page) + ": there are the pages 1 to " +
                         std::to_string(pages));
}

}  // namespace

bool WritePictures(const std::filesystem::path& path, const ConvertOptions& options) {
    const auto kind = Exchange::PictureKindOf(path);
    if (!kind) throw CommandFailure(path.string() + ": not a picture's ending");
    const std::string complaint = *kind == PictureKind::Svg ? "" : Exchange::PictureComplaint(options.Dpi);
    if (!complaint.empty()) throw CommandFailure(path.string() + ": " + complaint);
    const int track = Core::Open.CurTrack;
    CheckPage(options, Drawing::CountPages(track));
    Exchange::ExportPictures(path, {.Track = track, .Page = options.Page.value_or(0)}, EncoderOf(*kind, options.Dpi));
    return true;
}

bool WriteEngravedPdf(const std::filesystem::path& path, const ConvertOptions& options) {
    const Exchange::PrintOptions print{options.AllTracks, Core::Open.CurTrack,
                                       Exchange::LoadRunningFields(*Services.Settings)};
    CheckPage(options, Exchange::PrintJob(print).Pages());
    PdfPages file;
    Exchange::ExportEngravedPdf(path, print, options.Page.value_or(0), file);
    return true;
}

}  // namespace Quillon::Cli
