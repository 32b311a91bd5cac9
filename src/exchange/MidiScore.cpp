#include "exchange/MidiScore.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "core/mod_Common.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

namespace {

constexpr int Channels = 16;

/// Keeps one entry of each tick: the last.
template <class Entry>
void SortByTick(std::vector<Entry>& entries) {
    std::ranges::stable_sort(entries, {}, &Entry::Tick);
    std::vector<Entry> kept;
    for (const Entry& each : entries) {
        if (!kept.empty() && kept.back().Tick == each.Tick) kept.pop_back();
        kept.push_back(each);
    }
    entries = std::move(kept);
}

/// What holds for all tracks.
void NoteMeta(const SmfEvent& event, std::int64_t tick, MidiScore& score) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(event.Bytes[at]); };
    if (event.Data1 == SmfTempo && event.Bytes.size() >= 3) {
        constexpr double MicrosecondsOfMinute = 60'000'000;
        const int quarter = byte(0) << 16 | byte(1) << 8 | byte(2);
        if (quarter > 0) score.Tempos.push_back({tick, MicrosecondsOfMinute / quarter});
    } else if (event.Data1 == SmfTimeSignature && event.Bytes.size() >= 2) {
        constexpr int HighestPower = 6;
        const int power = std::min<int>(byte(1), HighestPower);
        if (byte(0) > 0) score.Signatures.push_back({tick, byte(0), 1 << power});
    } else if (event.Data1 == SmfKeySignature && event.Bytes.size() >= 2) {
        const int sharps = static_cast<signed char>(event.Bytes[0]);
        if (sharps >= -7 && sharps <= 7) score.Keys.push_back({tick, sharps, byte(1) != 0});
    } else if (event.Data1 >= SmfText && event.Data1 < 0x10 && event.Data1 != SmfTrackName &&
               event.Data1 != SmfInstrumentName) {
        ++score.Texts;
    }
}

/// One track of the file, split by channel.
class TrackReader {
public:
    explicit TrackReader(int number) : track(number) {}

    void Take(const SmfEvent& event, std::int64_t tick) {
        if (event.Status == SmfEvent::Meta) {
            if (event.Data1 == SmfTrackName && !name) name = MidiText(event.Bytes);
            if (event.Data1 == SmfInstrumentName && !instrument) instrument = MidiText(event.Bytes);
            if (event.Data1 == SmfSequencerOwn) fingering = event.Bytes;
            return;
        }
        if (event.Status >= SmfEvent::SystemExclusive) return;
        Voice& voice = voices.at(event.Status & 0xFU);
        switch (event.Status >> 4) {
            case 9:
                if (event.Data2 == 0) return End(voice, event.Data1, tick);
                voice.Sounding[event.Data1].Struck.push_back(voice.Notes.size());
                voice.Notes.push_back({{tick, -1, event.Data1, event.Data2}, order++});
                return;
            case 8:
                return End(voice, event.Data1, tick);
            case 0xC:
                if (!voice.Program) {
                    voice.Program = event.Data1;
                } else if (voice.Notes.empty()) {
                    voice.Program = event.Data1;
                } else if (*voice.Program != event.Data1) {
                    ++voice.LaterPrograms;
                }
                return;
            case 0xE:
                ++voice.WheelMoves;
                return;
            default:
                return;
        }
    }

