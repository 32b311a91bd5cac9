// Standard MIDI files, byte by byte.
#include <algorithm>

#include "platform/RunTimeError.h"
#include "platform/SmfCursor.h"

namespace Quillon {

namespace {

constexpr std::size_t ChunkHead = 8;
constexpr std::uint32_t MostOfVariable = 0x0FFFFFFF;  ///< of a number in groups of seven bits

[[noreturn]] void Damaged() {
    constexpr int BadFileFormat = 321;
    throw RunTimeError(BadFileFormat, "Bad file format");
}

[[noreturn]] void TooLarge() {
    constexpr int Overflow = 6;
    throw RunTimeError(Overflow, "Overflow");
}

/// Takes bytes from the front and never past the end.
class Source {
public:
    explicit Source(std::string_view of) : bytes(of) {}

    bool AtEnd() const { return bytes.empty(); }
    std::size_t Left() const { return bytes.size(); }
    std::uint8_t Peek() const {
        if (bytes.empty()) Damaged();
        return static_cast<std::uint8_t>(bytes.front());
    }
    std::uint8_t Byte() {
        const std::uint8_t byte = Peek();
        bytes.remove_prefix(1);
        return byte;
    }
    std::uint32_t Number(int count) {
        std::uint32_t number = 0;
        for (int i = 0; i < count; ++i) number = number << 8 | Byte();
        return number;
    }
    /// Groups of seven bits, of which the last has a clear top bit.
    std::uint32_t Variable() {
        constexpr int Longest = 4;
        std::uint32_t number = 0;
        for (int i = 0; i < Longest; ++i) {
            const std::uint8_t byte = Byte();
            number = number << 7 | (byte & 0x7FU);
            if (byte < 0x80) return number;
        }
        Damaged();
    }
    std::string_view Take(std::size_t count) {
        if (count > bytes.size()) Damaged();
        const std::string_view taken = bytes.substr(0, count);
        bytes.remove_prefix(count);
        return taken;
    }
    std::uint8_t Data() {
        const std::uint8_t byte = Byte();
        if (byte > 0x7F) Damaged();
        return byte;
    }

private:
    std::string_view bytes;
};

/// Program changes and channel pressure have one data byte.
bool HasOneDataByte(std::uint8_t status) { return (status & 0xE0) == 0xC0; }

std::vector<SmfEvent> ReadTrack(Source source) {
    std::vector<SmfEvent> events;
    std::uint8_t running = 0;
    while (!source.AtEnd()) {
        SmfEvent event;
        event.Delta = source.Variable();
        if (source.Peek() >= 0x80) {
            event.Status = source.Byte();
            if (event.Status < 0xF0) running = event.Status;
        } else {
            // Meta events between them end running status by the book; writers there are that go on.
            if (running == 0) Damaged();
            event.Status = running;
        }
        if (event.Status == SmfEvent::Meta) {
            event.Data1 = source.Data();
            event.Bytes = source.Take(source.Variable());
        } else if (event.Status == SmfEvent::SystemExclusive || event.Status == 0xF7) {
            event.Bytes = source.Take(source.Variable());
        } else if (event.Status > 0xF0) {
            Damaged();  // messages that no file holds
        } else {
            event.Data1 = source.Data();
            if (!HasOneDataByte(event.Status)) event.Data2 = source.Data();
        }
        const bool ends = event.Status == SmfEvent::Meta && event.Data1 == SmfEndOfTrack;
        events.push_back(std::move(event));
        if (ends) break;
    }
    return events;
}

void PutNumber(std::string& bytes, std::uint32_t number, int count) {
    for (int shift = (count - 1) * 8; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFFU);
}

void PutVariable(std::string& bytes, std::size_t number) {
    if (number > MostOfVariable) TooLarge();
    for (int shift = 21; shift > 0; shift -= 7) {
        if (number >> shift != 0) bytes += static_cast<char>((number >> shift & 0x7FU) | 0x80U);
    }
    bytes += static_cast<char>(number & 0x7FU);
}

void PutEvent(std::string& bytes, const SmfEvent& event) {
    PutVariable(bytes, event.Delta);
    bytes += static_cast<char>(event.Status);
    if (event.Status == SmfEvent::Meta) bytes += static_cast<char>(event.Data1);
    if (event.Status >= 0xF0) {
        PutVariable(bytes, event.Bytes.size());
        bytes += event.Bytes;
        return;
    }
    bytes += static_cast<char>(event.Data1);
    if (!HasOneDataByte(event.Status)) bytes += static_cast<char>(event.Data2);
}

void PutChunk(std::string& file, std::string_view kind, const std::string& bytes) {
    if (bytes.size() > 0xFFFFFFFFU) TooLarge();
    file += kind;
    PutNumber(file, static_cast<std::uint32_t>(bytes.size()), 4);
    file += bytes;
}

}  // namespace

SmfFile ReadSmf(std::string_view bytes) {
    constexpr std::size_t HeadLength = 6;
    Source source(bytes);
    if (source.Take(4) != "MThd") Damaged();
    const std::uint32_t length = source.Number(4);
    if (length < HeadLength) Damaged();
    Source head(source.Take(length));
    SmfFile file;
    file.Format = static_cast<int>(head.Number(2));
    const std::uint32_t tracks = head.Number(2);
    file.TicksPerQuarter = static_cast<int>(head.Number(2));
    constexpr int Frames = 0x8000;
    if (file.Format > 1 || tracks == 0 || file.TicksPerQuarter == 0 || file.TicksPerQuarter >= Frames) Damaged();
    while (file.Tracks.size() < tracks) {
        if (source.Left() < ChunkHead) Damaged();
        const std::string_view kind = source.Take(4);
        const std::string_view chunk = source.Take(source.Number(4));
        if (kind == "MTrk") file.Tracks.push_back(ReadTrack(Source(chunk)));
    }
    return file;
}

std::string WriteSmf(const SmfFile& file) {
    if (file.Tracks.size() > 0xFFFF || file.Format < 0 || file.Format > 1 || file.TicksPerQuarter < 1 ||
        file.TicksPerQuarter > 0x7FFF) {
        TooLarge();
    }
    std::string head;
    PutNumber(head, static_cast<std::uint32_t>(file.Format), 2);
    PutNumber(head, static_cast<std::uint32_t>(file.Tracks.size()), 2);
    PutNumber(head, static_cast<std::uint32_t>(file.TicksPerQuarter), 2);
    std::string bytes;
    PutChunk(bytes, "MThd", head);
    for (const std::vector<SmfEvent>& track : file.Tracks) {
        std::string chunk;
        for (const SmfEvent& event : track) PutEvent(chunk, event);
        const bool ended =
            !track.empty() && track.back().Status == SmfEvent::Meta && track.back().Data1 == SmfEndOfTrack;
        if (!ended) PutEvent(chunk, {0, SmfEvent::Meta, SmfEndOfTrack, 0, ""});
        PutChunk(bytes, "MTrk", chunk);
    }
    return bytes;
}

}  // namespace Quillon
