#include "tests/architecture/IncludeRule.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "tests/architecture/Sources.h"
#include "tests/support/Golden.h"

using namespace Quillon::Testing;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

Levels OurLevels() { return ReadLevels(Slurp(SourceDir() / "tests" / "architecture" / "levels.txt")); }

}  // namespace

TEST(IncludeRule, EveryFileOfSrcIncludesDownwardsOnly) {
    const Levels levels = OurLevels();
    EXPECT_THAT(levels.Faults, IsEmpty());
    std::set<std::string> known;
    for (const auto& path : SourcesBelow("src")) known.insert(path.lexically_relative(SourceDir() / "src").string());
    ASSERT_FALSE(known.empty());
    for (const std::string& file : known) {
        EXPECT_THAT(CheckIncludes(levels, known, file, Slurp(SourceDir() / "src" / file)), IsEmpty());
    }
    for (const std::string& folder : levels.Folders) {
        const auto isInIt = [&](const std::string& file) { return levels.RowOf(file) == folder; };
        EXPECT_TRUE(std::ranges::any_of(known, isInIt)) << folder << " has a row and no file";
    }
}

TEST(IncludeRule, LibrariesLinkJustTheirRow) {
    EXPECT_THAT(CheckLinks(OurLevels(), Slurp(SourceDir() / "src" / "CMakeLists.txt")), IsEmpty());
}

TEST(IncludeRule, BreachesAreFound) {
    const Levels levels = ReadLevels("low :\nlow/qt : low Qt\nmid : low\ncli : @mid @low/qt\n");
    const std::set<std::string> known = {"low/A.h", "low/qt/Q.h", "mid/B.h"};
    const auto check = [&](const char* file, const char* text) { return CheckIncludes(levels, known, file, text); };
    EXPECT_THAT(check("mid/B.cpp", "#include \"mid/B.h\"\n#include \"low/A.h\"\n#include <vector>\n"), IsEmpty());
    EXPECT_THAT(check("low/A.cpp", "\n#include \"mid/B.h\"\n"), ElementsAre("low/A.cpp:2 includes mid/B.h"));
    EXPECT_THAT(check("low/A.cpp", "#include \"low/qt/Q.h\"\n"), ElementsAre("low/A.cpp:1 includes low/qt/Q.h"));
    EXPECT_THAT(check("low/qt/Q.cpp", "#include <QImage>\n#include \"low/A.h\"\n#include \"Q.moc\"\n"), IsEmpty());
    EXPECT_THAT(check("mid/B.cpp", "  # include <QtGui/qpainter.h>\n"),
                ElementsAre("mid/B.cpp:1 includes QtGui/qpainter.h of Qt"));
    EXPECT_THAT(check("mid/B.cpp", "#include \"B.h\"\n"),
                ElementsAre("mid/B.cpp:1 includes B.h, which is no file seen from src/"));
    EXPECT_THAT(check("cli/Pictures.cpp", "#include <QImage>\n"), IsEmpty());
    EXPECT_THAT(check("cli/Dump.cpp", "#include <QImage>\n"), ElementsAre("cli/Dump.cpp:1 includes QImage of Qt"));
    EXPECT_THAT(check("new/C.cpp", ""), ElementsAre("new/C.cpp stands in a folder without a row"));

    EXPECT_THAT(ReadLevels("low : mid\nmid : @low\nlow :\n").Faults,
                ElementsAre("low names mid, which is no row above it", "not a row of its own: low :"));
    EXPECT_THAT(CheckLinks(levels,
                           "quillon_folder(low LINKS quillon_mid)\nquillon_folder(mid LINKS quillon_low)\n"
                           "quillon_folder(qt DIR low/qt QT LINKS quillon_low Qt6::Gui)\n"),
                ElementsAre("low links mid"));
}
