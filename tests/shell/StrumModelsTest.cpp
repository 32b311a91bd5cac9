// The models of the dialogs for the note and the strum under the cursor.
#include <cmath>

#include "core/mod_Common.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_Undo.h"
#include "exchange/JsonDocument.h"
#include "platform/FileSystem.h"
#include "shell/ChordModel.h"
#include "shell/EffectCommands.h"
#include "shell/EffectModels.h"
#include "shell/NoteModels.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

class StrumModelsTest : public ShellTest {
protected:
    StrumModelsTest() {
        Shell::Start("");
        EffectsChosen = {};
        Note().Fret = "7";
        Open.FileChanged = false;
    }
    static Core::Note& Note() { return Core::EditStrum(0, 0, 0).Notes.Edit(Open.CurString); }
    static Core::Strum& Strum() { return Core::EditStrum(0, 0, 0); }
    /// What opening a dialog and pressing OK does.
    template <class Model>
    static bool Accept(const std::function<void(Model&)>& edit = {}) {
        Model model;
        model.Load();
        if (edit) edit(model);
        EXPECT_EQ(model.Validate(), "");
        return model.Apply();
    }
    template <class Model>
    static std::string_view Complaint(const std::function<void(Model&)>& edit) {
        Model model;
        model.Load();
        edit(model);
        return model.Validate();
    }
    static std::string Points(const std::vector<double>& points) {
        std::string text;
        for (const double point : points) text += (text.empty() ? "" : " ") + Core::FormatDouble(point);
        return text;
    }
};

TEST_F(StrumModelsTest, StylesAreTheCurvesOfTheSongsThatExist) {
    struct {
        int Style, Amount, Pace;
        const char* Points;
    } const bends[] = {
        {0, 3, 0, "0 1.07 2.13 3.2 4.27 5.33 6.4 7.47 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8"},
        {0, 0, 0, "0 0.27 0.53 0.8 1.07 1.33 1.6 1.87 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2 2"},
        {1, 3, 0, "0 1.28 2.56 3.84 5.12 6.4 7.68 8 8 8 8 8 8 8 7.68 6.4 5.12 3.84 2.56 1.28 0 0 0 0 0 0"},
        {2, 3, 0, "8 8 8 8 8 8 8 8 8 8 8 8 8 7.47 6.4 5.33 4.27 3.2 2.13 1.07 0 0 0 0 0 0"},
        {3, 11, 0, "24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24 24"},
        {0, 3, 1, "0 2.13 4.27 6.4 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8 8"},
    };
    for (const auto& row : bends) {
        BendModel model;
        model.Load();
        model.Style = static_cast<std::int16_t>(row.Style);
        model.Amount = static_cast<std::int16_t>(row.Amount);
        model.Pace = static_cast<std::int16_t>(row.Pace);
        model.Reshape();
        EXPECT_EQ(Points(model.Drawn.Points), row.Points);
    }
    struct {
        int Style, Range, Length;
        const char* Points;
    } const dips[] = {
        {0, 0, 0,
         "0 -0.48 -0.95 -1.43 -1.9 -2.38 -2.86 -3.33 -3.81 -3.71 -3.24 -2.76 -2.29 -1.81 -1.33 -0.86 -0.38 0 0 0 0 0 0 "
         "0 0"},
        {1, 1, 0,
         "0 0 0 0 0 -0.08 -0.5 -0.92 -1.33 -1.75 -2.17 -2.58 -3 -3.42 -3.83 -4.25 -4.67 -5.08 -5.5 -5.92 -6.33 -6.75 "
         "-7.17 -7.58 -8"},
        {3, 1, 0, "-8 -7.17 -6.33 -5.5 -4.67 -3.83 -3 -2.17 -1.33 -0.5 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0"},
    };
    for (const auto& row : dips) {
        TremBarModel model;
        model.Load();
        model.Style = static_cast<std::int16_t>(row.Style);
        model.Range = static_cast<std::int16_t>(row.Range);
        model.Length = static_cast<std::int16_t>(row.Length);
        model.Reshape();
        EXPECT_EQ(Points(model.Drawn.Points), row.Points);
    }
}

