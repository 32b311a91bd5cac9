// Notes by pitch, and drum sounds by lane.
#include <algorithm>
#include <array>

#include "core/mod_Common.h"
#include "core/mod_Instruments.h"
#include "core/mod_TabFileManipulation.h"
#include "editing/mod_Cursor.h"
#include "editing/mod_NoteEntry.h"
#include "editing/mod_NoteMarks.h"

namespace Quillon::Editing {

using Core::OpenDocument;
using Core::PercAssignment;
using Core::Strum;
using Core::Track;

namespace {

/// How a note is told, and written, at the cursor's place on the staff, string by string.
struct Place {
    virtual ~Place() = default;
    virtual bool Holds(int string, const std::string& fret) const = 0;
    /// The text that a note has there; "" when the string can't have it.
    virtual std::string Text(int string) const = 0;
};

bool Toggle(OpenDocument& open, const Place& place) {
    const Strum& strum = StrumAtCursor(open);
    const int last = LastString(open.TabFile.Tracks[open.CurTrack]);
    for (int s = 0; s <= last; ++s) {
        if (strum.Notes[s].Fret.empty() || !place.Holds(s, strum.Notes[s].Fret)) continue;
        EditStrumAtCursor(open).Notes.Edit(s).Fret.clear();
        return true;
    }
    for (int s = 0; s <= last; ++s) {
        if (!strum.Notes[s].Fret.empty()) continue;
        const std::string text = place.Text(s);
        if (text.empty()) continue;
        EditStrumAtCursor(open).Notes.Edit(s).Fret = text;
        open.CurString = Core::ToInt16(s);
        return true;
    }
    return false;
}

struct PitchPlace final : Place {
    PitchPlace(const Track& of, int at) : track(of), pitch(at) {}
    bool Holds(int string, const std::string& fret) const override {
        const int number = FretNumber(fret);
        return number >= 0 && Core::OpenPitch(track, string) + number == pitch;
    }
    std::string Text(int string) const override {
        const int fret = pitch - Core::OpenPitch(track, string);
        return fret >= 0 && fret <= HighestFret ? std::to_string(fret) : "";
    }
    const Track& track;
    int pitch;
};

struct LanePlace final : Place {
    LanePlace(const Track& of, int at) : track(of), lane(at) {}
    bool Holds(int string, const std::string& fret) const override {
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            if (letter.Letter == fret) return LaneOfSound(track.PercStrings[string].*letter.Sound) == lane;
        }
        return false;
    }
    std::string Text(int string) const override {
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            if (LaneOfSound(track.PercStrings[string].*letter.Sound) == lane) return letter.Letter;
        }
        return "";
    }
    const Track& track;
    int lane;
};

}  // namespace

bool PercNoteIsOnThisString(const Track& track, int string, int lane) {
    return lane >= 0 && !LanePlace(track, lane).Text(string).empty();
}

bool ToggleNotationNote(OpenDocument& open) {
    const Track& track = open.TabFile.Tracks[open.CurTrack];
    return track.IsDrum ? Toggle(open, LanePlace(track, open.CurPitch))
                        : Toggle(open, PitchPlace(track, open.CurPitch));
}

namespace {

std::int16_t PlaceAtCursor(const OpenDocument& open) {
    const Track& track = open.TabFile.Tracks[open.CurTrack];
    const std::string& fret = NoteAtCursor(open).Fret;
    if (!track.IsDrum) return Core::ToInt16(Core::OpenPitch(track, open.CurString) + std::max(0, FretNumber(fret)));
    for (int lane = 0; lane < LaneCount; ++lane) {
        if (LanePlace(track, lane).Holds(open.CurString, fret)) return Core::ToInt16(lane);
    }
    return open.CurPitch;
}

std::int16_t StringAtCursor(const OpenDocument& open, const Place& place) {
    const Strum& strum = StrumAtCursor(open);
    const int last = LastString(open.TabFile.Tracks[open.CurTrack]);
    for (int s = 0; s <= last; ++s) {
        if (!strum.Notes[s].Fret.empty() && place.Holds(s, strum.Notes[s].Fret)) return Core::ToInt16(s);
    }
    if (!place.Text(open.CurString).empty()) return open.CurString;
    for (int s = 0; s <= last; ++s) {
        if (!place.Text(s).empty()) return Core::ToInt16(s);
    }
    return open.CurString;
}

}  // namespace

void SetInputMode(OpenDocument& open, std::int16_t mode) {
    const Track& track = open.TabFile.Tracks[open.CurTrack];
    if (mode == open.InputMode) return;
    open.InputMode = mode;
    if (mode != Core::TabInput) {
        open.CurPitch = PlaceAtCursor(open);
    } else if (track.IsDrum) {
        open.CurString = StringAtCursor(open, LanePlace(track, open.CurPitch));
    } else {
        open.CurString = StringAtCursor(open, PitchPlace(track, open.CurPitch));
    }
    ClampCursor(open);
}

std::string_view DrumLetter(KeyPress key) {
    switch (key.Code) {
        case 'O':
            return key.Shift ? "O" : "o";
        case 'X':
            return key.Shift ? "X" : "x";
        case 'R':
            return key.Shift ? "~" : "r";
        case 'F':
            return key.Shift ? "F" : "f";
        case 'S':
            return key.Shift ? "S" : "s";
        case 'C':
            return key.Shift ? "" : "c";
        case 'T':
            return key.Shift ? "" : "t";
        default:
            return "";
    }
}

Core::Row<PercAssignment, Core::StringCount> DefaultDrumSounds() {
    struct Sound {
        int String;
        const char* Letter;
        std::int16_t Number;  // in the list of drum sounds
    };
    static constexpr Sound Sounds[] = {
        {0, "x", 21}, {0, "X", 15}, {0, "o", 25}, {0, "O", 17}, {0, "s", 23}, {0, "c", 18}, {0, "r", 19},  // cymbals
        {1, "x", 8},  {1, "o", 12}, {1, "f", 10},                                                          // hi-hat
        {2, "o", 16}, {2, "O", 14},                                                                        // high toms
        {3, "o", 4},  {3, "O", 6},  {3, "x", 3},  {3, "c", 5},                                             // snare
        {4, "o", 13}, {4, "O", 11}, {4, "f", 9},  {4, "F", 7},                                             // low toms
        {5, "o", 2},  {5, "O", 1},                                                                         // bass drum
        {6, "x", 22}, {6, "o", 20}, {6, "s", 34}, {6, "c", 40}, {6, "t", 45}, {6, "f", 35},                // by hand
    };
    Core::Row<PercAssignment, Core::StringCount> strings;
    for (const Sound& sound : Sounds) {
        for (const Core::PercussionLetter& letter : Core::PercussionLetters()) {
            if (std::string_view(letter.Letter) == sound.Letter) strings[sound.String].*letter.Sound = sound.Number;
        }
    }
    return strings;
}

}  // namespace Quillon::Editing
