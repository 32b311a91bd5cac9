// Whole layouts against results worked out independently: documents, options, and the numbers that must come out.
#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli/LayoutReport.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/JsonDocument.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "tests/support/CountingBox.h"
#include "tests/support/Golden.h"

using namespace Quillon;
using nlohmann::json;

namespace {

Cli::LayoutOptions OptionsOf(const json& arguments) {
    Cli::LayoutOptions options;
    options.Detail = true;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        const std::string name = arguments[i];
        const std::string value = arguments[i + 1];
        if (name == "--track") options.Track = std::stoi(value);
        if (name == "--width") options.Width = std::stoi(value);
        if (name == "--height") options.Height = std::stoi(value);
        if (name == "--click") {
            options.Click = {std::stoi(value), std::stoi(value.substr(value.find(',') + 1))};
        }
    }
    return options;
}

/// The first place where `actual` lacks or differs from what is expected; "" when all is there.
std::string Difference(const json& expected, const json& actual, const std::string& at) {
    if (expected.is_object() && actual.is_object()) {
        for (const auto& [key, value] : expected.items()) {
            if (!actual.contains(key)) return at + "." + key + " is missing";
            if (std::string found = Difference(value, actual[key], at + "." + key); !found.empty()) return found;
        }
        return "";
    }
    if (expected.is_array() && actual.is_array() && expected.size() == actual.size()) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::string place = at + "[" + std::to_string(i) + "]";
            if (std::string found = Difference(expected[i], actual[i], place); !found.empty()) return found;
        }
        return "";
    }
    return expected == actual ? "" : at + ": expected " + expected.dump() + ", came out " + actual.dump();
}

}  // namespace

class LayoutGolden : public testing::TestWithParam<const char*> {};

TEST_P(LayoutGolden, ComesOutValueForValue) {
    Testing::CountingBox box;
    Services.Messages = &box;
    const auto path = Testing::GoldenDir() / "layout" / (std::string(GetParam()) + ".json");
    for (const json& layout : json::parse(Testing::Slurp(path))) {
        Core::Open = {};
        Core::Open.TabFile = Exchange::ReadJson(layout["document"].dump(), MemoryStore{});
        const json report = json::parse(Cli::LayoutReport(OptionsOf(layout["args"])));
        EXPECT_EQ(Difference(layout["expected"], report, ""), "") << layout["name"];
    }
    Services.Messages = nullptr;
}

INSTANTIATE_TEST_SUITE_P(Topics, LayoutGolden,
                         testing::Values("basic", "click-bar", "click-bass", "click-lane", "click-lower", "click-past",
                                         "click-tab", "click-treble", "columns", "figures", "lyrics", "notation",
                                         "pages", "rowheight", "spacing", "texts", "tracks", "view", "wide"));
