#include "platform/portable/IniStore.h"

#include <gtest/gtest.h>

#include "platform/portable/PosixFiles.h"
#include "tests/support/Golden.h"

namespace Quillon {
namespace {

using Testing::ScratchFolder;
using Testing::Slurp;
using Testing::Spill;

TEST(IniStore, AnyTextSurvives) {
    ScratchFolder folder;
    PosixFiles files;
    std::string every;
    for (int c = 0; c < 256; ++c) every += static_cast<char>(c);
    const std::vector<std::string> texts = {"", " ", "plain", "two\r\nlines", "[x]", "; a=b", "\\x41", every, "ü ♭"};
    {
        IniStore store(files, folder / "settings.ini");
        for (const std::string& text : texts) store.Save("values", "of " + text, text);
        for (const std::string& text : texts) store.Save("section " + text, text + "key", "v");
        store.Flush();
    }
    IniStore store(files, folder / "settings.ini");
    for (const std::string& text : texts) {
        EXPECT_EQ(store.Find("values", "of " + text), text);
        EXPECT_EQ(store.Find("section " + text, text + "key"), "v");
    }
    EXPECT_EQ(store.Keys("values").size(), texts.size());
    EXPECT_EQ(store.Keys("values")[2], "of plain") << "in the order of saving";
}

TEST(IniStore, AFileMendedByHandIsReadAndDamagedLinesAreSkipped) {
    const SettingsSections read = ParseIni(
        "\xEF\xBB\xBFstray=1\r\n"
        "; remark\r\n[Window]\r\nLeft=10\r\nno equals\nTop=\\xZZ\nWidth=\\x4\nName = spaced \nLeft=11\n"
        "[broken\nLost=1\n[Other]\nTail=\\x41");
    EXPECT_EQ(FormatIni(read), "[Other]\nTail=A\n[Window]\nLeft=11\nName = spaced \n");
}

TEST(IniStore, TwoProgramsKeepEachOthersChanges) {
    ScratchFolder folder;
    PosixFiles files;
    PosixFiles otherFiles;
    Spill(folder / "settings.ini", "[S]\nboth=0\ngone=1\n");
    IniStore one(files, folder / "settings.ini");
    IniStore two(otherFiles, folder / "settings.ini");
    one.Save("S", "one", "1");
    one.Delete("S", "gone");
    two.Save("S", "two", "2");
    two.Save("S", "both", "2");
    one.Flush();
    two.Flush();
    EXPECT_EQ(Slurp(folder / "settings.ini"), "[S]\nboth=2\none=1\ntwo=2\n");
    EXPECT_EQ(two.Find("S", "one"), "1");

    Spill(folder / "settings.ini", "untouched");
    two.Save("S", "both", "2");
    two.Flush();
    EXPECT_EQ(Slurp(folder / "settings.ini"), "untouched") << "nothing changed, nothing is written";
}

}  // namespace
}  // namespace Quillon
