#include <algorithm>
#include <functional>
#include <set>

#include "core/mod_Common.h"
#include "library/mod_Chords.h"

namespace Quillon::Library {

namespace {

bool HasInName(const std::string& name, const std::string& upperText) {
    std::string upper = Searchable(name);
    if (upper.find(upperText) != std::string::npos) return true;
    std::erase(upper, ' ');
    return upper.find(upperText) != std::string::npos;
}

const std::string Muted = "x";  // as it stands in the files

/// A chord has no opinion on the strings that it has not.
bool HasFrets(const ChordRec& chord, const Row<std::string, StringCount>& wanted) {
    for (int fromLowest = 0; fromLowest < chord.NumStrings; ++fromLowest) {
        const std::string& text = wanted[fromLowest] == "X" ? Muted : wanted[fromLowest];
        if (!text.empty() && chord.Frets[chord.NumStrings - 1 - fromLowest] != text) return false;
    }
    return true;
}

std::set<std::string> DiagramsOf(const Core::OpenDocument& open) {
    std::set<std::string> names;
    if (open.CurTrack < 0 || open.CurTrack >= open.TabFile.Tracks.Count()) return names;
    for (const Core::Bar& bar : open.TabFile.Tracks[open.CurTrack].Bars) {
        for (const Core::Strum& strum : bar.Strums()) {
            if (strum.HasChord) names.insert(strum.ChordName);
        }
    }
    return names;
}

}  // namespace

std::vector<std::string> FilteredChords(ChordLibrary& library, const ChordFilter& filter,
                                        const Core::OpenDocument& open) {
    using Kind = ChordFilter::Kind;
    std::function<bool(const std::string&)> passes;
    const auto ofFile = [&library](auto holds) {
        return [&library, holds](const std::string& name) {
            const ChordRec* const chord = library.Find(name);
            return chord && holds(*chord);
        };
    };
    switch (filter.By) {
        case Kind::All:
            return library.Names();
        case Kind::Name:
            passes = [text = Searchable(filter.Text)](const std::string& name) { return HasInName(name, text); };
            break;
        case Kind::Tab:
            passes = ofFile([&filter](const ChordRec& chord) { return HasFrets(chord, filter.Tab); });
            break;
        case Kind::Strings:
            passes = ofFile([&filter](const ChordRec& chord) { return chord.NumStrings == filter.Strings; });
            break;
        case Kind::InTrack:
            passes = [names = DiagramsOf(open)](const std::string& name) { return names.contains(name); };
            break;
    }
    std::vector<std::string> names;
    std::ranges::copy_if(library.Names(), std::back_inserter(names), passes);
    return names;
}

}  // namespace Quillon::Library
