// MIDI output as an operating system gives it: outputs by number, each opened for short messages alone.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace Quillon {

/// Number of the mapper: the built-in synthesizer.
constexpr int MidiMapper = -1;

/// One open output, closed when destroyed.
struct MidiDevice {
    virtual ~MidiDevice() = default;
    /// Sends one message at once: nothing is queued, kept back or allocated. The arguments are taken as the callers
    /// worked them out, see BytesOfMessage. 0, or an error code that MidiOutputs::ErrorText explains.
    virtual int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) = 0;
};

/// The outputs of the machine: the mapper, and ports from 0 to Count() - 1.
struct MidiOutputs {
    virtual ~MidiOutputs() = default;
    /// Ports there are now; looks anew at each call.
    virtual int Count() = 0;
    /// Name of a port or the mapper; nothing when it can't be read.
    virtual std::optional<std::string> Name(int number) = 0;
    /// Opens an output. Nothing when it can't be opened; `error` then tells why.
    virtual std::unique_ptr<MidiDevice> Open(int number, int& error) = 0;
    virtual std::string ErrorText(int error) = 0;
};

/// Error codes of every output; others belong to a kind of output.
enum MidiError : int { MidiOk = 0, MidiNoDevice = 2, MidiNotOpen = 5 };

struct MidiBytes {
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;
};

/// What a driver makes of a message with bytes that no device takes: a controller or program past 7 bits drops the
/// message, as does a note; a velocity or a wheel byte is limited. Nothing when it is dropped.
std::optional<MidiBytes> BytesOfMessage(std::int16_t status, std::int16_t data1, std::int16_t data2);

}  // namespace Quillon
