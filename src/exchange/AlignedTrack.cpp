#include "exchange/AlignedTrack.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <optional>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/DrumLetters.h"
#include "exchange/FingerPath.h"
#include "exchange/FingeringEvent.h"
#include "exchange/MidiStrums.h"
#include "playback/MIDI_CMD.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Exchange {

namespace {

constexpr int None = -1;

/// Strings that a part may be played on, the highest first; see Core::Track::Tuning for those of a guitar.
struct Stringing {
    int Strings;
    std::array<int, Core::StringCount> Open;
};
constexpr Stringing Guitars[] = {{6, {64, 59, 55, 50, 45, 40, 35}},
                                 {6, {64, 59, 55, 50, 45, 38, 35}},
                                 {7, {64, 59, 55, 50, 45, 40, 35}},
                                 {7, {64, 59, 55, 50, 45, 40, 33}},
                                 {7, {52, 47, 43, 38, 33, 28, 23}}};
constexpr Stringing Basses[] = {{4, {43, 38, 33, 28, 0, 0, 0}},
                                {5, {43, 38, 33, 28, 23, 0, 0}},
                                {6, {48, 43, 38, 33, 28, 23, 0}},
                                {7, {52, 47, 43, 38, 33, 28, 23}},
                                {6, {64, 59, 55, 50, 45, 40, 35}}};

/// The first that reaches all notes, else the one that reaches most.
template <std::size_t Count>
const Stringing& StringingFor(const MidiPart& part, const Stringing (&kinds)[Count]) {
    const Stringing* best = nullptr;
    std::ptrdiff_t most = -1;
    for (const Stringing& each : kinds) {
        const Fretboard board{each.Open, each.Strings};
        const auto reached =
            std::ranges::count_if(part.Notes, [&](const MidiNote& note) { return board.Reaches(note.Key); });
        if (reached <= most) continue;
        most = reached;
        best = &each;
    }
    return *best;
}

void GiveStrings(const MidiPart& part, Core::Track& track) {
    track.ShowBass = IsBass(part);
    track.ShowTreble = !track.ShowBass;
    const Stringing& stringing = IsBass(part) ? StringingFor(part, Basses) : StringingFor(part, Guitars);
    track.Strings = static_cast<std::int16_t>(stringing.Strings);
    for (int string = 0; string < stringing.Strings; ++string) {
        track.Tuning[string] = static_cast<std::int16_t>(stringing.Open.at(static_cast<std::size_t>(string)) -
                                                         Core::StandardPitches[string]);
    }
}

/// The velocities of the dynamics 0 to 7 at a track's volume.
std::array<int, 8> Velocities(Core::Track& track, std::int16_t volume) {
    std::array<int, 8> velocities{};
    Core::Note note;
    track.Volume = volume;
    for (; note.Dynamic < 8; ++note.Dynamic) {
        velocities.at(static_cast<std::size_t>(note.Dynamic)) = Playback::getVolume(track, note);
    }
    return velocities;
}

std::int32_t NearestDynamic(const std::array<int, 8>& velocities, int velocity) {
    const auto nearest = std::ranges::min_element(velocities, {}, [&](int each) { return std::abs(each - velocity); });
    return static_cast<std::int32_t>(nearest - velocities.begin());
}

/// Gives the track the volume at which its dynamics come nearest to the part's velocities.
std::array<int, 8> FitVolume(const MidiPart& part, Core::Track& track) {
    constexpr std::int16_t Usual = 50;
    std::map<int, std::int64_t> counts;
    for (const MidiNote& note : part.Notes) ++counts[note.Velocity];
    std::int16_t best = Usual;
    std::int64_t least = -1;
    for (std::int16_t volume = Usual; volume >= 0; --volume) {
        const auto velocities = Velocities(track, volume);
        std::int64_t error = 0;
        for (const auto& [velocity, count] : counts) {
            const int given = velocities.at(static_cast<std::size_t>(NearestDynamic(velocities, velocity)));
            error += count * std::abs(given - velocity);
        }
        if (least >= 0 && error >= least) continue;
        least = error;
        best = volume;
    }
    return Velocities(track, best);
}

/// Writes the strums of a part into its track.
class Writer {
public:
    Writer(const MidiGrid& on, const MidiPart& of, int number, AlignedRoom& has, ImportReport& to)
        : grid(on), part(of), trackNumber(number), room(has), report(to), notes(on.NotesOf(of)) {}

