// The dialogs of text tabs through their windows.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>

#include "core/mod_TabFileManipulation.h"
#include "forms/ntne_frmASCIIImport.h"
#include "shell/AsciiImportModel.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;
using Shell::AsciiImportModel;

class ImportDialogTest : public WindowTest {
protected:
    /// The dialog over a tab on the disk, shown but not run.
    std::unique_ptr<ntne_frmASCIIImport> DialogOf(AsciiImportModel& model) {
        Testing::Spill(folder / "a.txt",
                       "e|-0-2-3-5-|\nB|---------|\nG|---------|\nD|---------|\nA|---------|\nE|-3-------|\n");
        model.Load(AsciiImportModel::Source::File);
        EXPECT_TRUE(model.ChooseFile(folder / "a.txt"));
        return std::make_unique<ntne_frmASCIIImport>(model, window.get());
    }
};

TEST_F(ImportDialogTest, BothReadersAreComparedAndTheChosenOneImports) {
    Start();
    AsciiImportModel model;
    const auto dialog = DialogOf(model);
    dialog->show();
    auto& counts = In<QTableWidget>(*dialog, "lstCounts");
    constexpr int keptRow = 4;
    EXPECT_TRUE(In<QRadioButton>(*dialog, "optClassic").isChecked());
    EXPECT_EQ(counts.item(keptRow, AsciiImportModel::Classic)->text(), "0");
    EXPECT_EQ(counts.item(keptRow, AsciiImportModel::Other)->text(), "5");
    EXPECT_TRUE(In<QPlainTextEdit>(*dialog, "txtRemarks").toPlainText().contains("no two empty lines"));
    In<QRadioButton>(*dialog, "optOther").click();
    EXPECT_EQ(In<QPlainTextEdit>(*dialog, "txtRemarks").toPlainText(), "Nothing is left out.");
    EXPECT_TRUE(In<QLineEdit>(*dialog, "txtTiming").isReadOnly());
    In<QCheckBox>(*dialog, "chkEnforceTiming").setChecked(true);
    EXPECT_FALSE(In<QLineEdit>(*dialog, "txtTiming").isReadOnly());
    In<QComboBox>(*dialog, "cmbLen").setEditText("8th Note");
    EXPECT_EQ(model.Dash, 3);
    box.Answers.assign(3, Answer::No);
    In<QPushButton>(*dialog, "Command2").click();
    EXPECT_TRUE(dialog->isVisible());
    box.Answers.assign(3, Answer::Yes);
    In<QPushButton>(*dialog, "Command2").click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(Core::ReadStrum(0, 0, 0).Notes[5].Fret, "3");
    WithDialog("mnuViewImportReport", [](QDialog& report) {
        EXPECT_TRUE(In<QPlainTextEdit>(report, "txtReport").toPlainText().contains("Notes kept: 5"));
    });
}

TEST_F(ImportDialogTest, AnExportShowsWhatItWrites) {
    Start("back-porch-blues.qlm");
    WithDialog("mnuFileExportASCII", [](QDialog& dialog) {
        auto& sample = In<QPlainTextEdit>(dialog, "txtSample");
        EXPECT_TRUE(sample.toPlainText().startsWith("BACK PORCH BLUES"));
        const int before = sample.blockCount();
        In<QSpinBox>(dialog, "vbMaxLine").setValue(1);
        EXPECT_GT(sample.blockCount(), before);
        In<QCheckBox>(dialog, "chkWarning").setChecked(true);
        EXPECT_TRUE(sample.toPlainText().startsWith("####"));
    });
}

}  // namespace
}  // namespace Quillon::Forms
