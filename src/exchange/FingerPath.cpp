#include "exchange/FingerPath.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>

namespace Quillon::Exchange {

namespace {

constexpr int None = -1;
constexpr std::size_t MostFingerings = 10;  ///< of a strum that are followed
constexpr int MostTries = 3000;             ///< steps of a search for the fingerings of one strum
constexpr std::size_t MostNotes = 12;       ///< of a strum that are looked at; the rest find no string
constexpr int WideStretch = 5;              ///< frets; hands that must stretch more are looked for last

constexpr double LostCost = 200;
constexpr double CutCost = 6;  ///< of a note that is held and has to let go

struct Fingering {
    std::vector<int> Strings;  ///< by note
    double Cost = 0;
    int Lowest = 0;  ///< fretted finger, 0 when all strings are open
    int Highest = 0;
    int Open = 0;  ///< strings
};

double StretchCost(int stretch) {
    constexpr int Easy = 3;
    if (stretch <= Easy) return 0;
    return stretch == Easy + 1 ? 1 : 4.0 * (stretch - Easy);
}

double HeightCost(int fret) {
    constexpr int Neck = 12;
    constexpr int LastFret = 22;  // of many guitars
    return 0.1 * fret + (fret > Neck ? 0.2 * (fret - Neck) : 0) + (fret > LastFret ? 2.0 * (fret - LastFret) : 0);
}

/// The fingerings of one set of keys.
class Search {
public:
    Search(const Fretboard& of, const std::vector<int>& theKeys, std::int64_t& ofSteps)
        : board(of), keys(theKeys), steps(ofSteps) {}

    std::vector<Fingering> Run() {
        int unreachable = 0;
        for (const int key : keys) unreachable += board.Reaches(key) ? 0 : 1;
        const int most = static_cast<int>(keys.size());
        for (int lost = std::max(unreachable, most - board.Strings); lost <= most && found.empty(); ++lost) {
            for (const int stretch : {WideStretch, HighestImportedFret}) {
                mostStretch = stretch;
                strings.assign(keys.size(), None);
                tries = 0;
                if (found.empty()) Try(0, lost, 0, {});
            }
        }
        if (found.empty()) TakeFirstFree();
        std::ranges::stable_sort(found, {}, &Fingering::Cost);
        const auto kept = static_cast<std::ptrdiff_t>(std::min(found.size(), MostFingerings));
        return {found.begin(), found.begin() + kept};  // without the room of thousands
    }

private:
    /// Frets under the fingers so far, 0 for none.
    struct Hand {
        int Lowest = 0;
        int Highest = 0;
        Hand With(int fret) const {
            if (fret == 0) return *this;
            return {Lowest == 0 ? fret : std::min(Lowest, fret), std::max(Highest, fret)};
        }
    };

    void Try(std::size_t note, int lost, unsigned used, Hand hand) {
        if (++tries > MostTries || --steps < 0) return;
        if (note == keys.size()) {
            if (lost == 0) Keep(hand);
            return;
        }
        for (int string = 0; string < board.Strings; ++string) {
            const int fret = keys[note] - board.Open.at(static_cast<std::size_t>(string));
            if (fret < 0 || fret > HighestImportedFret || (used >> string & 1U) != 0) continue;
            const Hand wider = hand.With(fret);
            if (wider.Highest - wider.Lowest > mostStretch) continue;
            strings[note] = string;
            Try(note + 1, lost, used | 1U << string, wider);
        }
        strings[note] = None;
        if (lost > 0) Try(note + 1, lost - 1, used, hand);
    }

    /// What is left when the search was given up.
    void TakeFirstFree() {
        Hand hand;
        unsigned used = 0;
        for (std::size_t note = 0; note < keys.size(); ++note) {
            strings[note] = None;
            for (int string = 0; string < board.Strings && strings[note] == None; ++string) {
                const int fret = keys[note] - board.Open.at(static_cast<std::size_t>(string));
                if (fret < 0 || fret > HighestImportedFret || (used >> string & 1U) != 0) continue;
                strings[note] = string;
                used |= 1U << string;
                hand = hand.With(fret);
            }
        }
        Keep(hand);
    }

    void Keep(Hand hand) {
        Fingering fingering{strings, 0, hand.Lowest, hand.Highest, 0};
        for (std::size_t note = 0; note < keys.size(); ++note) {
            if (strings[note] == None) {
                // The later the lighter: what is held stands behind what is struck.
                fingering.Cost += LostCost / static_cast<double>(note + 1);
                continue;
            }
            const int fret = keys[note] - board.Open.at(static_cast<std::size_t>(strings[note]));
            fingering.Cost += HeightCost(fret);
            if (fret == 0) ++fingering.Open;
        }
        fingering.Cost += StretchCost(fingering.Highest - fingering.Lowest);
        found.push_back(std::move(fingering));
    }

