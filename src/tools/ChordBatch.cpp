#include "tools/ChordBatch.h"

#include <algorithm>
#include <map>
#include <set>

#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "library/ChordNaming.h"
#include "library/mod_Chords.h"
#include "platform/MessageBox.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "shell/LongWork.h"
#include "shell/mod_Shell.h"
#include "tools/ChordManager.h"
#include "tools/Questions.h"

namespace Quillon::Tools {

using Core::LanguageText;
using Library::Chords;

namespace {

std::set<std::string> Taken() { return {Chords.Names().begin(), Chords.Names().end()}; }

std::string WithReplaced(const std::string& name, const std::string& find, const std::string& replace) {
    if (find.empty()) return replace + name;
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = name.find(find); at != std::string::npos; at = name.find(find, from)) {
        result += name.substr(from, at - from) + replace;
        from = at + find.size();
    }
    return result + name.substr(from);
}

/// The name, or with the next number of a voicing that is free.
std::string FreeName(const std::string& name, const std::set<std::string>& taken) {
    if (!taken.contains(name)) return name;
    const std::string base(Library::VoicingBase(name));
    for (int voicing = 2;; ++voicing) {
        std::string numbered = base + " (" + std::to_string(voicing) + ")";
        if (!taken.contains(numbered)) return numbered;
    }
}

/// In this order no chord's file is written over before its chord stands under its new name, so that even a crash on
/// the way loses none. Names that change places in a ring have no such order.
std::vector<ChordBatchModel::Change> InSafeOrder(const std::vector<ChordBatchModel::Change>& plan) {
    std::map<std::string, std::size_t> from;
    for (std::size_t i = 0; i < plan.size(); ++i) {
        if (*plan[i].Why == 0) from[plan[i].From] = i;
    }
    std::vector<bool> seen(plan.size());
    std::vector<ChordBatchModel::Change> ordered;
    for (const auto& entry : from) {
        std::vector<std::size_t> chain;  // each to be written after the next one
        for (auto next = from.find(entry.first); next != from.end() && !seen[next->second];) {
            chain.push_back(next->second);
            seen[next->second] = true;
            next = from.find(plan[next->second].To);
        }
        for (; !chain.empty(); chain.pop_back()) ordered.push_back(plan[chain.back()]);
    }
    return ordered;
}

}  // namespace

void ChordBatchModel::Load() {
    Names = ChosenChords();
    // One chord is simply given another name.
    if (Names.size() == 1) Find = Replace = Names.front();
}

std::vector<ChordBatchModel::Change> ChordBatchModel::Renamed() const {
    const std::set<std::string> going(Names.begin(), Names.end());
    const std::set<std::string> taken = Taken();
    std::set<std::string> given;
    std::vector<Change> plan;
    for (const std::string& name : Names) {
        Change change{name, WithReplaced(name, Find, Replace)};
        const bool free = !taken.contains(change.To) || going.contains(change.To);
        if (change.To == name) {
            change.Why = "str_BatchSame";
        } else if (change.To.empty() || Library::FileNameOf(change.To) != change.To) {
            change.Why = "str_BatchNoName";
        } else if (!free || given.contains(change.To)) {
            change.Why = "str_BatchTaken";
        }
        given.insert(*change.Why == 0 ? change.To : name);
        plan.push_back(std::move(change));
    }
    return plan;
}

std::vector<ChordBatchModel::Change> ChordBatchModel::Transposed() const {
    std::set<std::string> taken = Taken();
    if (!KeepOld) {
        for (const std::string& name : Names) taken.erase(name);
    }
    std::vector<Change> plan;
    for (const std::string& name : Names) {
        Change change{name};
        const Library::ChordRec* const chord = Chords.Find(name);
        if (!chord) {
            change.Why = "str_BatchUnreadable";
        } else if (!Library::TransposedChord(*chord, Semitones)) {
            change.Why = "str_BatchOffNeck";
        } else {
            change.To = FreeName(Library::TransposedName(name, Semitones, Flats), taken);
        }
        // What stays keeps its name.
        taken.insert(*change.Why == 0 ? change.To : name);
        plan.push_back(std::move(change));
    }
    return plan;
}

std::vector<ChordBatchModel::Change> ChordBatchModel::Plan() const {
    switch (Do) {
        case Operation::Rename:
            return Renamed();
        case Operation::Transpose:
            return Transposed();
        default:
            return {};
    }
}

std::string_view ChordBatchModel::Validate() const {
    if (Names.empty()) return "str_BatchNoChords";
    if (Do == Operation::Delete || Do == Operation::Export) return "";
    const auto plan = Plan();
    const bool any = std::ranges::any_of(plan, [](const Change& change) { return *change.Why == 0; });
    return any ? "" : "str_BatchNothing";
}

