// Text tabs and pages against the documents that they become.
#include "exchange/AsciiImport.h"

#include <gtest/gtest.h>

#include <random>

#include "core/mod_TabFileManipulation.h"
#include "exchange/AsciiText.h"
#include "exchange/JsonDocument.h"
#include "platform/RunTimeError.h"
#include "platform/headless/MemoryStore.h"
#include "tests/support/Golden.h"

namespace Quillon::Exchange {
namespace {

/// Options of the cases that have any.
AsciiImportOptions OptionsOf(const std::string& name) {
    AsciiImportOptions options;
    if (name != "a08-same-length" && name != "a09-details" && name != "a18-bars") return options;
    options.Dash = 3;
    options.SameLength = name == "a08-same-length";
    options.Details = name == "a09-details";
    if (name == "a09-details") options.Timing = TimeSignature{3, 8};
    if (name == "a18-bars") options.Timing = TimeSignature{5, 8};
    return options;
}

TEST(AsciiImportTest, TextsBecomeTheirDocuments) {
    const MemoryStore store;
    int cases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(Testing::GoldenDir() / "text")) {
        const std::string name = entry.path().stem().string();
        const std::string ending = entry.path().extension().string();
        if (name.front() != 'a' || name.ends_with(".want") || (ending != ".txt" && ending != ".html")) continue;
        SCOPED_TRACE(name);
        Core::TabFile file = Core::MakeNewTabFile(store);
        const auto import = [&] {
            return ImportTextTab(file, 0, TextOfBytes(Testing::Slurp(entry.path())), OptionsOf(name));
        };
        ++cases;
        const auto wanted = entry.path().parent_path() / (name + ".want.json");
        if (!std::filesystem::exists(wanted)) {
            if (name == "a12-less-without-greater") {
                EXPECT_THROW(import(), RunTimeError);
            }
            continue;
        }
        EXPECT_TRUE(import());
        EXPECT_EQ(WriteJson(file), WriteJson(ReadJson(Testing::Slurp(wanted), store)));
    }
    EXPECT_EQ(cases, 19);
}

TEST(AsciiImportTest, TimingsAreWholeNumbersWithinTheirRanges) {
    for (const char* good : {"4:4", "1:1", "32:32", " 7 : 8 "}) EXPECT_TRUE(ParseTiming(good)) << good;
    for (const char* bad : {"", "4", "4/4", "4:3", "0:4", "33:4", "4:64", "4:0", "-4:4", "4.5:4", "4:4x", ":4", "4:"}) {
        EXPECT_FALSE(ParseTiming(bad)) << bad;
    }
}

TEST(AsciiImportTest, AllTracksHaveTheSameBarsAtTheEnd) {
    const MemoryStore store;
    const std::string text = "\r\n0-2--3---4----5-----7---7---9\r\n-\r\n\r\n\r\n";
    for (const int track : {0, 1}) {
        Core::TabFile file = Core::MakeNewTabFile(store);
        file.Tracks.Add(file.Tracks[0]);
        file.Tracks[0].Bars.Resize(3);
        file.Tracks[1].Bars.Resize(3);
        file.BarInfos.Resize(3);
        EXPECT_TRUE(ImportTextTab(file, track, text, {}));
        EXPECT_EQ(file.Tracks[0].Bars.Count(), file.BarInfos.Count());
        EXPECT_EQ(file.Tracks[1].Bars.Count(), file.BarInfos.Count());
    }
}

TEST(AsciiImportTest, MarkersAreFoundInAnyCaseAndNeedAnEnd) {
    EXPECT_EQ(MarkedText("x<QL_res_TEXT='a b'>", "<ql_res_text='"), "a b");
    EXPECT_EQ(MarkedText("x<ql_res_text='a b", "<ql_res_text='"), "");
    EXPECT_EQ(MarkedText("", "<ql_res_text='"), "");
}

TEST(AsciiImportTest, LongTextsComeToAnEnd) {
    const MemoryStore store;
    // Each of these once made a reader walk the whole text again for every character.
    const std::string texts[] = {std::string(400'000, '<') + ">", std::string(200'000, '1'),
                                 [] {
                                     std::string tags;
                                     for (int i = 0; i < 40'000; ++i) tags += "<" + std::to_string(i) + ">";
                                     return tags;
                                 }(),
                                 [] {
                                     std::string systems;
                                     for (int i = 0; i < 20'000; ++i) systems += "1\r\n-5-\r\n\r\n\r\n";
                                     return systems;
                                 }()};
    for (const std::string& text : texts) {
        Core::TabFile file = Core::MakeNewTabFile(store);
        ImportTextTab(file, 0, text, {});
        EXPECT_EQ(file.Tracks[0].Bars.Count(), file.BarInfos.Count());
    }
}

/// The rule itself, a walk through the text for each tag.
std::string WithoutTags(std::string text) {
    for (;;) {
        const std::size_t open = text.find('<');
        const std::size_t end = open == std::string::npos ? open : text.find('>', open);
        if (end == std::string::npos) return open == std::string::npos ? text : "refused";
        ReplaceAll(text, std::string(text.substr(open, end + 1 - open)), "");
    }
}

TEST(AsciiImportTest, TagsGoInTheOrderThatTheyAreMetIn) {
    std::mt19937 random(7);
    std::vector<std::string> texts = {"play < <b>soft</b>1 <b>x</b> play < <b>soft</b>2",
                                      "<a <b><b><a <b>",
                                      "<a <b><<a <b>",
                                      ">",
                                      "a>b",
                                      "<",
                                      "<>",
                                      "<<>>"};
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        for (int length = static_cast<int>(random() % 24); length > 0; --length) text += "<<>>ab"[random() % 6];
        texts.push_back(text);
    }
    for (const std::string& text : texts) {
        std::string removed = text;
        try {
            RemoveTags(removed);
        } catch (const RunTimeError&) {
            removed = "refused";
        }
        EXPECT_EQ(removed, WithoutTags(text)) << text;
    }
    std::string page;
    for (int i = 0; i < 60'000; ++i) page += "<a href='" + std::to_string(i) + "'>5</a>";
    RemoveTags(page);
    EXPECT_EQ(page, std::string(60'000, '5'));
}

}  // namespace
}  // namespace Quillon::Exchange
