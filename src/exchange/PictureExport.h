// Pages as picture files, a file a page.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/ImageSize.h"
#include "platform/PageTarget.h"

namespace Quillon::Exchange {

enum class PictureKind { Svg, Png, Jpeg, Bmp };

/// By the file's ending: .svg .png .jpg .jpeg .bmp in any case of letters; nothing for any other.
std::optional<PictureKind> PictureKindOf(const std::filesystem::path& path);

struct PictureOptions {
    int Track = 0;
    int Page = 0;  ///< from 1, 0 for every page
};

/// Gives the bytes of a picture file: makes a picture of a sheet's document pixels, has it painted, and encodes it.
using PictureEncoder = std::function<std::string(const Sheet& sheet, const std::function<void(Picture&)>& paint)>;

/// Pixels of a page at a resolution.
ImageSize PagePixels(int dpi);
/// Why a page can't be made at this resolution, in the chosen language; "" when it can.
std::string PictureComplaint(int dpi);

/// The files that ExportPictures writes. Several pages are numbered before the ending, "song-1.png", "song-2.png".
/// Raises "Subscript out of range" for a track or page that is not there.
std::vector<std::filesystem::path> PicturePaths(const std::filesystem::path& target, const PictureOptions& options);

/// Writes pages of the open document and gives the paths of the files written. Raises as PicturePaths before anything
/// is written, and what the encoder and the file system raise.
std::vector<std::filesystem::path> ExportPictures(const std::filesystem::path& target, const PictureOptions& options,
                                                  const PictureEncoder& encode);

}  // namespace Quillon::Exchange