    AlignedTrack Run() {
        Core::Track& track = made.Track;
        track.IsDrum = part.IsDrum;
        told = TakeFingering(part, track);
        if (!told && !part.IsDrum) GiveStrings(part, track);
        velocities = FitVolume(part, track);
        const NoteEnds ends = told ? NoteEnds::Exact : part.IsDrum ? NoteEnds::Drums : NoteEnds::Played;
        pieces = StrumsOf(grid, notes, ends);
        CountPieces();
        report.NotesFound += static_cast<int>(notes.size());
        if (part.IsDrum) {
            PlaceDrums();
        } else {
            PlacePitches();
        }
        WriteBars();
        TellRest();
        return std::move(made);
    }

private:
    static void Use(std::int64_t& left, std::int64_t wanted) {
        left -= wanted;
        if (left < 0) RaiseOverflow();
    }
    void CountPieces() {
        Use(room.Pieces, std::ssize(pieces));
        int sounding = -1;
        for (std::size_t p = 0, first = 0; p < pieces.size(); ++p) {
            if (pieces[p].Bar != pieces[first].Bar) first = p;
            if (!pieces[p].Struck.empty() || !pieces[p].Held.empty()) sounding = pieces[p].Bar;
            const bool endsBar = p + 1 == pieces.size() || pieces[p + 1].Bar != pieces[p].Bar;
            if (endsBar && sounding == pieces[p].Bar) Use(room.Strums, static_cast<std::int64_t>(p - first) + 1);
        }
    }
    const GridNote& Note(int index) const { return notes[static_cast<std::size_t>(index)]; }
    int& StringOf(std::size_t piece, int note) { return strings[piece][static_cast<std::size_t>(note)]; }

    void Lose(const StrumPiece& piece, const char* key, int note) {
        report.Add({ImportFate::Lost, 1, trackNumber, piece.Bar, 0, key, {Core::NoteName(Note(note).Key)}});
    }

    /// The strings of a piece's notes, those that are struck first.
    void PlacePitches() {
        Fretboard board{{}, made.Track.Strings};
        for (int string = 0; string < made.Track.Strings; ++string) {
            board.Open.at(static_cast<std::size_t>(string)) =
                Core::OpenPitch(made.Track, string) + Playback::GetOctaveShift(made.Track);
        }
        if (told) {
            for (const StrumPiece& piece : pieces) strings.push_back(ToldStrings(piece, board));
        } else {
            strings = FingerPath(board, FingerStrums(), room.FingerSteps);
        }
        for (std::size_t p = 0; p < pieces.size(); ++p) {
            for (std::size_t n = 0; n < pieces[p].Struck.size(); ++n) {
                if (strings[p][n] != None) continue;
                const bool outside = !board.Reaches(Note(pieces[p].Struck[n]).Key);
                Lose(pieces[p], outside ? "str_ImportOutOfRange" : "str_ImportNoString", pieces[p].Struck[n]);
            }
        }
        open = board.Open;
    }

    std::vector<FingerStrum> FingerStrums() const {
        std::vector<FingerStrum> strums;
        const StrumPiece* before = nullptr;
        for (const StrumPiece& piece : pieces) {
            FingerStrum strum;
            for (const int note : piece.Struck) strum.push_back({Note(note).Key, None});
            for (const int note : piece.Held) strum.push_back({Note(note).Key, IndexIn(*before, note)});
            strums.push_back(std::move(strum));
            before = &piece;
        }
        return strums;
    }

    static int IndexIn(const StrumPiece& piece, int note) {
        const auto struck = std::ranges::find(piece.Struck, note);
        if (struck != piece.Struck.end()) return static_cast<int>(struck - piece.Struck.begin());
        const auto held = std::ranges::find(piece.Held, note);
        if (held == piece.Held.end()) return None;
        return static_cast<int>(std::ssize(piece.Struck) + (held - piece.Held.begin()));
    }

    std::vector<int> ToldStrings(const StrumPiece& piece, const Fretboard& board) const {
        std::vector<int> chosen;
        std::array<bool, Core::StringCount> taken{};
        const auto take = [&](int note, bool mayMove) {
            const auto fits = [&](int string) {
                if (string >= board.Strings || taken.at(static_cast<std::size_t>(string))) return false;
                const int fret = Note(note).Key - board.Open.at(static_cast<std::size_t>(string));
                return fret >= 0;
            };
            int string = told->Strings[static_cast<std::size_t>(Note(note).Index)];
            if (!fits(string) && mayMove) {
                string = 0;
                while (string < board.Strings && !fits(string)) ++string;
            }
            const bool found = fits(string);
            if (found) taken.at(static_cast<std::size_t>(string)) = true;
            chosen.push_back(found ? string : None);
        };
        for (const int note : piece.Struck) take(note, true);
        for (const int note : piece.Held) take(note, false);
        return chosen;
    }

    void PlaceDrums() {
        for (const StrumPiece& piece : pieces) {
            std::array<bool, Core::StringCount> taken{};
            std::vector<int> chosen;
            for (const int note : piece.Struck) {
                const int string = StringForDrum(note, taken);
                if (string != None) taken.at(static_cast<std::size_t>(string)) = true;
                if (string == None) Lose(piece, "str_ImportNoDrum", note);
                chosen.push_back(string);
            }
            chosen.resize(chosen.size() + piece.Held.size(), None);
            strings.push_back(std::move(chosen));
        }
    }

    const char* DrumLetter(int note, int string) {
        const int sound = Note(note).Key - Playback::DrumPitchBase;
        if (sound == 0) return nullptr;  // that means none
        return LetterForDrum(made.Track.PercStrings[string], static_cast<std::int16_t>(sound));
    }

