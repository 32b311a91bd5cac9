// Figures, letters and labels of a bar against tables worked out independently.
#include <nlohmann/json.hpp>

#include "drawing/mod_TabDrawing.h"
#include "exchange/JsonDocument.h"
#include "platform/headless/MemoryStore.h"
#include "platform/headless/PictureLog.h"
#include "tests/support/Golden.h"

using namespace Quillon;
using namespace Quillon::Drawing;
using nlohmann::json;

namespace {

json Read(const char* name) { return json::parse(Testing::Slurp(Testing::GoldenDir() / "layout" / name)); }

}  // namespace

TEST(TabFigures, FretText) {
    const json rows = Read("vectors.json").at("FretText");
    for (const json& row : rows) {
        Core::Note note;
        note.Fret = row[0].value("Fret", "");
        note.Ghost = row[0].value("Ghost", false);
        note.Harmonic = row[0].value("Harmonic", 0);
        note.LetRing = row[0].value("LetRing", false);
        EXPECT_EQ(FretText(note), row[1]) << row;
    }
}

TEST(TabFigures, TextsOfWholeDocuments) {
    for (const json& test : Read("texts.json")) {
        MemoryStore settings;
        const Core::TabFile file = Exchange::ReadJson(test.at("document").dump(), settings);
        const json& bars = test.at("expected").at("Bars");
        for (std::size_t bar = 0; bar < bars.size(); ++bar) {
            const json& texts = bars[bar].at("Texts");
            for (std::size_t strum = 0; strum < texts.size(); ++strum) {
                for (const auto& [string, text] : texts[strum].items()) {
                    const int at = std::stoi(string);
                    const Core::Note& note = file.Tracks[0].Bars[bar].Strums()[strum].Notes[at];
                    EXPECT_EQ(file.Tracks[0].IsDrum ? PercussionText(file.Tracks[0], at, note) : FretText(note),
                              text.at("Text"))
                        << test.at("name") << " strum " << strum << " string " << string;
                }
            }
        }
    }
}

TEST(TabFigures, DrumLettersWithoutASoundShowThemselves) {
    Core::Track track;
    track.PercStrings[2].dbo = 7;
    track.PercStrings[2].dro = 7;
    const auto text = [&](const char* fret) {
        Core::Note note;
        note.Fret = fret;
        return PercussionText(track, 2, note);
    };
    EXPECT_EQ(text("~"), "O");
    EXPECT_EQ(text("F"), "F");
    EXPECT_EQ(text("7"), "7");
    EXPECT_EQ(text(""), "");
}

TEST(TabFigures, LabelsStandAtTheirPlaces) {
    // The rows: figures shown, strings, width, places from the bar's corner.
    const json rows = Read("vectors.json").at("LabelPositions");
    for (const json& row : rows) {
        constexpr int x = 100, y = 300;
        Core::TabFile file;
        Core::Track& track = file.Tracks[0];
        track.Strings = row[1];
        file.BarInfos.Edit(0) = {.Segno = 1, .RepeatOpen = true, .RepeatClose = 2};
        file.BarInfos.Edit(0).CodaMark = 1;
        Core::BarPlace& place = track.Bars[0].Place;
        place.ShowTimeSig = row[0];
        const json& at = row[3];

        const Label label = BarNumberLabel(track.Bars[0], 0, x, y);
        EXPECT_EQ(label.Text, "1");
        EXPECT_EQ((json{label.X - x, label.Y - y}), at.at("BarNumber")) << row;

        PictureLog log;
        DrawBarFrame(log, {file, 0, 0, x, y, row[2]});
        for (const char* name : {"RepeatStartDots", "RepeatEndDots"}) {
            const json& dots = at.at(name);
            for (const int drop : {0, 7}) {
                const std::string disc = "disc " + std::to_string(x + dots[0].get<int>()) + " " +
                                         std::to_string(y + dots[1].get<int>() + drop) + " ";
                EXPECT_NE(log.Text().find(disc), std::string::npos) << disc << log.Text();
            }
        }
        log.Clear();
        DrawBarMarks(log, {file, 0, 0, x, y, row[2]});
        // The coda's ring stands in the first cell of 16 pixels, the segno's slash in the second.
        const auto middle = [&](const char* name, std::size_t axis) {
            return (axis == 0 ? x : y) + at.at(name)[axis].get<int>() + 8;
        };
        EXPECT_NE(
            log.Text().find("circle " + std::to_string(middle("Mark", 0)) + " " + std::to_string(middle("Mark", 1))),
            std::string::npos)
            << log.Text();
        EXPECT_NE(log.Text().find("line " + std::to_string(middle("MarkSecond", 0) - 5) + " "), std::string::npos)
            << log.Text();
    }
}

TEST(TabFigures, BendLabelsGoByQuarterTones) {
    const std::pair<double, const char*> rows[] = {{0, "¼"},   {2, "¼"},   {4, "½"},  {8, "1"},    {9, "1¼"},
                                                   {8.9, "1"}, {12, "1½"}, {24, "3"}, {1000, "3"}, {-3, "¼"}};
    for (const auto& [value, label] : rows) EXPECT_EQ(BendLabel(value), label) << value;
}
