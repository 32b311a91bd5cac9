#include "exchange/PictureExport.h"

#include <cmath>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PrintedPages.h"
#include "exchange/PrintJob.h"
#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"

namespace Quillon::Exchange {

std::optional<PictureKind> PictureKindOf(const std::filesystem::path& path) {
    const std::string ending = Core::LowerAscii(path.extension().string());
    if (ending == ".svg") return PictureKind::Svg;
    if (ending == ".png") return PictureKind::Png;
    if (ending == ".jpg" || ending == ".jpeg") return PictureKind::Jpeg;
    if (ending == ".bmp") return PictureKind::Bmp;
    return {};
}

ImageSize PagePixels(int dpi) { return SizeOfImage(PrintJob::PageSheet(), dpi); }

std::string PictureComplaint(int dpi) {
    const ImageSize size = PagePixels(dpi);
    if (!size.TooLarge()) return "";
    const auto number = [](double value) { return std::to_string(std::llround(value)); };
    return Core::LanguageText("str_PictureTooLarge",
                              {number(size.Width), number(size.Height), number(size.Megabytes())});
}

std::vector<std::filesystem::path> PicturePaths(const std::filesystem::path& target, const PictureOptions& options) {
    if (options.Track < 0 || options.Track > Core::Open.TabFile.Tracks.UpperBound()) RaiseSubscriptOutOfRange();
    const int pages = Drawing::CountPages(options.Track);
    if (options.Page < 0 || options.Page > pages) RaiseSubscriptOutOfRange();
    if (options.Page != 0 || pages == 1) return {target};
    std::vector<std::filesystem::path> paths;
    for (int page = 1; page <= pages; ++page) {
        std::string name = target.stem().string() + "-" + std::to_string(page) + target.extension().string();
        paths.push_back(target.parent_path() / name);
    }
    return paths;
}

std::vector<std::filesystem::path> ExportPictures(const std::filesystem::path& target, const PictureOptions& options,
                                                  const PictureEncoder& encode) {
    const auto paths = PicturePaths(target, options);
    int page = options.Page == 0 ? 0 : options.Page - 1;
    for (const std::filesystem::path& path : paths) {
        const auto paint = [&](Picture& picture) { Drawing::DrawPage(picture, options.Track, page); };
        Services.Files->Replace(path, encode(PrintJob::PageSheet(), paint));
        ++page;
    }
    return paths;
}

}  // namespace Quillon::Exchange
