// The dialogs for the note and the strum under the cursor, as a person works on them.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <map>

#include "core/mod_TabFileManipulation.h"
#include "forms/picBendCurve.h"
#include "forms/picPreview.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;

class StrumDialogTest : public WindowTest {
protected:
    void OnANote() {
        Start();
        Core::EditStrum(0, 0, 0).Notes.Edit(0).Fret = "7";
        window->DrawDocument();
        window->UpdateCommands();
        Settle();
    }
    static const Core::Note& Note() { return Core::ReadStrum(0, 0, 0).Notes[0]; }
    static QImage PreviewOf(QDialog& dialog) { return In<picPreview>(dialog, "picPreview").grab().toImage(); }
    static void Click(QDialog& dialog, const char* button) { In<QPushButton>(dialog, button).click(); }
};

constexpr const char* Commands[] = {"mnuNoteEffectsBend", "mnuNoteEffectsGrace", "mnuNoteEffectsTrill",
                                    "mnuNoteProperties",  "mnuChordTremBar",     "mnuChordChord",
                                    "mnuChordText"};

TEST_F(StrumDialogTest, ACurveDrawnWithTheMouseIsSeenAndWritten) {
    OnANote();
    WithDialog("mnuNoteEffectsBend", [](QDialog& dialog) {
        auto& curve = In<picBendCurve>(dialog, "picBendCurve");
        const QImage before = PreviewOf(dialog);
        QTest::mousePress(&curve, Qt::LeftButton, {}, curve.PlaceOf(0, 0).toPoint());
        QTest::mouseMove(&curve, curve.PlaceOf(10, 20).toPoint());
        QTest::mouseMove(&curve, curve.PlaceOf(25, 20).toPoint());
        QTest::mouseRelease(&curve, Qt::LeftButton, {}, curve.PlaceOf(25, 20).toPoint());
        EXPECT_EQ(In<QComboBox>(dialog, "cmbAmount").currentText(), "2½");
        EXPECT_FALSE(In<QComboBox>(dialog, "cmbAmount").isEnabled()) << "drawn by hand";
        EXPECT_NE(PreviewOf(dialog), before);
        // On from there with the keys: the point under the mouse was the last.
        QTest::keyClick(&curve, Qt::Key_Left);
        QTest::keyClick(&curve, Qt::Key_Up);
        EXPECT_EQ(curve.accessibleDescription(), "Point 25 of 26: 2¾");
        QTest::keyClick(&curve, Qt::Key_Return);
    });
    EXPECT_TRUE(Note().HasBend);
    EXPECT_NEAR(Note().BendPoints.Read()[5], 10, 0.3);
    EXPECT_EQ(Note().BendPoints.Read()[20], 20);
    EXPECT_EQ(Note().BendPoints.Read()[24], 22);
    EXPECT_TRUE(window->ActionOf("mnuNoteEffectsBend")->isChecked());
    WithDialog("mnuNoteEffectsBend", [](QDialog& dialog) { Click(dialog, "cmdRemove"); });
    EXPECT_FALSE(Note().HasBend);
}

TEST_F(StrumDialogTest, EscLeavesAllAsItWasAndEnterWritesWhatTheDialogShows) {
    OnANote();
    const Core::TabFile before = Open.TabFile;
    for (const char* command : Commands) {
        WithDialog(command, [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    }
    EXPECT_TRUE(Open.TabFile == before);
    WithDialog("mnuChordTremBar", [](QDialog& dialog) {
        In<QComboBox>(dialog, "cmbRange").setCurrentIndex(3);
        In<QComboBox>(dialog, "cmbStyle").setCurrentIndex(1);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).TremRange, "2");
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).TremPoints.Read()[24], -16);
    bool told = false;
    WithDialog("mnuNoteEffectsGrace", [&](QDialog& dialog) {
        auto& fret = In<QLineEdit>(dialog, "txtFret");
        fret.selectAll();
        QTest::keyClicks(&fret, "30");
        QTest::keyClick(&dialog, Qt::Key_Return);
        told = dialog.isVisible() && !In<QLabel>(dialog, "lblComplaint").text().isEmpty();
        fret.selectAll();
        QTest::keyClicks(&fret, "6");
        EXPECT_TRUE(In<QLabel>(dialog, "lblComplaint").text().isEmpty()) << "gone with the next letter";
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_TRUE(told);
    EXPECT_EQ(Note().GraceFret, "6");
    Core::EditStrum(0, 0, 0).Notes.Edit(1).Fret = "8";
    WithDialog("mnuChordChord", [](QDialog& dialog) {
        EXPECT_EQ(In<QLineEdit>(dialog, "txtFret0").text(), "7") << "of the beat";
        QTest::keyClicks(&In<QLineEdit>(dialog, "txtName"), "Em");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).ChordName, "Em");
}

TEST_F(StrumDialogTest, ListenPlaysWhatIsShownAndTheDialogsEndSilencesIt) {
    OnANote();
    std::vector<SentMessage> sent;
    WithDialog("mnuNoteEffectsBend", [&](QDialog& dialog) {
        midi.Receive = [&](const SentMessage& message) { sent.push_back(message); };
        Click(dialog, "cmdListen");
        clock.Step(clock.Now() + 1000);
    });
    const auto isNote = [](const SentMessage& message) { return message.Status == 0x91 && message.Data1 == 71; };
    EXPECT_EQ(std::ranges::count_if(sent, isNote), 1);
    EXPECT_EQ(clock.Running(), 0U);
    EXPECT_FALSE(Note().HasBend);
    midi.Receive = {};
}

/// Letters that lead to a field or press a button.
TEST_F(StrumDialogTest, KeyboardLettersAreUniqueInBothLanguages) {
    OnANote();
    Core::Strum& strum = Core::EditStrum(0, 0, 0);
    Core::Note& note = strum.Notes.Edit(0);
    note.HasBend = note.HasGrace = note.HasTrill = note.Ghost = strum.HasTrem = strum.HasChord = true;
    strum.Text = "so that all can be removed";
    for (const char* language : {"English", "German"}) {
        Core::ChooseLanguage(files, folder.Path(), language);
        for (const char* command : Commands) {
            WithDialog(command, [&](QDialog& dialog) {
                std::map<QChar, QString> letters;
                const auto take = [&](const QString& text) {
                    const auto at = text.indexOf('&');
                    if (at < 0) return;
                    QString& other = letters[text[at + 1].toLower()];
                    EXPECT_TRUE(other.isEmpty())
                        << language << " " << command << ": " << text.toStdString() << ", " << other.toStdString();
                    other = text;
                };
                for (const auto* label : dialog.findChildren<QLabel*>()) {
                    if (label->buddy()) take(label->text());
                }
                for (const auto* button : dialog.findChildren<QAbstractButton*>()) take(button->text());
                EXPECT_GE(letters.size(), 2U) << command;
            });
        }
    }
}

}  // namespace
}  // namespace Quillon::Forms
