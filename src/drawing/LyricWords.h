// Where the words of lyric lines stand under a row.
#pragma once

#include <limits>
#include <string>
#include <vector>

namespace Quillon::Drawing {

/// A word, or a syllable of one, under a row.
struct LyricWord {
    int Bar = 0;
    double Column = 0;  ///< where it begins when nothing is in its way
    std::string Text;
    double Width = 0;  ///< of the text, whole
    double Least = 0;  ///< of its beginning with an ellipsis; Width for a word that is too short to be cut
    double Left = 0;   ///< where it begins
    double Shown = 0;  ///< the width that it gets
};
using LyricLine = std::vector<LyricWord>;

/// What the words of a row may use of the paper, in the layout's coordinates.
struct LyricRoom {
    double Left = std::numeric_limits<double>::lowest();
    double Right = std::numeric_limits<double>::max();
};

/// Places a line's words as near to their columns as they can stand without meeting, all of their widths times `scale`.
/// With `cut`, long words are shown in part where they would push others too far aside. True when no word stands far
/// from its column and all stand in the room; else those at the end reach out of it.
bool PlaceWords(LyricLine& line, const LyricRoom& room, double scale, bool cut);

}  // namespace Quillon::Drawing
