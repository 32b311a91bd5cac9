// Text tabs in and out: how long each reader and writer takes.
#include <string>

#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/AsciiImport.h"
#include "exchange/LinesImport.h"
#include "exchange/TextFileExport.h"
#include "platform/Services.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

/// A text tab of so many lines: systems of six strings of four bars each, two empty lines between them.
std::string TabOf(int lines) {
    constexpr int linesOfASystem = 8;
    std::string text;
    unsigned number = 1;
    for (int system = 0; system < lines / linesOfASystem; ++system) {
        for (const char* label : {"e", "B", "G", "D", "A", "E"}) {
            text += label;
            for (int column = 0; column < 68; ++column) {
                number = number * 1103515245 + 12345;
                const bool note = column % 17 % 2 == 1 && (number >> 16) % 6 == 0;
                text += column % 17 == 0 ? '|' : note ? static_cast<char>('0' + (number >> 20) % 10) : '-';
            }
            text += "|\n";
        }
        text += "\n\n";
    }
    return text;
}

double ClassicSeconds(const std::string& tab, int runs) {
    return MedianSeconds(runs, [&] {
        Core::TabFile file;
        Exchange::ImportTextTab(file, 0, Exchange::TextOfBytes(tab), {});
        if (file.Tracks[0].Bars.Count() < 10) Fail("the text was not read");
    });
}

double LinesSeconds(const std::string& tab, int runs) {
    return MedianSeconds(runs, [&] {
        Core::TabFile file;
        Exchange::ImportReport report;
        Exchange::ImportTextLines(file, 0, tab, {}, report);
        if (report.NotesLost > 0 || report.NotesKept == 0) Fail("the text was not read whole");
    });
}

}  // namespace

int main() {
    const Setting setting;
    const std::string small = TabOf(200);
    const std::string large = TabOf(20'000);
    Row("Text tab of 200 lines, classic", ClassicSeconds(small, 9) * 1000, 50, "ms");
    Row("Text tab of 200 lines, by lines", LinesSeconds(small, 9) * 1000, 50, "ms");
    Row("Text tab of 20,000 lines, classic", ClassicSeconds(large, 3), 5, "s");
    Row("Text tab of 20,000 lines, by lines", LinesSeconds(large, 3), 2, "s");
    Core::Open.TabFile = SongS();
    const Exchange::TextExportOptions options{0, 80, true};
    const auto write = [&](Exchange::TextKind kind, const char* name) {
        return MedianSeconds(9, [&] { Exchange::ExportText(kind, Services.BaseFolder / name, options); });
    };
    Row("Song S as text", write(Exchange::TextKind::Text, "s.txt"), 0.5, "s");
    Row("Song S as page", write(Exchange::TextKind::Page, "s.html"), 0.5, "s");
    Row("Song S as PDF of the text", write(Exchange::TextKind::Pdf, "s.pdf"), 0.5, "s");
    return Status();
}
