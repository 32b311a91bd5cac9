// The pages of a track one by one, for printing and files: each with its top left corner at 0, 0.
#pragma once

#include <optional>
#include <string>

#include "drawing/mod_PageLayout.h"
#include "drawing/mod_TabDrawing.h"
#include "platform/Picture.h"

namespace Quillon::Drawing {

struct RunningLine {
    std::string Left;
    std::string Center;
    std::string Right;
};
/// What stands at the head and the foot of a page. The head's line gives way to the document's own header.
struct RunningTexts {
    RunningLine Header;
    RunningLine Footer;
};

/// A track of the open document on pages of the size that Page says. The track is laid out once for all its pages, and
/// anew when something else was laid out between two of them.
class PrintedTrack {
public:
    explicit PrintedTrack(int track);

    int Pages() const { return count.LastPage + 1; }
    /// Paints a page, from 0. Leaves the open view's layout due for a full pass. Raises "Overflow" as DrawDocument.
    void Draw(Picture& picture, int page, const RunningTexts* texts = nullptr);

private:
    void LayOut();

    int track;
    PageCount count;
    std::optional<std::uint64_t> pass;  ///< after which the bars stood as these pages have them
    std::optional<RowLook> look;        ///< none until measured
};

/// Pages of a track when it is painted by DrawPage, at least 1.
int CountPages(int track);
/// Paints one page of the track by itself, for a picture file. The size is that of Page.
void DrawPage(Picture& picture, int track, int page);

}  // namespace Quillon::Drawing
