// MIDI files out and in: the song written, and read by either reader as if another program had written it.
#include "bench/Measure.h"
#include "bench/Setting.h"
#include "bench/SongS.h"
#include "exchange/AlignedImport.h"
#include "exchange/MidiExport.h"

using namespace Quillon;
using namespace Quillon::Bench;

namespace {

/// What tells the strings, which no other program writes, is taken out: they are to be found.
std::string ForeignFile(SmfFile midi) {
    for (auto& track : midi.Tracks) {
        for (SmfEvent& event : track) {
            const bool own = event.Status == SmfEvent::Meta && event.Data1 == SmfSequencerOwn;
            if (own) event.Data1 = SmfText;
            if (own) event.Bytes = "Song S";
        }
    }
    return WriteSmf(midi);
}

}  // namespace

int main() {
    const Setting setting;
    const Core::TabFile song = SongS();
    Row("MIDI export of Song S", MedianSeconds(5, [&] { WriteSmf(Exchange::MidiOfDocument(song, {})); }), 0.25, "s");

    const std::string bytes = ForeignFile(Exchange::MidiOfDocument(song, {}));
    std::size_t events = 0;
    for (const auto& track : ReadSmf(bytes).Tracks) events += track.size();
    if (events < 170'000) Fail("the file has too few events");
    Row("MIDI import of 8 tracks, 1,000 bars, classic",
        MedianSeconds(3,
                      [&] {
                          Core::TabFile file;
                          Exchange::ImportMidi(file, ReadSmf(bytes), "", {});
                      }),
        0.5, "s");
    Exchange::ImportReport report;
    Row("MIDI import of 8 tracks, 1,000 bars, aligned",
        MedianSeconds(3,
                      [&] {
                          Core::TabFile file;
                          Exchange::ImportAligned(file, ReadSmf(bytes), "", {}, report);
                      }),
        0.5, "s");
    if (report.NotesKept != report.NotesFound) Fail("notes are lost");
    return Status();
}