    const Fretboard& board;
    const std::vector<int>& keys;
    std::int64_t& steps;
    std::vector<int> strings;
    std::vector<Fingering> found;
    int tries = 0;
    int mostStretch = 0;
};

/// A fingering on its way: what it costs to come here, from where, and where the hand then lies.
struct Stop {
    double Cost = 0;
    int From = 0;
    int Hand = 1;  ///< fret of the first finger
};

/// Where the hand has to go; it reaches three frets beyond the first finger.
int HandFor(const Fingering& fingering, int hand) {
    constexpr int Reach = 3;
    if (fingering.Highest == 0) return hand;
    if (fingering.Lowest < hand) return fingering.Lowest;
    return fingering.Highest <= hand + Reach ? hand : std::min(fingering.Lowest, fingering.Highest - Reach);
}

double MoveCost(int from, int to) {
    constexpr double First = 0.4;  // of setting off at all
    return from == to ? 0 : First + 0.3 * std::abs(from - to);
}

/// An open string among high frets breaks a line's sound.
double OpenCost(const Fingering& fingering, int hand) {
    constexpr int High = 4;
    return hand < High ? 0 : 0.2 * hand * fingering.Open;
}

double CutsCost(const FingerStrum& strum, const Fingering& before, const Fingering& now) {
    double cost = 0;
    for (std::size_t note = 0; note < now.Strings.size(); ++note) {
        const auto from = static_cast<std::size_t>(strum[note].HeldFrom);
        if (strum[note].HeldFrom == None || from >= before.Strings.size()) continue;
        const int held = before.Strings[from];
        if (held != None && now.Strings[note] != held) cost += CutCost;
    }
    return cost;
}

/// Fingerings by their keys: music repeats itself.
class Fingerings {
public:
    Fingerings(const Fretboard& of, std::int64_t& ofSteps) : board(of), steps(ofSteps) {}

    const std::vector<Fingering>& Of(const FingerStrum& strum) {
        std::vector<int> keys;
        for (const FingerNote& note : strum) {
            if (keys.size() < MostNotes) keys.push_back(note.Key);
        }
        const auto [place, isNew] = known.try_emplace(std::move(keys));
        if (isNew) place->second = Search(board, place->first, steps).Run();
        return place->second;
    }

private:
    const Fretboard& board;
    std::int64_t& steps;
    std::map<std::vector<int>, std::vector<Fingering>> known;
};

}  // namespace

bool Fretboard::Reaches(int key) const {
    for (int string = 0; string < Strings; ++string) {
        const int fret = key - Open.at(static_cast<std::size_t>(string));
        if (fret >= 0 && fret <= HighestImportedFret) return true;
    }
    return false;
}

std::vector<std::vector<int>> FingerPath(const Fretboard& board, const std::vector<FingerStrum>& strums,
                                         std::int64_t& steps) {
    Fingerings known(board, steps);
    std::vector<const std::vector<Fingering>*> choices;
    std::vector<std::vector<Stop>> stops(strums.size());
    for (std::size_t k = 0; k < strums.size(); ++k) {
        choices.push_back(&known.Of(strums[k]));
        const std::size_t followed = steps > 0 ? choices[k]->size() : 1;  // the cheapest comes first
        for (std::size_t each = 0; each < followed; ++each) {
            const Fingering& now = (*choices[k])[each];
            Stop best{now.Cost, 0, HandFor(now, 1)};
            for (std::size_t c = 0; k > 0 && c < stops[k - 1].size(); ++c) {
                --steps;
                const Stop& before = stops[k - 1][c];
                const int hand = HandFor(now, before.Hand);
                const double cost = before.Cost + now.Cost + MoveCost(before.Hand, hand) + OpenCost(now, hand) +
                                    CutsCost(strums[k], (*choices[k - 1])[c], now);
                if (c == 0 || cost < best.Cost) best = {cost, static_cast<int>(c), hand};
            }
            stops[k].push_back(best);
        }
    }
    std::vector<std::vector<int>> path(strums.size());
    std::size_t at = 0;
    for (std::size_t k = strums.size(); k-- > 0;) {
        if (k + 1 == strums.size()) {
            const auto last = std::ranges::min_element(stops[k], {}, &Stop::Cost);
            at = static_cast<std::size_t>(last - stops[k].begin());
        }
        path[k] = (*choices[k])[at].Strings;
        path[k].resize(strums[k].size(), None);
        at = static_cast<std::size_t>(stops[k][at].From);
    }
    return path;
}

}  // namespace Quillon::Exchange
