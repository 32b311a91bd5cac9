// A little of a document on paper of its own: one bar, or a beat with what stands around it, as a dialog shows what it
// is about to change.
//
// It is laid out and painted by the page's own code on a copy of the document; the open document's layout, scroll and
// view stay as they are.
#pragma once

#include <vector>

#include "core/mod_TabFileStructure.h"
#include "platform/Picture.h"

namespace Quillon::Drawing {

/// What of a document is shown. Indices count from 0; one outside the document shows nothing.
struct ExcerptOf {
    int Track = 0;
    int Bar = 0;
    int Strum = -1;          ///< the beat that stands in the middle, on a tint; -1: the bar as a whole
    bool TabAlone = false;   ///< without the staves, where the track shows its tab: a smaller and nearer picture
    bool Figures = false;    ///< clef and signatures stand in the bar even where the page leaves them out
    bool ChartRoom = false;  ///< room for a chord chart above, whether there is one or not
};

class Excerpt {
public:
    /// A sheet without a bar.
    Excerpt() = default;
    /// Takes a copy of a document with the change in it. Its places no longer belong to any other copy.
    Excerpt(Core::TabFile file, const ExcerptOf& what);
    Excerpt(Excerpt&&) = default;
    Excerpt& operator=(Excerpt&&) = default;
    Excerpt(const Excerpt&) = delete;  // copies would lay each other out
    Excerpt& operator=(const Excerpt&) = delete;

    /// How many times larger than on the page it fits a sheet of so many pixels: at most 2.
    double ScaleFor(double width, double height) const;
    /// Lays out and paints onto a sheet of so many document pixels, that is those of the sheet divided by the scale.
    /// The bars beside the one shown fill what is left of the row. Raises "Overflow" for a bar wider than the layout's
    /// numbers.
    void Draw(Picture& picture, double width, double height) const;

private:
    struct Placed {
        int Left = 0;  ///< of what stands in the middle
        int Right = 0;
    };

    const Core::Track& ItsTrack() const { return file.Tracks[what.Track]; }
    int Above() const;
    int Height() const;
    int Spacing(double width) const;
    Placed LayOut(int spacing, int x, int y) const;

    Core::TabFile file;
    ExcerptOf what;
    std::vector<int> bars;  ///< that may be seen, the one shown among them
};

}  // namespace Quillon::Drawing
