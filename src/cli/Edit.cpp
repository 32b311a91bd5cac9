// quillon-cli edit FILE OP...
#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Commands.h"
#include "cli/DocumentFiles.h"
#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "core/mod_TabFileStructure.h"
#include "editing/mod_BarClipboard.h"
#include "editing/mod_BarsAndTracks.h"
#include "editing/mod_Retune.h"
#include "editing/mod_Transpose.h"
#include "exchange/JsonDocument.h"
#include "platform/RunTimeError.h"
#include "shell/BarModels.h"

namespace Quillon::Cli {

using Core::Open;

namespace {

struct Operation {
    std::string_view Name;
    std::string_view Numbers;  ///< a letter each, as the usage shows them
    void (*Run)(const std::vector<int>& numbers);
};

using Numbers = std::vector<int>;

Editing::BarRange RangeOf(const Numbers& n) { return {Core::ToInt16(n[1]), Core::ToInt16(n[2])}; }

void CopyBars(const Numbers& n) { Editing::BarClipboard.Copied = Editing::CopyBars(Open.TabFile, RangeOf(n), n[0]); }

void PasteBars(const Numbers& n) {
    if (!Editing::BarClipboard.Copied) throw CommandFailure("paste-bars: copy or cut bars before");
    Editing::PasteBars(Open.TabFile, *Editing::BarClipboard.Copied, n[0], n[1], Editing::PasteMode::Insert, 1);
}

void Transpose(const Numbers& n) {
    const auto stuck = Editing::Transpose(Open.TabFile, n[0], RangeOf(n), Core::ToInt16(n[3]), true);
    if (!stuck) return;
    throw CommandFailure("transpose: no strings can play strum " + std::to_string(stuck->Strum) + " of bar " +
                         std::to_string(stuck->Bar) + " on track " + std::to_string(stuck->Track));
}

void SetTimeSignature(const Numbers& n) {
    using Model = Shell::BarTimeSigModel;
    if (n[1] < 1 || n[1] > Model::MostTop || std::ranges::find(Model::Bottoms, n[2]) == std::end(Model::Bottoms)) {
        throw CommandFailure("time-signature: X is 1 to 32, Y is 1, 2, 4, 8, 16 or 32");
    }
    Core::SetTimeSignature(n[0], n[1], n[2]);
}

void Retune(const Numbers& n) {
    Editing::Retuning wanted;
    wanted.Strings = Core::ToInt16(n[1]);
    if (wanted.Strings < 1 || wanted.Strings > Core::StringCount) throw CommandFailure("retune: 1 to 7 strings");
    wanted.KeepPitches = n[2] != 0;
    for (int s = 0; s < Core::StringCount; ++s) wanted.Tuning[s] = Core::ToInt16(n[static_cast<std::size_t>(s) + 3]);
    const auto stuck = Editing::Retune(Open.TabFile, n[0], wanted);
    if (!stuck) return;
    throw CommandFailure("retune: no strings can play strum " + std::to_string(stuck->Strum) + " of bar " +
                         std::to_string(stuck->Bar) + " on track " + std::to_string(stuck->Track));
}

constexpr Operation Operations[] = {
    {"insert-strum", "TBS", [](const Numbers& n) { Editing::InsertStrum(n[0], n[1], n[2]); }},
    {"delete-strum", "TBS", [](const Numbers& n) { Editing::DeleteStrum(n[0], n[1], n[2]); }},
    {"clear-bar", "TB", [](const Numbers& n) { Editing::ClearBar(n[0], n[1]); }},
    {"shrink-bar", "TB", [](const Numbers& n) { Editing::ShrinkBar(n[0], n[1]); }},
    {"fix-bar", "TB", [](const Numbers& n) { Editing::FixBar(n[0], n[1]); }},
    {"fix-all-bars", "T", [](const Numbers& n) { Editing::FixAllBars(n[0]); }},
    {"append-bar", "", [](const Numbers&) { Editing::AppendBar(); }},
    {"insert-bar", "B", [](const Numbers& n) { Editing::InsertBar(n[0]); }},
    {"remove-bar", "B", [](const Numbers& n) { Editing::RemoveBar(n[0]); }},
    {"time-signature", "BXY", SetTimeSignature},
    {"copy-bars", "TBL", [](const Numbers& n) { CopyBars(n); }},
    {"cut-bars", "TBL",
     [](const Numbers& n) {
         CopyBars(n);
         Editing::CutBars(Open.TabFile, RangeOf(n), n[0]);
     }},
    {"paste-bars", "TB", PasteBars},
    {"transpose", "TBLX", Transpose},
    {"retune", "TNKOOOOOOO", Retune},
    {"delete-track", "T", [](const Numbers& n) { Editing::DeleteTrack(n[0]); }},
    {"track-up", "T", [](const Numbers& n) { Editing::MoveTrackUp(n[0]); }},
    {"track-down", "T", [](const Numbers& n) { Editing::MoveTrackDown(n[0]); }},
};

std::string Usage(const Operation& operation) {
    std::string usage(operation.Name);
    for (const char letter : operation.Numbers) (usage += ' ') += letter;
    return usage;
}

struct Step {
    std::string Text;
    const Operation* Op = nullptr;
    Numbers Values;
};

int NumberOf(const std::string& word, const Step& step) {
    int number = 0;
    const auto [stop, problem] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (problem != std::errc{} || stop != word.data() + word.size()) {
        throw UsageError(step.Text + ": " + Usage(*step.Op) + " expected");
    }
    return number;
}

Step StepOf(const std::string& text) {
    std::istringstream words(text);
    std::string word;
    words >> word;
    const auto* const found = std::ranges::find(Operations, word, &Operation::Name);
    if (found == std::end(Operations)) throw UsageError(text + ": no such operation");
    Step step{text, found, {}};
    while (words >> word) step.Values.push_back(NumberOf(word, step));
    if (step.Values.size() != found->Numbers.size()) throw UsageError(text + ": " + Usage(*found) + " expected");
    return step;
}

struct Arguments {
    std::string File;
    std::vector<std::string> Steps;
    std::string Out;
};

int Edit(const Arguments& arguments) {
    std::vector<Step> steps;
    std::ranges::transform(arguments.Steps, std::back_inserter(steps), &StepOf);
    if (!arguments.Out.empty()) WriterFor(arguments.Out);
    OpenWholeDocument(arguments.File);
    for (const Step& step : steps) {
        try {
            step.Op->Run(step.Values);
        } catch (const RunTimeError& error) {
            throw CommandFailure(arguments.File + ": " + step.Text + ": " + error.Description());
        }
    }
    SaveDocument(arguments.Out);
    Print(Exchange::WriteJson(Open.TabFile));
    return Done;
}

std::string Footer() {
    std::string footer = "Operations, each one argument, with numbers from 0:\n";
    for (const Operation& operation : Operations) footer += "  " + Usage(operation) + "\n";
    return footer +
           "T is a track, B a bar, S a strum. Bars go from B to L, on all tracks when T is -1; X and Y are figures of "
           "a\n"
           "time signature, or X semitones. N strings are tuned O semitones from the standard each, string 0 first; "
           "they keep\n"
           "pitches when K is 1, else frets.";
}

}  // namespace

void AddEdit(CLI::App& app, Work& work) {
    CLI::App* command = app.add_subcommand("edit", "Edits strums, bars and tracks and prints the document as JSON");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("FILE", arguments->File, "Document to open, by its ending")->required()->type_name("");
    command->add_option("OP", arguments->Steps, "Operations, done in their order")->required()->type_name("");
    command->add_option("--out", arguments->Out, "File to save the document to, by its ending")->type_name("OUT");
    command->footer(Footer());
    command->callback([arguments, &work] { work = [arguments] { return Edit(*arguments); }; });
}

}  // namespace Quillon::Cli
