#include "exchange/JsonDocument.h"

#include <nlohmann/json.hpp>

#include "platform/RunTimeError.h"
#include "platform/headless/MemoryStore.h"
#include "tests/support/Golden.h"
#include "tests/support/RandomDocument.h"

using namespace Quillon;
using Exchange::ReadJson;
using Exchange::WriteJson;

namespace {

Core::TabFile Read(std::string_view bytes) { return ReadJson(bytes, MemoryStore{}); }

std::string Refusal(std::string_view bytes) {
    try {
        Read(bytes);
    } catch (const RunTimeError& error) {
        return error.Description();
    }
    return "accepted";
}

/// A document around the fields of one strum.
std::string WithStrum(const std::string& fields) {
    return R"({"Tracks":[{"Bars":[{"Strums":[{}]},{"Strums":[{},{)" + fields + R"(}]}]}]})";
}

}  // namespace

TEST(Json, WhatIsLeftOutHasItsNewFileValue) {
    const Core::TabFile file = Read(R"({"Tracks":[{"Bars":[{},{"Strums":[{"Notes":{"3":{"Fret":"12"}}}]}]}]})");
    EXPECT_EQ(file.Title, "Untitled");
    EXPECT_EQ(file.BarInfos.Count(), 2);
    EXPECT_EQ(file.BarInfos[1].TimeSigTop, 4);
    EXPECT_EQ(file.Tracks[0].Volume, 50);
    EXPECT_EQ(file.Tracks[0].Bars[0].Strums()[0].Length, 2);
    EXPECT_EQ(file.Tracks[0].Bars[1].Strums()[0].Notes[3].Fret, "12");
    EXPECT_TRUE(Read("{}") == Read(R"({"Tracks":[{"Bars":[{"Strums":[{}]}]}]})"));
}

TEST(Json, OwnOutputIsReadBackAndWrittenAlike) {
    for (const char* name : {"1-new", "2-song", "3-drum-lyrics", "4-harmonic"}) {
        const std::string golden = Testing::Slurp(Testing::GoldenDir() / "qlm" / (std::string(name) + ".json"));
        const Core::TabFile file = Read(golden);
        const std::string text = WriteJson(file);
        EXPECT_EQ(nlohmann::json::parse(text), nlohmann::json::parse(golden)) << name;
        EXPECT_TRUE(Read(text) == file) << name;
    }
    Core::TabFile file;
    for (const auto& [tempo, text] : {std::pair(60.0F, "60"), std::pair(120.55F, "120.55"),
                                      std::pair(123.456787F, "123.45679"), std::pair(1e20F, "1e+20")}) {
        file.Tempo = tempo;
        EXPECT_NE(WriteJson(file).find("\"Tempo\": " + std::string(text) + ",\n"), std::string::npos) << text;
    }
}

TEST(Json, RefusalsNameThePlace) {
    const std::pair<std::string, std::string> cases[] = {
        {WithStrum(R"("Length":7)"), "Tracks[0].Bars[1].Strums[1].Length: 0 to 6 expected"},
        {WithStrum(R"("Length":"2")"), "Tracks[0].Bars[1].Strums[1].Length: a whole number expected"},
        {WithStrum(R"("Length":2.0)"), "Tracks[0].Bars[1].Strums[1].Length: a whole number expected"},
        {WithStrum(R"("Tuplet":9)"), "Tracks[0].Bars[1].Strums[1].Tuplet: 0 to 8 expected"},
        {WithStrum(R"("Hash":256)"), "Tracks[0].Bars[1].Strums[1].Hash: 0 to 255 expected"},
        {WithStrum(R"("Hash":18446744073709551615)"), "Tracks[0].Bars[1].Strums[1].Hash: 0 to 255 expected"},
        {WithStrum(R"("Dotted":1)"), "Tracks[0].Bars[1].Strums[1].Dotted: true or false expected"},
        {WithStrum(R"("Notes":{"7":{}})"), "Tracks[0].Bars[1].Strums[1].Notes.7: a string from 0 to 6 expected"},
        {WithStrum(R"("Notes":{"0":{"Fret":5}})"), "Tracks[0].Bars[1].Strums[1].Notes.0.Fret: a text expected"},
        {WithStrum(R"("TremPoints":[1,2])"), "Tracks[0].Bars[1].Strums[1].TremPoints: 25 elements expected, 2 found"},
        {WithStrum(R"("ChordMarks":[0,0,0,0,0,0,40000])"),
         "Tracks[0].Bars[1].Strums[1].ChordMarks[6]: -32768 to 32767 expected"},
        {WithStrum(R"("Lenght":1)"), "Tracks[0].Bars[1].Strums[1].Lenght: unknown key"},
        {R"({"Tracks":[{"Bars":[{"Strums":[]}]}]})", "Tracks[0].Bars[0].Strums: at least one element expected"},
        {R"({"Tracks":[]})", "Tracks: at least one element expected"},
        {R"({"Tracks":[{"Bars":[{}]},{"Bars":[{},{}]}]})", "Tracks[1].Bars: 1 bars expected, as in the first track"},
        {R"({"BarInfos":[{},{}]})", "BarInfos: 1 elements expected, 2 found"},
        {R"({"BarInfos":[{"TimeSigBottom":3}]})", "BarInfos[0].TimeSigBottom: 1, 2, 4, 8, 16 or 32 expected"},
        {R"({"Tempo":0})", "Tempo: a number above 0 expected"},
        {R"({"Tempo":1e300})", "Tempo: a number above 0 expected"},
        {R"({"Tracks":[{"Strings":8}]})", "Tracks[0].Strings: 1 to 7 expected"},
        {R"([])", "Document: an object expected"},
        {"{\"Title\":\"\xFF\"}", "not valid JSON at byte 11"},
        {"", "not valid JSON at byte 1"},
        {R"({"Tempo":1e999})", "not valid JSON: a number is out of range"},
    };
    for (const auto& [text, refusal] : cases) EXPECT_EQ(Refusal(text), refusal) << text;
    EXPECT_NE(Refusal(std::string(100000, '[')), "accepted");
}

TEST(Json, RandomDocumentsComeBackWhole) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        const Core::TabFile file = Testing::RandomDocument(seed, Testing::HeldBy::Json);
        ASSERT_TRUE(Read(WriteJson(file)) == file) << "seed " << seed;
    }
}

TEST(Json, ASlotOfNothingButTheCurveOfABendThatIsOffIsLeftOut) {
    Core::TabFile file = Read("{}");
    file.Tracks[0].Bars.Edit(0).EditStrums()[0].Notes.Edit(2).BendPoints.Edit()[3] = 1;
    EXPECT_EQ(WriteJson(file), WriteJson(Read("{}")));
}
