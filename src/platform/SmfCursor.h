// Standard MIDI files: what one holds, its reader and writer, and a cursor over one track and event at a time.
//
// Formats 0 and 1. A file that is damaged anywhere is refused whole; every length is checked against what is there
// before it is used.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon {

struct SmfEvent {
    static constexpr std::uint8_t Meta = 0xFF;
    static constexpr std::uint8_t SystemExclusive = 0xF0;

    std::uint32_t Delta = 0;  ///< ticks since the event before it in its track
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;  ///< the type of a meta event
    std::uint8_t Data2 = 0;  ///< 0 where the message has one data byte
    std::string Bytes;       ///< of a meta or system exclusive event
    bool operator==(const SmfEvent&) const = default;
};

/// Types of meta events.
enum SmfMeta : std::uint8_t {
    SmfText = 1,
    SmfTrackName = 3,
    SmfInstrumentName = 4,
    SmfLyric = 5,
    SmfEndOfTrack = 0x2F,
    SmfTempo = 0x51,
    SmfTimeSignature = 0x58,
    SmfKeySignature = 0x59,
    SmfSequencerOwn = 0x7F
};

struct SmfFile {
    int Format = 1;
    int TicksPerQuarter = 480;
    std::vector<std::vector<SmfEvent>> Tracks;
    bool operator==(const SmfFile&) const = default;
};

/// Raises "Bad file format" (321) for what is no Standard MIDI file of format 0 or 1, counts time in frames or in
/// nothing, or is damaged. Chunks of other kinds are passed over, and so is what stands behind the last track.
SmfFile ReadSmf(std::string_view bytes);
/// Without running status. Each track gets its end where it has none. Raises "Overflow" for what the file can't hold.
std::string WriteSmf(const SmfFile& file);

/// The place in a file from which properties are read. Tracks and events count from 1.
class SmfCursor {
public:
    explicit SmfCursor(SmfFile of) : file(std::move(of)) {}

    int NumberOfTracks() const { return static_cast<int>(file.Tracks.size()); }
    int TicksPerQuarter() const { return file.TicksPerQuarter; }
    int TrackNumber() const { return track; }
    /// Goes to a track and its first event. Raises "Subscript out of range" outside.
    void SetTrackNumber(int number);
    int NumberOfEvents() const;
    int EventNumber() const { return event; }
    void SetEventNumber(int number);

    // Of the event at the cursor.
    int Status() const { return Now().Status; }
    int Data1() const { return Now().Data1; }
    int Data2() const { return Now().Data2; }
    std::uint32_t DeltaTicks() const { return Now().Delta; }
    const std::string& Text() const { return Now().Bytes; }  ///< as it stands in the file
    bool IsMeta(SmfMeta type) const { return Now().Status == SmfEvent::Meta && Now().Data1 == type; }
    int Tempo() const;             ///< microseconds to the quarter; 0 where the event is too short for one
    int Numerator() const;         ///< of a time signature; 0 likewise
    int DenominatorPower() const;  ///< likewise

private:
    const SmfEvent& Now() const;
    int ByteOf(std::size_t index) const;

    SmfFile file;
    int track = 1;
    int event = 1;
};

}  // namespace Quillon
