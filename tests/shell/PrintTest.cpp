#include <cmath>

#include "platform/headless/NoPicture.h"
#include "shell/Commands.h"
#include "shell/DarkPaper.h"
#include "shell/PrintPreview.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Core::Open;

struct Sheets : PageTarget {
    explicit Sheets(int& taken) : Taken(taken) {}
    Picture& BeginPage(const Sheet&) override {
        ++Taken;
        return Nothing;
    }
    int& Taken;
    NoPicture Nothing;
};

class PrintTest : public ShellTest {
protected:
    PrintTest() {
        Start("");
        Open.TabFile.Tracks.Resize(2);
        for (int track : {0, 1}) Open.TabFile.Tracks[track].Bars.Resize(200);
        Open.TabFile.BarInfos.Resize(200);
        Window().Printer = [this](PrintModel& model) {
            model.AllTracks = all;
            return ChosenPrinter{std::make_unique<Sheets>(taken), first, last, copies};
        };
    }
    int Print(int from, int to) {
        first = from;
        last = to;
        taken = 0;
        RunCommand(*FindCommand("mnuFilePrint"));
        return taken;
    }
    bool all = false;
    int first = 0, last = 0, taken = 0, copies = 1;
};

TEST_F(PrintTest, TheChosenPagesOfOneTrackOrAll) {
    const int pages = Print(0, 0);
    ASSERT_GT(pages, 2);
    EXPECT_EQ(Print(2, 3), 2);
    EXPECT_EQ(Print(2, 99), pages - 1) << "cut to the pages that there are";
    copies = 3;
    EXPECT_EQ(Print(2, 3), 6);
    copies = 1;
    all = true;
    EXPECT_EQ(Print(0, 0), 2 * pages);
    EXPECT_EQ(Window().Status.back(), "Printed pages: " + std::to_string(2 * pages));
    Window().CancelAt = 0;
    EXPECT_EQ(Print(0, 0), 0);
    EXPECT_EQ(Window().Calls.back(), "draw") << "the view is laid out anew behind the printing";
    // What was chosen is chosen the next time.
    PrintModel model;
    model.Load();
    EXPECT_TRUE(model.AllTracks);
}

struct Pages : PageFile {
    Picture& BeginPage(const Sheet&) override {
        ++Count;
        return Nothing;
    }
    std::string Finish(const PageFileInfo&) override { return std::to_string(Count); }
    int Count = 0;
    NoPicture Nothing;
};

TEST_F(PrintTest, ADrawnPdfGoesWhereItIsWanted) {
    Services.NewPdf = [] { return std::unique_ptr<PageFile>(std::make_unique<Pages>()); };
    const int pages = Print(0, 0);
    RunCommand(*FindCommand("mnuFileExportEngraved"));
    EXPECT_TRUE(Window().Suggested.empty()) << "the options were cancelled";
    Window().On<PrintModel>([](PrintModel& model) { return model.AllTracks = true; });
    Open.FileName = "/music/song.qlm";
    Window().SaveAnswer = folder / "drawn.pdf";
    RunCommand(*FindCommand("mnuFileExportEngraved"));
    EXPECT_EQ(Window().Suggested, "/music/song.pdf");
    EXPECT_EQ(Testing::Slurp(folder / "drawn.pdf"), std::to_string(2 * pages));
}

TEST_F(PrintTest, ThePreviewPutsPagesBesideEachOther) {
    PrintPreview preview;
    const int pages = preview.Pages();
    preview.SetView(2000, 700);
    EXPECT_EQ(preview.Fitted(), PrintPreview::Fit::Page);
    EXPECT_LE(preview.InView(0, 0).front().Height, 700);
    EXPECT_EQ(preview.Columns(), std::min(pages, 2000 / (preview.InView(0, 0).front().Width + PrintPreview::Gap)));
    preview.SetView(900, 700);
    preview.SetZoom(100);
    EXPECT_EQ(preview.Columns(), 1);
    EXPECT_EQ(preview.InView(0, 0).front().Width, 795);
    // Each page can be gone to, and is then the one that the view stands at, whole in its width.
    for (const auto& [width, zoom] : {std::pair{900, 100}, {1700, 50}, {300, 33}, {700, 10}}) {
        preview.SetView(width, 700);
        preview.SetZoom(zoom);
        for (int page = 0; page < pages; ++page) {
            const int at = preview.PageAt(preview.ScrollFor(page));
            EXPECT_EQ(at, page / preview.Columns() * preview.Columns());
            const auto shown = preview.InView(0, preview.ScrollFor(page));
            EXPECT_TRUE(std::ranges::any_of(shown, [&](const PreviewPage& each) { return each.Page == page; }));
        }
    }
    preview.SetZoom(100);
    preview.ZoomBy(1);
    EXPECT_EQ(preview.Zoom(), 125);
    preview.ZoomBy(-99);
    EXPECT_EQ(preview.Zoom(), PrintPreview::LeastZoom);
    preview.Keep();
    EXPECT_EQ(PrintPreview().Zoom(), PrintPreview::LeastZoom);
}

TEST_F(PrintTest, DarkPaperKeepsInksApart) {
    const auto light = [](Color color) {
        const auto part = [](int value) { return std::pow(value / 255.0, 2.2); };
        return 0.2126 * part(RedOf(color)) + 0.7152 * part(GreenOf(color)) + 0.0722 * part(BlueOf(color));
    };
    const auto contrast = [&](Color a, Color b) {
        const auto [low, high] = std::minmax({light(a), light(b)});
        return (high + 0.05) / (low + 0.05);
    };
    const Color paper = OnDarkPaper(White);
    EXPECT_GT(contrast(paper, OnDarkPaper(Black)), 10);
    for (const Color ink : {PackColor(255, 0, 0), PackColor(0, 0, 255), PackColor(0, 100, 0), PackColor(49, 106, 197),
                            PackColor(128, 0, 128), PackColor(90, 90, 90)}) {
        EXPECT_GT(contrast(paper, OnDarkPaper(ink)), 2.8) << ink;
    }
    EXPECT_GT(contrast(paper, OnDarkPaper(PackColor(0xEE, 0xF4, 0xFE))), 1.1) << "the tint of the current bar";
}

}  // namespace
}  // namespace Quillon::Shell