    /// Each channel makes a part. Only in a track of our own a second channel of the same program is that of effects.
    void Finish(std::int64_t end, std::vector<MidiPart>& parts) {
        struct Gathered {
            MidiPart Part;
            std::vector<Ordered> Notes;
            int ChannelCount = 0;
        };
        std::vector<Gathered> found;
        for (int channel = 0; channel < Channels; ++channel) {
            Voice& voice = voices[static_cast<std::size_t>(channel)];
            if (voice.Notes.empty() && !voice.Program) continue;
            const int program = voice.Program.value_or(0);
            const bool isDrum = channel == MidiDrumChannel;
            auto into = std::ranges::find_if(found, [&](const Gathered& each) {
                return !fingering.empty() && !isDrum && !each.Part.IsDrum && each.Part.Program == program;
            });
            if (into == found.end()) {
                MidiPart part{track, name.value_or(""), instrument.value_or(""), channel, -1, program, isDrum};
                into = found.insert(found.end(), {std::move(part), {}, 0});
            }
            if (++into->ChannelCount == 2) into->Part.EffectChannel = channel;
            into->Part.WheelMoves += voice.WheelMoves;
            into->Part.LaterPrograms += voice.LaterPrograms;
            for (Ordered& note : voice.Notes) {
                if (note.Note.End < 0) note.Note.End = end;
                into->Notes.push_back(note);
            }
        }
        // A program chosen for a channel without notes is none of its own where others sound.
        const bool anyNotes = std::ranges::any_of(found, [](const Gathered& each) { return !each.Notes.empty(); });
        for (Gathered& each : found) {
            if (anyNotes && each.Notes.empty()) continue;
            std::ranges::sort(each.Notes, {}, &Ordered::Order);
            for (const Ordered& note : each.Notes) each.Part.Notes.push_back(note.Note);
            if (found.size() == 1) each.Part.Fingering = fingering;
            parts.push_back(std::move(each.Part));
            if (!anyNotes) break;
        }
    }

private:
    struct Ordered {
        MidiNote Note;
        std::size_t Order = 0;
    };
    /// Notes of a key, the first struck first.
    struct Queue {
        std::vector<std::size_t> Struck;
        std::size_t Ended = 0;
    };
    struct Voice {
        std::optional<int> Program;
        std::vector<Ordered> Notes;
        std::map<int, Queue> Sounding;  ///< by key
        int WheelMoves = 0;
        int LaterPrograms = 0;
    };

    static void End(Voice& voice, std::uint8_t key, std::int64_t tick) {
        Queue& queue = voice.Sounding[key];
        if (queue.Ended < queue.Struck.size()) voice.Notes[queue.Struck[queue.Ended++]].Note.End = tick;
    }

    int track;
    std::optional<std::string> name;
    std::optional<std::string> instrument;
    std::string fingering;
    std::array<Voice, Channels> voices;
    std::size_t order = 0;
};

/// Parts with one channel get a second one that nothing in the file uses.
void FindEffectChannels(std::vector<MidiPart>& parts) {
    std::array<bool, Channels> used{};
    used[MidiDrumChannel] = true;
    for (const MidiPart& part : parts) {
        used.at(static_cast<std::size_t>(part.Channel)) = true;
        if (part.EffectChannel >= 0) used.at(static_cast<std::size_t>(part.EffectChannel)) = true;
    }
    for (MidiPart& part : parts) {
        if (part.EffectChannel >= 0) continue;
        const auto free = std::ranges::find(used, false);
        part.EffectChannel = part.Channel;
        if (free == used.end() || part.IsDrum) continue;
        *free = true;
        part.EffectChannel = static_cast<int>(free - used.begin());
    }
}

}  // namespace

std::string MidiText(const std::string& bytes) { return Core::IsUtf8(bytes) ? bytes : Core::FromWindows1252(bytes); }

std::vector<int> ChosenMidiTracks(const SmfFile& midi, std::vector<int> numbers) {
    const auto count = static_cast<int>(midi.Tracks.size());
    if (numbers.empty()) {
        for (int number = 1; number <= count; ++number) numbers.push_back(number);
    }
    std::ranges::sort(numbers);
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    if (!numbers.empty() && (numbers.front() < 1 || numbers.back() > count)) RaiseSubscriptOutOfRange();
    return numbers;
}

MidiScore ReadMidiScore(const SmfFile& midi, const std::vector<int>& tracks) {
    MidiScore score;
    score.TicksPerQuarter = midi.TicksPerQuarter;
    const std::vector<int> chosen = ChosenMidiTracks(midi, tracks);
    for (int number = 1; number <= static_cast<int>(midi.Tracks.size()); ++number) {
        const bool isChosen = std::ranges::binary_search(chosen, number);
        TrackReader reader(number);
        std::int64_t tick = 0;
        for (const SmfEvent& event : midi.Tracks[static_cast<std::size_t>(number - 1)]) {
            tick += event.Delta;
            if (event.Status == SmfEvent::Meta) NoteMeta(event, tick, score);
            if (isChosen) reader.Take(event, tick);
        }
        score.End = std::max(score.End, tick);
        if (isChosen) reader.Finish(tick, score.Parts);
    }
    FindEffectChannels(score.Parts);
    SortByTick(score.Tempos);
    SortByTick(score.Signatures);
    SortByTick(score.Keys);
    return score;
}

}  // namespace Quillon::Exchange
