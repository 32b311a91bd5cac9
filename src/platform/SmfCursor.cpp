#include "platform/SmfCursor.h"

#include "platform/RunTimeError.h"

namespace Quillon {

namespace {

constexpr int SubscriptOutOfRange = 9;

[[noreturn]] void Outside() { throw RunTimeError(SubscriptOutOfRange, "Subscript out of range"); }

}  // namespace

void SmfCursor::SetTrackNumber(int number) {
    if (number < 1 || number > NumberOfTracks()) Outside();
    track = number;
    event = 1;
}

int SmfCursor::NumberOfEvents() const {
    if (track > NumberOfTracks()) return 0;
    return static_cast<int>(file.Tracks[static_cast<std::size_t>(track - 1)].size());
}

void SmfCursor::SetEventNumber(int number) {
    if (number < 1 || number > NumberOfEvents()) Outside();
    event = number;
}

const SmfEvent& SmfCursor::Now() const {
    if (event > NumberOfEvents()) Outside();
    return file.Tracks[static_cast<std::size_t>(track - 1)][static_cast<std::size_t>(event - 1)];
}

int SmfCursor::ByteOf(std::size_t index) const {
    const std::string& bytes = Now().Bytes;
    return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
}

int SmfCursor::Tempo() const { return Text().size() < 3 ? 0 : ByteOf(0) << 16 | ByteOf(1) << 8 | ByteOf(2); }

int SmfCursor::Numerator() const { return ByteOf(0); }

int SmfCursor::DenominatorPower() const { return ByteOf(1); }

}  // namespace Quillon