TEST_F(StrumModelsTest, EveryEffectOfTheExamplesOpensAndIsAcceptedUnchanged) {
    int seen = 0, changed = 0, unknown = 0;
    const auto accept = [&]<class Model>(bool there, Model model) {
        if (!there) return;
        ++seen;
        model.Load();
        if constexpr (requires { Model::ByHand(0); }) unknown += Model::ByHand(model.Style);
        changed += model.Apply();
    };
    for (const char* song : {"seven-gestures.qlm", "back-porch-blues.qlm", "mountain-king.qlm", "fiddle-set.qlm"}) {
        ASSERT_TRUE(OpenFileByEnding(std::filesystem::path(QUILLON_SOURCE_DIR) / "examples" / song));
        const Core::TabFile before = Open.TabFile;
        for (Open.CurTrack = 0; Open.CurTrack < before.Tracks.Count(); ++Open.CurTrack) {
            for (Open.CurBar = 0; Open.CurBar < before.BarInfos.Count(); ++Open.CurBar) {
                const auto& strums = before.Tracks[Open.CurTrack].Bars[Open.CurBar].Strums();
                for (Open.CurStrum = 0; Open.CurStrum < strums.Count(); ++Open.CurStrum) {
                    const Core::Strum& strum = strums[Open.CurStrum];
                    Open.CurString = 0;
                    accept(strum.HasChord, ChordModel());
                    accept(strum.HasTrem, TremBarModel());
                    for (; Open.CurString < Core::StringCount; ++Open.CurString) {
                        const Core::Note& note = strum.Notes[Open.CurString];
                        accept(note.HasBend, BendModel());
                        accept(note.HasGrace, GraceModel());
                        accept(note.HasTrill, TrillModel());
                        accept(!note.Fret.empty(), NoteModel());
                    }
                }
            }
        }
        EXPECT_TRUE(Open.TabFile == before) << song;
    }
    EXPECT_EQ(changed, 0);
    EXPECT_EQ(unknown, 0) << "curves that no style draws";
    EXPECT_GT(seen, 1000);
}

TEST_F(StrumModelsTest, ADrawnCurveGoesToTheNoteAndComesBackAsDrawn) {
    EXPECT_TRUE(Accept<BendModel>([](BendModel& model) {
        model.Drawn.Stroke(0, 0, 10, 10.2);
        model.Drawn.Stroke(10, 10.2, 25, 99);
        model.TakeDrawn();
    }));
    EXPECT_TRUE(Note().HasBend);
    EXPECT_EQ(Note().BendPoints.Read()[5], 5.1);
    EXPECT_EQ(Note().BendPoints.Read()[10], 10) << "near a quarter of a tone it is just that";
    EXPECT_EQ(Note().BendPoints.Read()[25], 24) << "kept within the grid";
    EXPECT_TRUE(Open.FileChanged);
    EXPECT_FALSE(Accept<BendModel>([](BendModel& model) {
        EXPECT_TRUE(BendModel::ByHand(model.Style));
        EXPECT_EQ(model.Amount, 11);
    }));
    // The range of a drawn dip stretches the curve.
    EXPECT_TRUE(Accept<TremBarModel>([](TremBarModel& model) {
        model.Drawn.Stroke(0, -4, 24, 4);
        model.TakeDrawn();
        model.Range = 11;
        model.Reshape();
    }));
    EXPECT_EQ(Strum().TremPoints.Read()[0], -48);
    EXPECT_EQ(Strum().TremRange, "6");
    // The last choice is where the next note begins, and removing takes the effect alone.
    EXPECT_TRUE(Accept<TremBarModel>([](TremBarModel& model) { model.Remove = true; }));
    EXPECT_FALSE(Strum().HasTrem);
    Open.CurString = 2;
    Note().Fret = "5";
    EXPECT_TRUE(Accept<BendModel>([](BendModel& model) {
        model.Style = 1;
        model.Amount = 1;
        model.Reshape();
    }));
    Open.CurString = 3;
    Note().Fret = "5";
    EXPECT_TRUE(Accept<BendModel>([](BendModel& model) { EXPECT_EQ(model.Style * 10 + model.Amount, 11); }));
    EXPECT_EQ(Note().BendStyle, 1);
}

TEST_F(StrumModelsTest, MarksTextsAndGraceNotesReachTheNote) {
    EXPECT_TRUE(Accept<GraceModel>([](GraceModel& model) {
        EXPECT_EQ(model.Fret, "5") << "two below the note";
        model.Fret = " X";
        model.Dynamic = 0;
        model.Duration = 2;
    }));
    EXPECT_TRUE(Note().HasGrace);
    EXPECT_EQ(Note().GraceFret, "x");
    EXPECT_EQ(Note().GraceDynamic, 3);
    EXPECT_TRUE(Accept<TrillModel>([](TrillModel& model) { EXPECT_EQ(model.Fret, "9"); }));
    EXPECT_EQ(Note().TrillFret, 9);
    EXPECT_TRUE(Accept<NoteModel>([](NoteModel& model) {
        EXPECT_FALSE(model.Exists());
        model.Technique = 8;
        model.Harmonic = Core::TappedHarmonic;
        model.Dynamic = 7;
        model.LeftFinger = 2;
        model.Tied = true;
    }));
    EXPECT_EQ(Note().Technique, Core::SlideIntoDown) << "its code is the larger one";
    EXPECT_EQ(Note().Dynamic, 7);
    EXPECT_TRUE(Accept<NoteModel>([](NoteModel& model) { model.Remove = true; }));
    EXPECT_TRUE(Note().HasGrace && !Note().Tied && Note().Harmonic == 0);
    EXPECT_TRUE(Accept<TextModel>([](TextModel& model) { model.Text = "Verse"; }));
    EXPECT_EQ(Strum().Text, "Verse");
}