    /// The string where the sound belongs, or the nearest that is free and has a letter for it.
    int StringForDrum(int note, const std::array<bool, Core::StringCount>& taken) {
        const int home = told ? told->Strings[static_cast<std::size_t>(Note(note).Index)] : HomeOfDrum(Note(note).Key);
        for (int away = 0; away < Core::StringCount; ++away) {
            for (const int string : {home - away, home + away}) {
                if (string < 0 || string >= made.Track.Strings || taken.at(static_cast<std::size_t>(string))) continue;
                if (DrumLetter(note, string)) return string;
            }
        }
        return None;
    }

    void WriteBars() {
        made.Track.Bars.Resize(static_cast<int>(grid.Bars().size()));
        std::map<std::int64_t, Core::Bar> rests;  // by length: silent bars share their strums
        Core::Strum* before = nullptr;
        for (std::size_t p = 0; p < pieces.size();) {
            const std::size_t first = p;
            const int bar = pieces[first].Bar;
            bool silent = true;
            for (; p < pieces.size() && pieces[p].Bar == bar; ++p) {
                made.Starts.push_back({pieces[p].Start, bar, static_cast<int>(p - first)});
                silent = silent && pieces[p].Struck.empty() && pieces[p].Held.empty();
            }
            Core::Bar& written = made.Track.Bars.Edit(bar);
            const std::int64_t length = grid.Bars()[static_cast<std::size_t>(bar)].Length;
            if (silent && rests.contains(length)) {
                written = rests[length];
                continue;
            }
            auto& strums = written.EditStrums();
            strums.Resize(static_cast<int>(p - first));
            for (std::size_t piece = first; piece < p; ++piece) {
                Core::Strum& strum = strums[piece - first];
                pieces[piece].Value.Give(strum);
                WriteNotes(piece, strum, before);
                before = &strum;
            }
            if (silent) rests[length] = written;
        }
    }

    void WriteNotes(std::size_t p, Core::Strum& strum, Core::Strum* before) {
        const StrumPiece& piece = pieces[p];
        for (std::size_t n = 0; n < strings[p].size(); ++n) {
            const bool isHeld = n >= piece.Struck.size();
            const int note = isHeld ? piece.Held[n - piece.Struck.size()] : piece.Struck[n];
            const int string = strings[p][n];
            if (isHeld) {
                const int from = IndexIn(pieces[p - 1], note);
                const int held = from == None ? None : strings[p - 1][static_cast<std::size_t>(from)];
                if (string == None || held != string) {
                    if (held != None) ++cut;
                    strings[p][n] = None;
                    continue;
                }
                before->Notes.Edit(string).Tied = true;
            }
            if (string == None) continue;
            if (!isHeld) ++report.NotesKept;
            Use(room.Notes, 1);
            Core::Note& written = strum.Notes.Edit(string);
            written.Fret = part.IsDrum ? DrumLetter(note, string)
                                       : std::to_string(Note(note).Key - open.at(static_cast<std::size_t>(string)));
            written.Dynamic = NearestDynamic(velocities, Note(note).Velocity);
        }
    }

    /// What befell notes that were kept, in a line for the whole track.
    void TellRest() {
        const auto tell = [&](int count, const char* key, int befallen) {
            if (count > 0) {
                report.Add({ImportFate::Moved, befallen, trackNumber, -1, 0, key, {std::to_string(count)}});
            }
        };
        int moved = 0;
        for (const GridNote& note : notes) {
            const std::int64_t from = grid.PlaceOf(part.Notes[static_cast<std::size_t>(note.Index)].Start);
            moved += std::abs(note.Start - from) > UnitsPer64th ? 1 : 0;
        }
        tell(moved, "str_ImportMovedToGrid", moved);
        tell(cut, "str_ImportCutShort", 0);
        tell(part.WheelMoves, "str_ImportWheel", 0);
        tell(part.LaterPrograms, "str_ImportPrograms", 0);
    }

    const MidiGrid& grid;
    const MidiPart& part;
    int trackNumber;
    AlignedRoom& room;
    ImportReport& report;
    std::vector<GridNote> notes;
    AlignedTrack made;
    std::optional<ToldFingering> told;
    std::array<int, 8> velocities{};
    std::vector<StrumPiece> pieces;
    std::vector<std::vector<int>> strings;  ///< by piece, then by its notes, those struck first
    std::array<int, Core::StringCount> open{};
    int cut = 0;
};

}  // namespace

bool IsBass(const MidiPart& part) {
    constexpr int FirstBass = 32;
    constexpr int LastBass = 39;
    if (part.Program >= FirstBass && part.Program <= LastBass) return true;
    return Core::UpperAscii(part.Name + "\n" + part.Instrument).find("BASS") != std::string::npos;
}

AlignedTrack AlignPart(const MidiGrid& grid, const MidiPart& part, int number, AlignedRoom& room,
                       ImportReport& report) {
    return Writer(grid, part, number, room, report).Run();
}

}  // namespace Quillon::Exchange
