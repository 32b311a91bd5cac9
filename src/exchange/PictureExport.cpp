#include "exchange/PictureExport.h"

#include "core/mod_Common.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_HighLevelDrawing.h"
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

std::vector<std::filesystem::path> ExportPictures(const std::filesystem::path& target, const PictureOptions& options,
                                                  const PictureEncoder& encode) {
    if (options.Track < 0 || options.Track > Core::Open.TabFile.Tracks.UpperBound()) RaiseSubscriptOutOfRange();
    const int pages = Drawing::CountPages(options.Track);
    if (options.Page < 0 || options.Page > pages) RaiseSubscriptOutOfRange();
    const int first = options.Page == 0 ? 1 : options.Page;
    const int last = options.Page == 0 ? pages : options.Page;
    std::vector<std::filesystem::path> written;
    for (int page = first; page <= last; ++page) {
        std::filesystem::path path = target;
        if (last > first) {
            const std::string ending = target.extension().string();
            path.replace_filename(target.stem().string() + "-" + std::to_string(page) + ending);
        }
        const auto paint = [&](Picture& picture) { Drawing::DrawPage(picture, options.Track, page - 1); };
        Services.Files->Replace(path, encode(Drawing::Page.PageWidth, Drawing::Page.PageHeight, paint));
        written.push_back(std::move(path));
    }
    return written;
}

}  // namespace Quillon::Exchange
