// Chords that are made, changed, moved, deleted, told as text and printed.
#include <algorithm>
#include <set>

#include "core/mod_TabFileManipulation.h"
#include "library/ChordNaming.h"
#include "platform/headless/PictureLog.h"
#include "tests/shell/ShellFixture.h"
#include "tools/ChordBatch.h"
#include "tools/ChordEditor.h"
#include "tools/ChordManager.h"
#include "tools/ChordSheet.h"

namespace Quillon::Tools {
namespace {

using Core::Open;
using Operation = ChordBatchModel::Operation;

struct QuietView : ChordView {
    void RefreshView() override {}
    void RefreshChosen() override {}
};

class ChordEditingTest : public Shell::ShellTest {
protected:
    ChordEditingTest() {
        Shell::Start("");
        ChordManager_Load(view);
    }
    ~ChordEditingTest() override { ChordManager_Unload(); }

    static bool Has(const std::string& name) { return std::ranges::count(Library::Chords.Names(), name) == 1; }
    static std::string FretsOf(const std::string& name) {
        ChordEditorModel model;
        return model.LoadChord(name) ? model.FretsText() : "";
    }
    static void ChooseAll(const std::string& text) {
        txtSearch_Change(text);
        ChooseAllChords();
    }

    QuietView view;
};

TEST_F(ChordEditingTest, TheBoxTakesClicks) {
    ChordEditorModel model;
    EditorBox box;
    const auto press = [&](int string, int row) {
        const auto place = box.At(box.X(string), box.Y(row));
        ASSERT_TRUE(place);
        EXPECT_EQ(*place, (EditorBox::Place{string, row}));
        model.Press(place->String, place->Row);
    };
    press(5, 2);
    press(4, 1);
    for (const int open : {3, 2, 1}) press(open, -1);
    press(0, 2);
    EXPECT_EQ(model.FretsText(), "3 2 0 0 0 3");
    EXPECT_EQ(model.Names().front(), "G");
    press(0, 2);
    press(1, -1);
    EXPECT_EQ(model.FretsText(), "3 2 0 0 x -") << "a fret is let go, an open string muted";
    model.SetFinger(5, 2);
    model.SetFinger(3, 1);
    EXPECT_EQ(model.Fingers[5], 2);
    EXPECT_EQ(model.Fingers[3], 0) << "no finger lies on an open string";
    for (const auto& [x, y] : {std::pair{2.0, 60.0}, {298.0, 60.0}, {150.0, 269.0}, {150.0, -1.0}}) {
        EXPECT_FALSE(box.At(x, y)) << x << " " << y;
    }
    box.Lefthanded = true;
    EXPECT_EQ(box.At(box.X(5), box.Y(0))->String, 5);
    EXPECT_GT(box.X(5), box.X(0));

    EXPECT_TRUE(model.SetFretsText("x,10,12,12,11,10"));
    EXPECT_EQ(model.Top, 10) << "the box follows the shape";
    EXPECT_TRUE(model.SetFretsText("x32010"));
    EXPECT_EQ(model.FretsText(), "x 3 2 0 1 0");
    EXPECT_EQ(model.Top, 1);
    for (const char* const none : {"", "1 2 3", "x 3 2 0 1 99", "a b c d e f", "1 2 3 4 5 6 7"}) {
        EXPECT_FALSE(model.SetFretsText(none)) << none;
    }
    EXPECT_EQ(model.FretsText(), "x 3 2 0 1 0");
    model.SetStrings(4);
    EXPECT_EQ(model.FretsText(), "2 0 1 0");
    for (const char* const bad : {"", "a/b", " C", "C.", "C?"}) {
        model.Name = bad;
        EXPECT_NE(model.Validate(), "") << bad;
    }
    model.Name = "C";
    EXPECT_EQ(model.Validate(), "");
    model.SetFretsText("xxxx");
    EXPECT_EQ(model.Validate(), "str_ChordNoFrets");
}

TEST_F(ChordEditingTest, ANewChordBeginsWithTheCursorsAndAsksBeforeItReplaces) {
    for (int string = 0; string < 5; ++string) {
        Core::EditStrum(0, 0, 0).Notes.Edit(string).Fret = std::string(1, "02220"[string]);
    }
    run->Window.On<ChordEditorModel>([](ChordEditorModel& model) {
        EXPECT_EQ(model.FretsText(), "x 0 2 2 2 0");
        EXPECT_EQ(model.Name, "A");
        model.Fingers[1] = 3;
        return true;
    });
    mnuAddNewChord_Click();
    EXPECT_TRUE(Has("A"));
    EXPECT_EQ(CurrentChord(), "A");
    EXPECT_EQ(Library::Chords.Find("A")->Fingers[1], 3);

    // A name that another chord has: the dialog stays until the person agrees, or takes another.
    int shown = 0;
    run->Window.On<ChordEditorModel>([&shown](ChordEditorModel& model) {
        model.Name = ++shown == 1 ? "C m7" : "Mine";
        model.SetFretsText("x02210");
        return true;
    });
    const std::string before = FretsOf("C m7");
    run->Box.Answers = {Answer::No};
    mnuAddNewChord_Click();
    EXPECT_EQ(shown, 2);
    EXPECT_NE(Box().Shown.back().find("C m7"), std::string::npos) << "the question names the file";
    EXPECT_EQ(FretsOf("C m7"), before);
    EXPECT_EQ(FretsOf("Mine"), "x 0 2 2 1 0");
    shown = 0;
    run->Box.Answers = {Answer::Yes};
    mnuAddNewChord_Click();
    EXPECT_EQ(FretsOf("C m7"), "x 0 2 2 1 0");

    // The same chord again needs no question.
    const std::size_t questions = Box().Shown.size();
    run->Window.On<ChordEditorModel>([](ChordEditorModel& model) { return model.SetFretsText("x 0 2 2 1 3"); });
    ShowChord("Mine");
    mnuEditChord_Click();
    EXPECT_EQ(FretsOf("Mine"), "x 0 2 2 1 3");
    EXPECT_EQ(Box().Shown.size(), questions);

    // Restoring tells what goes: "A", "Mine", and the changed one.
    run->Box.Answers = {Answer::Yes};
    mnuResetChords_Click();
    EXPECT_NE(Box().Shown.back().find("3 chords in it are your own"), std::string::npos) << Box().Shown.back();
    EXPECT_FALSE(Has("Mine"));
    EXPECT_EQ(FretsOf("C m7"), before);
    EXPECT_EQ(ChordCountText(), "1,555 of 1,555 chords");
}

TEST_F(ChordEditingTest, NamesMoveWithTheirChords) {
    for (const std::string& name : Library::Chords.Names()) {
        Library::ChordTones before, after;
        ASSERT_TRUE(Library::ParseChordSymbol(name, before));
        for (const int by : {1, 5, -2}) {
            const std::string moved = Library::TransposedName(name, by, by < 0);
            ASSERT_TRUE(Library::ParseChordSymbol(moved, after)) << name << " became " << moved;
            EXPECT_EQ(after.Root, (before.Root + by + 12) % 12) << name << " became " << moved;
            EXPECT_EQ(after.Needed.size(), before.Needed.size()) << name << " became " << moved;
        }
    }
    EXPECT_EQ(Library::TransposedName("Bb-Ab (3)", 2), "C-Bb (3)");
    EXPECT_EQ(Library::TransposedName("Fadd9-F2", 1), "F#add9-F#2");
}

TEST_F(ChordEditingTest, ManyAreRenamedTransposedAndDeleted) {
    ChooseAll("G-Gmaj");
    const std::size_t many = ChosenChords().size();
    ASSERT_GT(many, 2U);
    run->Window.On<ChordBatchModel>([](ChordBatchModel& model) {
        model.Find = "G-Gmaj";
        model.Replace = "G-Mine";
        return model.Validate().empty();
    });
    mnuBatchOperations_Click();
    EXPECT_TRUE(Has("G-Mine (2)"));
    EXPECT_FALSE(Has("G-Gmaj (2)"));
    EXPECT_EQ(Library::Chords.Names().size(), 1555U);

    // What can't be named so is told, and nothing is lost.
    ChooseAll("G-Mine");
    ChordBatchModel model;
    model.Load();
    const auto why = [&](const char* find, const char* replace) {
        model.Find = find;
        model.Replace = replace;
        return std::string(model.Plan().back().Why);
    };
    EXPECT_EQ(why("nowhere", "x"), "str_BatchSame");
    EXPECT_EQ(model.Validate(), "str_BatchNothing");
    EXPECT_EQ(why("G-Mine", "a/b"), "str_BatchNoName");
    EXPECT_EQ(why("G-Mine", "A-Amaj"), "str_BatchTaken");
    EXPECT_EQ(why("", "Old "), "");

    ChooseAll("G-Mine");
    run->Window.On<ChordBatchModel>([](ChordBatchModel& each) {
        each.Do = Operation::Transpose;
        each.Semitones = 2;
        return true;
    });
    const std::string shape = FretsOf("G-Mine (2)");
    EXPECT_EQ(shape, "3 2 0 0 0 3");
    mnuBatchOperations_Click();
    EXPECT_EQ(Library::Chords.Names().size(), 1555U + many);
    EXPECT_EQ(FretsOf("A-Mine (2)"), "5 4 2 2 2 5");
    const auto down = Library::TransposedChord(*Library::Chords.Find("G-Mine (2)"), -1);
    ASSERT_TRUE(down);
    EXPECT_EQ(Library::AbsoluteFret(*down, 5), 14) << "below the nut it goes on an octave up";
    EXPECT_FALSE(Library::TransposedChord(Library::MakeChord(6, false, {"x", "x", "x", "x", "x", "x"}), 1));
    EXPECT_FALSE(Library::TransposedChord(Library::MakeChord(6, false, {"0", "24", "x", "x", "x", "x"}), 1));

    // A name that another program took meanwhile by a folder: nothing is lost, and the window comes back.
    ChooseAll("G-Mine");
    const std::vector<std::string> before = ChosenChords();
    std::vector<std::string> shapes;
    for (const std::string& name : before) shapes.push_back(FretsOf(name.c_str()));
    int shown = 0;
    run->Window.On<ChordBatchModel>([&](ChordBatchModel& each) {
        each.Find = "G-Mine";
        each.Replace = "G-Yours";
        std::filesystem::create_directories(Library::Chords.FileOf(each.Plan().back().To) / "full");
        return ++shown == 1;
    });
    mnuBatchOperations_Click();
    EXPECT_EQ(shown, 2);
    EXPECT_EQ(ChosenChords(), before);
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(FretsOf(before[i].c_str()), shapes[i]);
    EXPECT_EQ(Library::Chords.Names().size(), 1555U + many);

    ChooseAll("A-Mine");
    run->Box.Answers = {Answer::No};
    DeleteChosenChords();
    EXPECT_TRUE(Has("A-Mine (2)"));
    run->Box.Answers = {Answer::Yes};
    DeleteChosenChords();
    EXPECT_FALSE(Has("A-Mine (2)"));
    EXPECT_EQ(Library::Chords.Names().size(), 1555U);
}

TEST_F(ChordEditingTest, NoChordIsGoneAtAnyMomentOfARenaming) {
    const char* shapes[] = {"C 7", "G 7", "A m"};
    std::set<std::string> contents;
    ChordBatchModel model;
    for (const char* shape : shapes) {
        model.Names.push_back(
            std::string(model.Names.size() + 1, 'z'));  // the first one's new name is the second one's
        const std::string bytes = Testing::Slurp(Library::Chords.FileOf(shape));
        Testing::Spill(Library::Chords.FileOf(model.Names.back()), bytes);
        contents.insert(bytes);
    }
    ASSERT_EQ(contents.size(), 3U);
    ChordFolderChanged();
    model.Find = "z";
    model.Replace = "zz";
    const auto found = [] {
        std::set<std::string> now;
        for (int length = 1; length <= 6; ++length) {
            const auto file = Library::Chords.FileOf(std::string(static_cast<std::size_t>(length), 'z'));
            if (std::filesystem::exists(file)) now.insert(Testing::Slurp(file));
        }
        return now;
    };
    const int renamed = model.Apply([&](int) {
        EXPECT_EQ(found(), contents);
        return true;
    });
    EXPECT_EQ(renamed, 3);
    EXPECT_EQ(found(), contents);
    EXPECT_EQ(Testing::Slurp(Library::Chords.FileOf("zz")), Testing::Slurp(Library::Chords.FileOf("C 7")));
    EXPECT_FALSE(std::filesystem::exists(Library::Chords.FileOf("z")));
}

TEST_F(ChordEditingTest, ChordsAreToldAsTextAndPrinted) {
    ChooseAll("C m7");
    run->Window.SaveAnswer = folder / "chords.txt";
    run->Window.On<ChordBatchModel>([](ChordBatchModel& model) {
        model.Do = Operation::Export;
        return true;
    });
    mnuBatchOperations_Click();
    EXPECT_EQ(Testing::Slurp(folder / "chords.txt"), Library::ChordsAsText(Library::Chords, ChosenChords()));
    Testing::CheckGolden("library/ChordsAsText.txt", Testing::Slurp(folder / "chords.txt"));

    mnuSearchClear_Click();
    ChooseChord(0, Choose::Only);
    ChordSheetModel sheet;
    sheet.Load();
    EXPECT_EQ(sheet.Names, ChosenChords());
    sheet.TakeAll(true);
    EXPECT_EQ(sheet.Names.size(), 1555U);
    const auto logOf = [&sheet](int page) {
        PictureLog log;
        sheet.Draw(log, page);
        return log.Text();
    };
    EXPECT_GT(sheet.Pages(), 20);
    EXPECT_NE(logOf(0).find("\"A +\""), std::string::npos);
    EXPECT_NE(logOf(sheet.Pages() - 1).find("\"" + sheet.Names.back() + "\""), std::string::npos);
    EXPECT_EQ(logOf(0).find("\"" + sheet.Names.back() + "\""), std::string::npos);
    ChooseAll("C m7");
    bool handed = false;
    run->Window.On<ChordSheetModel>([&handed](ChordSheetModel& model) {
        handed = model.Names == ChosenChords() && model.Pages() == 1;
        return false;
    });
    PrintChord();
    EXPECT_TRUE(handed);
}

}  // namespace
}  // namespace Quillon::Tools