TEST_F(StrumModelsTest, AChordTakesTheFretsOfTheBeatAndWritesThem) {
    Open.TabFile.Tracks[0].Tuning[5] = -2;
    Note().LeftFinger = 4;
    EXPECT_EQ(Complaint<ChordModel>([](ChordModel&) {}), "str_ChordEmpty") << "one note is no chord";
    Strum().Notes.Edit(1).Fret = "8";
    EXPECT_TRUE(Accept<ChordModel>([](ChordModel& model) {
        EXPECT_EQ(model.Frets[0] + model.Fingers[0] + model.Frets[1] + model.Frets[2] + model.Frets[6], "738x");
        EXPECT_EQ(model.OpenNote(5), "D2");
        model.Name = " D5 ";
        model.Frets = {"x", "X", "7", "7", "5", "", ""};
        model.Fingers = {"", "", "4", "3", "1", "", ""};
        model.WriteFrets = true;
    }));
    const Core::Strum& strum = Strum();
    EXPECT_EQ(strum.ChordName, "D5");
    EXPECT_EQ(strum.ChordFrets.Read()[1], "x");
    EXPECT_EQ(strum.ChordValueA, 5) << "the chart begins there";
    EXPECT_EQ(strum.ChordValueB, 6);
    EXPECT_EQ(strum.ChordMarks.Read()[5], 38) << "the symbol sounds in the track's tuning";
    EXPECT_EQ(strum.Notes[0].Fret + strum.Notes[1].Fret + "|" + strum.Notes[2].Fret + strum.Notes[4].Fret, "|75");
    EXPECT_TRUE(Accept<ChordModel>([](ChordModel& model) { model.Remove = true; }));
    EXPECT_FALSE(Strum().HasChord);
    EXPECT_TRUE(Strum().ChordFrets.IsDefault());
}

TEST_F(StrumModelsTest, BadInputIsNamed) {
    const auto bend = [](BendModel& model) { model.Drawn.Stroke(0, 0, 25, 0.2); };
    EXPECT_EQ(Complaint<BendModel>(bend), "str_CurveFlat");
    for (const char* fret : {"", "30", "-1", "y", "1a"}) {
        EXPECT_EQ(Complaint<GraceModel>([&](GraceModel& model) { model.Fret = fret; }), "str_GraceFretWrong") << fret;
        EXPECT_EQ(Complaint<TrillModel>([&](TrillModel& model) { model.Fret = fret; }), "str_TrillFretWrong") << fret;
    }
    EXPECT_EQ(Complaint<TrillModel>([](TrillModel& model) { model.Fret = "7"; }), "str_TrillFretSame");
    for (const char* text : {"a > b", "swell <"}) {
        EXPECT_EQ(Complaint<TextModel>([&](TextModel& model) { model.Text = text; }), "str_TextReserved") << text;
        EXPECT_EQ(Complaint<ChordModel>([&](ChordModel& model) { model.Name = text; }), "str_TextReserved") << text;
    }
    EXPECT_EQ(Complaint<ChordModel>([](ChordModel& model) { model.Frets[3] = "30"; }), "str_ChordFretWrong");
    EXPECT_EQ(Complaint<ChordModel>([](ChordModel& model) { model.Fingers[3] = "5"; }), "str_ChordFingerWrong");
}

TEST_F(StrumModelsTest, TheirKeysAreStepsOfUndoAndTheMenuIsNone) {
    struct {
        int Key, Shift;
        void (*Menu)();
        bool (*Has)();
    } const rows[] = {
        {'B', 0, mnuNoteEffectsBend_Click, [] { return Note().HasBend; }},
        {'C', 0, mnuChordChord_Click, [] { return Strum().HasChord; }},
        {'T', 1, mnuChordText_Click, [] { return !Strum().Text.empty(); }},
    };
    bool accepts = false;
    Window().On<BendModel>([&](BendModel&) { return accepts; });
    Window().On<ChordModel>([&](ChordModel& model) {
        model.Name = "Am";
        return accepts;
    });
    Window().On<TextModel>([&](TextModel& model) {
        model.Text = "here";
        return accepts;
    });
    for (const auto& row : rows) {
        accepts = false;
        Editing::picDocument_KeyDown(row.Key, row.Shift);
        EXPECT_FALSE(row.Has() || Editing::CanUndo(Editing::Undone) || Open.FileChanged) << row.Key;
        accepts = true;
        Editing::picDocument_KeyDown(row.Key, row.Shift);
        EXPECT_TRUE(row.Has() && Editing::CanUndo(Editing::Undone) && Open.FileChanged) << row.Key;
        Editing::picDocument_KeyDown('Z', 0);
        EXPECT_FALSE(row.Has() || Editing::CanUndo(Editing::Undone)) << row.Key;
        row.Menu();
        EXPECT_TRUE(row.Has()) << row.Key;
        EXPECT_FALSE(Editing::CanUndo(Editing::Undone)) << row.Key;
        Open.FileChanged = false;
    }
    Editing::picDocument_KeyDown('B', 0);
    EXPECT_FALSE(Note().HasBend) << "B on a bent note takes the bend";
}

}  // namespace
}  // namespace Quillon::Shell
