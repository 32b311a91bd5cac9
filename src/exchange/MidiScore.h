// What a standard MIDI file tells of the music: its parts, each with its notes in ticks, and what holds for all of
// them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/SmfCursor.h"

namespace Quillon::Exchange {

constexpr int MidiDrumChannel = 9;

/// Places are ticks from the start of the song.
struct MidiNote {
    std::int64_t Start = 0;
    std::int64_t End = 0;
    int Key = 0;
    int Velocity = 0;
};

/// What sounds of one track on one channel: in a file of one track, each channel makes a part.
struct MidiPart {
    int Track = 0;  ///< of the file, from 1
    std::string Name;
    std::string Instrument;  ///< as the file names it, mostly ""
    int Channel = 0;
    int EffectChannel = 0;  ///< the part's second channel, or one that nothing uses, or Channel
    int Program = 0;
    bool IsDrum = false;
    std::vector<MidiNote> Notes{};  ///< by start, of equal ones as they stand in the file
    int WheelMoves = 0;
    int LaterPrograms = 0;    ///< program changes after its first note
    std::string Fingering{};  ///< the exporter's own event, see MidiFingering.h; mostly ""
};

struct MidiScore {
    struct Tempo {
        std::int64_t Tick = 0;
        double QuartersPerMinute = 0;
    };
    struct Signature {
        std::int64_t Tick = 0;
        int Top = 4;
        int Bottom = 4;
    };
    struct Key {
        std::int64_t Tick = 0;
        int Sharps = 0;  ///< flats below 0
        bool Minor = false;
    };
    int TicksPerQuarter = 0;
    std::int64_t End = 0;  ///< of the last event of all tracks
    std::vector<MidiPart> Parts{};
    std::vector<Tempo> Tempos{};  ///< these three by tick, each tick once
    std::vector<Signature> Signatures{};
    std::vector<Key> Keys{};
    int Texts = 0;  ///< lyrics, markers and the like, which are not read
};

/// Track numbers in the file's order, each once; all when there are none. Raises "Subscript out of range" for a track
/// that the file lacks.
std::vector<int> ChosenMidiTracks(const SmfFile& midi, std::vector<int> numbers);

/// Reads the tracks of these numbers, from 1, in the file's order; all when there are none. Tempo, signatures and keys
/// are those of the whole file. A track without notes makes a part when it chooses a program, and else none. Raises
/// "Subscript out of range" for a track that the file lacks.
MidiScore ReadMidiScore(const SmfFile& midi, const std::vector<int>& tracks);

/// A text of a file: UTF-8 where it is that, else Windows-1252.
std::string MidiText(const std::string& bytes);

}  // namespace Quillon::Exchange