int ChordBatchModel::Apply(const std::function<bool(int)>& goOn) const {
    if (Do == Operation::Export) return 0;
    if (Do == Operation::Delete) {
        for (const std::string& name : Names) Services.Files->Delete(Chords.FileOf(name));
        return static_cast<int>(Names.size());
    }
    std::map<std::string, std::string> going;  // old names and what their files held
    std::vector<NamedBytes> files;
    for (const Change& change : InSafeOrder(Plan())) {
        std::string bytes = Services.Files->Read(Chords.FileOf(change.From));
        if (Do == Operation::Rename || !KeepOld) going[change.From] = bytes;
        if (Do == Operation::Transpose) {
            bytes = Library::WriteChord(*Library::TransposedChord(*Chords.Find(change.From), Semitones));
        }
        files.push_back({change.To, std::move(bytes)});
    }
    std::size_t done = 0;
    // All is as it was: what is new goes first, which makes room for what comes back.
    const auto undo = [&] {
        std::set<std::string> taken;
        for (std::size_t at = 0; at < done; ++at) {
            const std::string& name = files[at].Name;
            taken.insert(name);
            if (!going.contains(name)) Shell::Guarded([&name] { Services.Files->Delete(Chords.FileOf(name)); });
        }
        for (const auto& entry : going) {
            if (!taken.contains(entry.first)) continue;
            Shell::Guarded([&entry] { Services.Files->Replace(Chords.FileOf(entry.first), entry.second); });
        }
    };
    try {
        for (; done < files.size(); ++done) {
            constexpr std::size_t Percent = 100;
            if (goOn && !goOn(static_cast<int>(Percent * done / files.size()))) {
                undo();
                return 0;
            }
            Services.Files->Replace(Chords.FileOf(files[done].Name), files[done].Bytes);
        }
    } catch (const RunTimeError&) {
        undo();
        throw;
    }
    for (const NamedBytes& file : files) going.erase(file.Name);
    for (const auto& [name, bytes] : going) Services.Files->Delete(Chords.FileOf(name));
    return static_cast<int>(files.size());
}

namespace {

void ExportChords(const std::vector<std::string>& names) {
    const auto target = Shell::Program.View->AskFileToWrite(LanguageText("str_ChordManagerTitle") + ".txt",
                                                            {{"str_FilterText", {"txt"}}});
    if (!target) return;
    Services.Files->Replace(*target, Core::ToWindows1252(Library::ChordsAsText(Chords, names)));
    Shell::Program.View->ShowStatus(LanguageText("str_BatchExported", {target->filename().string()}));
}

bool MayDelete(const std::vector<std::string>& names) {
    const std::string number = std::to_string(names.size());
    const std::string question = names.size() == 1
                                     ? LanguageText("str_ChordDelete", {Chords.FileOf(names.front()).string()})
                                     : LanguageText("str_ChordsDelete", {number, Chords.Folder().string()});
    return Services.Messages->Show(question, LanguageText("str_TitleQuestion"), Buttons::YesNo, BoxIcon::Exclamation) ==
           Answer::Yes;
}

/// False when it failed, which was told then.
bool Run(const ChordBatchModel& model) {
    using Operation = ChordBatchModel::Operation;
    if (model.Do == Operation::Export) return Shell::Guarded([&model] { ExportChords(model.Names); });
    if (model.Do == Operation::Delete && !MayDelete(model.Names)) return true;
    const auto plan = model.Plan();
    int done = 0;
    const bool went = Shell::Guarded([&] {
        const Shell::LongWork work(LanguageText("str_BatchTitle"));
        done = model.Apply([](int percent) { return Shell::Program.View->GoOnWithWork(percent); });
    });
    ChordFolderChanged();
    if (!went) return false;
    if (!plan.empty() && done > 0) {
        const auto last = std::ranges::find_if(plan, [](const auto& change) { return *change.Why == 0; });
        if (last != plan.end()) ShowChord(last->To);
    }
    const char* const text = model.Do == Operation::Rename      ? "str_BatchRenamed"
                             : model.Do == Operation::Transpose ? "str_BatchTransposed"
                                                                : "str_BatchDeleted";
    Shell::Program.View->ShowStatus(LanguageText(text, {std::to_string(done)}));
    return true;
}

}  // namespace

void mnuBatchOperations_Click() {
    ChordBatchModel model;
    model.Load();
    EditUntilSaved(model, [&model] { return Run(model); });
}

void DeleteChosenChords() {
    ChordBatchModel model;
    model.Load();
    model.Do = ChordBatchModel::Operation::Delete;
    if (model.Validate().empty()) Run(model);
}

}  // namespace Quillon::Tools
