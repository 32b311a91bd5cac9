#include "drawing/LyricWords.h"

#include <gtest/gtest.h>

namespace Quillon::Drawing {
namespace {

LyricLine WordsAt(double step, const std::vector<double>& widths) {
    constexpr double least = 20;
    LyricLine line;
    for (const double width : widths) {
        LyricWord word;
        word.Column = step * static_cast<double>(line.size());
        word.Width = width;
        word.Least = width > 2 * least ? least : width;
        line.push_back(word);
    }
    return line;
}

TEST(LyricWords, AreMovedThenCutAndNeverMeet) {
    const struct {
        const char* Name;
        double Step, Right;
        std::vector<double> Widths;
        bool Cut, Placed;
        std::vector<double> Left, Shown;
    } rows[] = {
        {"room for all", 30, 200, {20, 20, 20}, false, true, {0, 30, 60}, {20, 20, 20}},
        {"a long one pushes both ways", 30, 200, {20, 39, 20}, false, true, {0, 24, 66}, {20, 39, 20}},
        {"the last keeps inside", 30, 75, {20, 20, 20}, false, true, {0, 30, 55}, {20, 20, 20}},
        {"too long to be moved", 30, 200, {20, 100, 20}, false, false, {}, {}},
        {"cut as far as needed, the short ones whole", 30, 200, {20, 100, 20}, true, true, {}, {20, 44.8, 20}},
        {"no room at all", 10, 50, {20, 20, 20, 20}, true, false, {}, {20, 20, 20, 20}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        LyricLine line = WordsAt(row.Step, row.Widths);
        EXPECT_EQ(PlaceWords(line, {-10, row.Right}, 1, row.Cut), row.Placed);
        for (std::size_t i = 0; i < row.Left.size(); ++i) EXPECT_NEAR(line[i].Left, row.Left[i], 0.01);
        for (std::size_t i = 0; i < row.Shown.size(); ++i) EXPECT_NEAR(line[i].Shown, row.Shown[i], 1);
        for (std::size_t i = 1; i < line.size(); ++i) {
            EXPECT_GE(line[i].Left, line[i - 1].Left + line[i - 1].Shown + 2.9);
        }
    }
    LyricLine half = WordsAt(30, {20, 40, 20});
    EXPECT_TRUE(PlaceWords(half, {}, 0.5, false)) << "all at half their size";
    EXPECT_EQ(half[1].Left, 30);
}

}  // namespace
}  // namespace Quillon::Drawing
