#include "exchange/ImportReport.h"

#include <gtest/gtest.h>

namespace Quillon::Exchange {
namespace {

TEST(ImportReport, CountsWhatItNotesDownAndTellsThePlace) {
    ImportReport report{.Tracks = 1, .Bars = 2, .NotesFound = 5, .NotesKept = 4};
    report.Add({.Fate = ImportFate::Moved, .Track = 0, .Bar = 1, .Key = "str_ReportTrack", .Fields = {"1"}});
    report.Add({.Line = 14, .Key = "str_ReportBar", .Fields = {"2"}});
    EXPECT_EQ(ReportText(report),
              "Tracks: 1\nBars: 2\nNotes found: 5\nNotes kept: 4\nNotes moved: 1\nNotes lost: 1\n\n"
              "track 1, bar 2: track 1\nline 14: bar 2\n");
}

}  // namespace
}  // namespace Quillon::Exchange
