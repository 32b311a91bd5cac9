// What the fuzzers do with bytes from outside. Each target is a function that throws, or trips a sanitizer, when the
// bytes find a fault; the fuzz programs call it, and the tests replay fuzz/corpus/ through it.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

#include "core/clsCryptAPI.h"
#include "core/mod_Common.h"
#include "core/mod_Language.h"
#include "core/mod_MusicFile.h"
#include "core/mod_Settings.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/AlignedImport.h"
#include "exchange/AsciiImport.h"
#include "exchange/JsonDocument.h"
#include "exchange/LinesImport.h"
#include "exchange/MidiExport.h"
#include "exchange/MidiImport.h"
#include "exchange/TextExport.h"
#include "library/ChordNaming.h"
#include "library/mod_Chords.h"
#include "library/mod_Scales.h"
#include "library/mod_Tunings.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/headless/MemoryStore.h"
#include "platform/portable/IniStore.h"
#include "platform/portable/Rc4Md5.h"
#include "playback/mod_OfflinePlay.h"
#include "shell/Recovery.h"

namespace Quillon::Fuzz {

inline void Require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

/// Plain text of a music file: read it, and what was read must settle after one more round trip.
inline void MusicText(std::string_view bytes) {
    const Core::MusicReadResult read = Core::ReadTabFileText(bytes, {});
    if (!read.Kind) return;
    if (read.Stopped) Require(!read.Stopped->Message().empty(), "damage without a message");
    for (const Core::Loss& loss : Core::SaveLosses(read.Document)) Core::LossText(loss);
    // The first round may lose what the format can't hold, a harmonic say; the second must not lose more.
    const Core::MusicReadResult first = Core::ReadTabFileText(Core::WriteTabFileText(read.Document), {});
    const std::string text = Core::WriteTabFileText(first.Document);
    const Core::MusicReadResult second = Core::ReadTabFileText(text, {});
    if (second.Stopped) return;
    Require(Core::WriteTabFileText(second.Document) == text, "the music file does not settle");
}

/// A chord file: what is read of it comes back the same, and can be sounded and named.
inline void Chord(std::string_view bytes) {
    if (const auto chord = Library::ReadChord(bytes)) {
        Library::ChordNames(Library::PitchesOf(*chord));
        for (int string = 0; string < Core::StringCount; ++string) Library::FingerText(*chord, string);
        Require(Library::ReadChord(Library::WriteChord(*chord)) == chord, "a chord does not come back");
    }
    Library::ChordTones tones;
    Library::ParseChordSymbol(bytes, tones);
}

/// A scale file, played in every key.
inline void Scale(std::string_view bytes) {
    const auto scale = Library::ReadScale(bytes);
    if (!scale) return;
    for (int key = 0; key < 12; ++key) Library::ScaleRun(*scale, key, Library::ScaleOctave::Both, true);
    Require(Library::ReadScale(Library::WriteScale(*scale)) == scale, "a scale does not come back");
}

inline void Tuning(std::string_view bytes) {
    const auto tuning = Library::ReadTuning(bytes);
    if (!tuning) return;
    Require(Library::ReadTuning(Library::WriteTuning(*tuning)) == tuning, "a tuning does not come back");
}

/// A music file as it lies on the disk.
inline void Cipher(std::string_view bytes) {
    const Rc4Md5 cipher;
    const std::string text = cipher.Apply(bytes, Core::MusicFilePassPhrase);
    Require(cipher.Apply(text, Core::MusicFilePassPhrase) == bytes, "the cipher does not undo itself");
    if (!Core::IsOldMusicFile(bytes)) MusicText(text);
}

inline void Json(std::string_view bytes) {
    Core::TabFile file;
    try {
        file = Exchange::ReadJson(bytes, MemoryStore{});
    } catch (const RunTimeError& refusal) {
        return Require(!refusal.Description().empty(), "a refusal without a reason");
    }
    const std::string text = Exchange::WriteJson(file);
    Require(Exchange::WriteJson(Exchange::ReadJson(text, MemoryStore{})) == text, "JSON does not settle");
    MusicText(Core::WriteTabFileText(file));
}

/// A text tab or a page. The first byte chooses the options.
inline void TextTab(std::string_view bytes) {
    Exchange::AsciiImportOptions options;
    const auto choice = static_cast<unsigned char>(bytes.empty() ? 4 : bytes.front());
    options.Dash = choice % 7;
    options.SameLength = (choice & 8) != 0;
    options.Details = (choice & 16) != 0;
    if (choice & 32) options.Timing = Exchange::TimeSignature{choice % 32 + 1, 8};
    Core::TabFile file;
    file.Tracks.Add(Core::Track{});
    try {
        Exchange::ImportTextTab(file, choice >> 7, Exchange::TextOfBytes(bytes), options);
    } catch (const RunTimeError& refusal) {
        return Require(!refusal.Description().empty(), "a refusal without a reason");
    }
    for (const Core::Track& track : file.Tracks) {
        Require(track.Bars.Count() == file.BarInfos.Count(), "tracks of different lengths");
    }
    Exchange::WriteTextTab(file, {});
}

/// The same bytes read by their lines. What was read goes out as a text and comes back with as many bars.
inline void TextLines(std::string_view bytes) {
    Exchange::LinesImportOptions options;
    const auto choice = static_cast<unsigned char>(bytes.empty() ? 4 : bytes.front());
    options.Dash = choice % 7;
    options.Details = (choice & 8) != 0;
    if (choice & 16) options.Timing = Exchange::TimeSignature{choice % 32 + 1, 8};
    Core::TabFile file;
    if (choice & 32) file.Tracks.Add(Core::Track{});
    Exchange::ImportReport report;
    try {
        Exchange::ImportTextLines(file, file.Tracks.UpperBound(), bytes, options, report);
    } catch (const RunTimeError& refusal) {
        return Require(!refusal.Description().empty(), "a refusal without a reason");
    }
    Require(report.NotesFound == report.NotesKept + report.NotesLost, "notes that are neither kept nor lost");
    for (const Core::Track& track : file.Tracks) {
        Require(track.Bars.Count() == file.BarInfos.Count(), "tracks of different lengths");
        for (const Core::Bar& bar : track.Bars) Require(bar.Strums().Count() > 0, "a bar without strums");
    }
    Exchange::ReportText(report);
    MusicText(Core::WriteTabFileText(file));
}

/// False for a MIDI file that is mostly silence: bars upon bars of rests.
inline bool IsShort(const SmfFile& midi) {
    constexpr std::uint64_t MostQuarters = 20'000;
    std::uint64_t quarters = 0;
    for (const auto& track : midi.Tracks) {
        for (const SmfEvent& event : track) quarters += event.Delta / static_cast<unsigned>(midi.TicksPerQuarter);
    }
    return quarters <= MostQuarters;
}

/// A MIDI file. What is read must be written as it was read, and becomes a document whose tracks are alike.
inline void Midi(std::string_view bytes) {
    SmfFile midi;
    try {
        midi = ReadSmf(bytes);
    } catch (const RunTimeError& refusal) {
        return Require(!refusal.Description().empty(), "a refusal without a reason");
    }
    const std::string written = WriteSmf(midi);
    Require(WriteSmf(ReadSmf(written)) == written, "the MIDI file does not settle");
    Exchange::MidiImportOptions options;
    options.Ties = bytes.size() % 2 == 1;
    options.Quantize = bytes.size() % 3 == 1;
    Core::TabFile file;
    Exchange::ImportReport report;
    if (!IsShort(midi)) return;
    try {
        Exchange::ImportMidi(file, midi, "", options, {}, &report);
    } catch (const RunTimeError& refusal) {
        return Require(!refusal.Description().empty(), "a refusal without a reason");
    }
    Require(report.NotesFound == report.NotesKept + report.NotesLost, "notes that nobody tells of");
    for (const Core::Track& track : file.Tracks) {
        Require(track.Bars.Count() == file.BarInfos.Count(), "tracks of different lengths");
    }
}

/// A MIDI file by the other reader: all bars are full, all notes accounted for, and the song is written again.
inline void MidiAligned(std::string_view bytes) {
    Core::TabFile file;
    Exchange::ImportReport report;
    try {
        const SmfFile midi = ReadSmf(bytes);
        if (!IsShort(midi)) return;
        Exchange::ImportAligned(file, midi, "", {}, report);
    } catch (const RunTimeError& refusal) {
        return Require(!refusal.Description().empty(), "a refusal without a reason");
    }
    Require(report.NotesFound == report.NotesKept + report.NotesLost, "notes that nobody tells of");
    for (int t = 0; t <= file.Tracks.UpperBound(); ++t) {
        const Core::Track& track = file.Tracks[t];
        Require(track.Bars.Count() == file.BarInfos.Count(), "tracks of different lengths");
        for (int bar = 0; bar <= track.Bars.UpperBound(); ++bar) {
            constexpr double Hair = 1e-6;
            const double off = Core::BarLength64ths(track.Bars[bar]) - Core::BarLengthIn64ths(file, bar);
            Require(off < Hair && off > -Hair, "a bar that is not full");
        }
    }
    const SmfFile again = Exchange::MidiOfDocument(file, {});
    Require(ReadSmf(WriteSmf(again)) == again, "the song is not written as it is");
}

/// QL4.ini, the settings store and a language file: what each reader took from the bytes, it takes again from its text.
inline void Settings(std::string_view bytes) {
    Core::SettingsRecord settings;
    Core::ParseINISettings(bytes, settings);
    const std::string file = Core::FormatINISettings(settings);
    Core::SettingsRecord again;
    Require(Core::ParseINISettings(file, again) == 71, "written settings are not read whole");
    Require(Core::FormatINISettings(again) == file, "the settings do not settle");

    const std::string store = FormatIni(ParseIni(bytes));
    Require(FormatIni(ParseIni(store)) == store, "the settings store does not settle");

    for (const auto& [key, text] : Core::ParseLanguage(bytes)) {
        Require(Core::IsUtf8(key) && Core::IsUtf8(text), "a text that is no UTF-8");
    }
}

/// A rescue copy, which a crash may have left in any state.
inline void Recovery(std::string_view bytes) {
    static MemoryStore store;
    Services.Settings = &store;
    try {
        const std::string copy = Shell::FormatRecovery(Shell::ParseRecovery(bytes));
        Require(!copy.empty(), "an empty copy");
    } catch (const RunTimeError& refusal) {
        Require(!refusal.Description().empty(), "a refusal without a reason");
    }
}

/// A song from outside, played: its numbers are whatever the file says.
inline void Play(std::string_view bytes) {
    Core::TabFile song = Core::ReadTabFileText(bytes, {}).Document;
    try {
        song = Exchange::ReadJson(bytes, MemoryStore{});
    } catch (const RunTimeError&) {
        // No JSON: a music file's text, then.
    }
    Core::Open = {};
    Core::Open.TabFile = song;
    Core::Settings = {};
    Core::Settings.Metronome = Core::Settings.CountIn = bytes.size() % 2 == 1;
    constexpr int MostMessages = 20'000;
    int messages = 0;
    Playback::OfflineOptions options;
    options.EndBar = static_cast<std::int16_t>(std::min(song.BarInfos.UpperBound(), 32'000));
    options.MaxMs = 3000;
    std::int64_t before = 0;
    const auto receive = [&](const Playback::TimedMessage& message) {
        ++messages;
        Require(message.Time >= before, "a message before its time");
        before = message.Time;
    };
    Playback::PlayOffline(options, receive, [&](std::int64_t) { return messages < MostMessages; });
    Require(Core::Open.TabFile == song, "playing changed the song");
    Require(!Playback::IsPlaying(), "the player that was put aside plays");
}

struct Target {
    std::string_view Name;  ///< of its folder below fuzz/corpus/
    void (*Run)(std::string_view bytes);
};
inline constexpr Target Targets[] = {
    {"music_text", &MusicText},
    {"cipher", &Cipher},
    {"json", &Json},
    {"text_tab", &TextTab},
    {"text_lines", &TextLines},
    {"midi", &Midi},
    {"settings", &Settings},
    {"recovery", &Recovery},
    {"play", &Play},
    {"midi_aligned", &MidiAligned},
    {"chord", &Chord},
    {"scale", &Scale},
    {"tuning", &Tuning},
};

}  // namespace Quillon::Fuzz
