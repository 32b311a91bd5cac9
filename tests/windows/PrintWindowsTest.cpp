// Printing, its preview, and what goes with them.
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPdfWriter>
#include <QPrinter>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>

#include "exchange/PrintJob.h"
#include "platform/qt/PaintedPages.h"
#include "tests/windows/WindowFixture.h"

namespace Quillon::Forms {
namespace {

using Core::Open;
using PrintWindowsTest = WindowTest;

TEST_F(PrintWindowsTest, ThePreviewZoomsAndWalks) {
    Start("mountain-king.qlm");
    WithDialog("mnuFilePrintPreview", [&](QDialog& dialog) {
        dialog.resize(1000, 800);
        QApplication::processEvents();
        auto& zoom = In<QSpinBox>(dialog, "vbZoom");
        auto& pages = In<QAbstractScrollArea>(dialog, "picPages");
        EXPECT_LT(zoom.value(), 100) << "a whole page at first";
        zoom.setValue(200);
        EXPECT_GT(pages.horizontalScrollBar()->maximum(), 0);
        const QString before = In<QLabel>(dialog, "lblPage").text();
        QTest::keyClick(&pages, Qt::Key_PageDown);
        EXPECT_NE(In<QLabel>(dialog, "lblPage").text(), before);
        for (const int percent : {10, 50, 200}) {  // from all pages in view to one
            zoom.setValue(percent);
            QTest::keyClick(&pages, Qt::Key_End);
            const QStringList words = In<QLabel>(dialog, "lblPage").text().split(' ');
            EXPECT_EQ(words[1], words[3]) << percent;  // "Page 2 of 2"
            EXPECT_FALSE(In<QAbstractButton>(dialog, "cmdNextPage").isEnabled());
            QTest::keyClick(&pages, Qt::Key_Home);
            EXPECT_TRUE(In<QLabel>(dialog, "lblPage").text().startsWith("Page 1 "));
        }
        QTest::keyClick(&pages, Qt::Key_0);
        EXPECT_EQ(zoom.value(), 100);
        pages.grab();
    });
    EXPECT_EQ(store.Get("Print", "PreviewZoom"), "100");
}

TEST_F(PrintWindowsTest, OptionsAreKept) {
    Start("mountain-king.qlm");
    WithDialog("mnuFilePrintPreview", [&](QDialog& preview) {
        QTimer::singleShot(0, &preview, [&] {
            auto& asked = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_EQ(asked.objectName(), "ntne_frmPrintOptions");
            In<QRadioButton>(asked, "optAllTracks").setChecked(true);
            In<QComboBox>(asked, "cmbHeaderCenter").setCurrentIndex(static_cast<int>(Exchange::RunningField::Date));
            asked.accept();
        });
        In<QAbstractButton>(preview, "cmdOptions").click();
    });
    EXPECT_EQ(store.Get("Print", "AllTracks"), "1");
    EXPECT_EQ(Exchange::LoadRunningFields(store)[1], Exchange::RunningField::Date);
}

TEST_F(PrintWindowsTest, APrinterOfPaperTakesVectors) {
    Start("greensleeves.qlm");
    const std::filesystem::path file = folder / "printed.pdf";
    Exchange::PrintJob job({});
    {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(QString::fromStdString(file.string()));
        printer->setFullPage(true);
        PaintedPages pages(std::move(printer));
        EXPECT_TRUE(job.Print(pages, Exchange::PagesInOrder(0, job.Pages() - 1)));
    }
    const std::string bytes = Testing::Slurp(file);
    EXPECT_TRUE(bytes.starts_with("%PDF"));
    EXPECT_EQ(bytes.find("/Subtype /Image"), std::string::npos) << "texts and signs must not become pixels";
    EXPECT_NE(bytes.find("/FontFile2"), std::string::npos);
}

TEST_F(PrintWindowsTest, DarkPaperIsForTheScreenAlone) {
    Start("greensleeves.qlm");
    Shell::Program.Theme = 2;
    window->ThemeChanged();
    const auto paper = [&] {
        Settle();
        const QImage shown = window->Document().grab().toImage();
        return shown.pixelColor(shown.width() / 2, 200).lightness();
    };
    EXPECT_GT(paper(), 250) << "white unless it is wanted dark";
    Run("mnuViewDarkPaper");
    EXPECT_LT(paper(), 60);
    Shell::Program.Theme = 1;
    window->ThemeChanged();
    EXPECT_GT(paper(), 250) << "light windows have white paper";
}

}  // namespace
}  // namespace Quillon::Forms
