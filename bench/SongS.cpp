#include "bench/SongS.h"

#include "core/mod_TabFileManipulation.h"

#include <random>
#include <string>

namespace Quillon::Bench {

using namespace Core;

TabFile SongS(int bars) {
    std::minstd_rand numbers(4711);  // the same sequence with every library
    const auto below = [&](unsigned bound) { return static_cast<int>(numbers() % bound); };
    TabFile song;
    song.Title = "Song S";
    song.Tempo = 120;
    song.Tracks = List<Track>(SongTracks);
    song.BarInfos.Resize(bars);
    for (int t = 0; t < SongTracks; ++t) {
        Track& track = song.Tracks[t];
        track.Name = "Track " + std::to_string(t + 1);
        track.Channel = static_cast<std::int16_t>(t);
        track.Bars.Resize(bars);
        for (int b = 0; b < bars; ++b) {
            List<Strum>& strums = track.Bars.Edit(b).EditStrums();
            strums.Resize(StrumsOfABar);
            for (int s = 0; s < StrumsOfABar; ++s) {
                strums[s].Length = 3;
                const int string = below(3);
                strums[s].Notes.Edit(string).Fret = std::to_string(below(20));
                if (s % 2 == 0) strums[s].Notes.Edit(string + 1 + below(2)).Fret = std::to_string(below(20));
            }
        }
    }
    return song;
}

namespace {

/// An empty song of so many tracks and bars, each with strums of one length.
TabFile Ruled(int tracks, int bars, int strums, int length) {
    TabFile song;
    song.Tempo = 120;
    song.Tracks = List<Track>(tracks);
    song.BarInfos.Resize(bars);
    for (int t = 0; t < tracks; ++t) {
        song.Tracks[t].Channel = static_cast<std::int16_t>(2 * t % 8);
        song.Tracks[t].EffectChannel = static_cast<std::int16_t>(2 * t % 8 + 1);
        song.Tracks[t].Bars.Resize(bars);
        for (int b = 0; b < bars; ++b) {
            song.Tracks[t].Bars.Edit(b).EditStrums().Resize(strums);
            for (Strum& strum : song.Tracks[t].Bars.Edit(b).EditStrums()) strum.Length = length;
        }
    }
    return song;
}

void AddGesture(Strum& strum, int gesture) {
    Note& note = strum.Notes.Edit(0);
    note.Fret = std::to_string(3 + gesture);
    switch (gesture) {
        case 0:
            note.HasBend = true;
            for (int i = 0; i < BendPointCount; ++i) note.BendPoints.Edit()[i] = i % 9;
            break;
        case 1:
            strum.HasTrem = true;
            for (int i = 0; i < TremPointCount; ++i) strum.TremPoints.Edit()[i] = -(i % 5);
            break;
        case 2:
            strum.Technique = Vibrato;
            break;
        case 3:
            note.Technique = LegatoSlide;
            break;
        case 4:
            note.Technique = TremoloPicking32nds;
            break;
        case 5:
            note.HasTrill = true;
            note.TrillFret = 12;
            note.TrillPeriod = 2;
            break;
        default:
            note.HasGrace = true;
            note.GraceFret = "5";
    }
}

}  // namespace

TabFile SongOfEffects(int bars, int tracks) {
    constexpr int Gestures = 7;
    TabFile song = Ruled(tracks + 1, bars, Gestures + 1, 3);
    for (int t = 0; t < tracks; ++t) {
        for (int b = 0; b < bars - 2; ++b) {
            List<Strum>& strums = song.Tracks[t].Bars.Edit(b).EditStrums();
            for (int s = 0; s < Gestures; ++s) AddGesture(strums[s], (s + t) % Gestures);
            strums[Gestures].Notes.Edit(1).Fret = "7";
        }
    }
    Track& drums = song.Tracks[tracks];
    drums.IsDrum = true;
    drums.PercStrings[0].dlo = 8;
    for (int b = 0; b < bars - 2; ++b) {
        for (Strum& strum : drums.Bars.Edit(b).EditStrums()) strum.Notes.Edit(0).Fret = "o";
    }
    return song;
}

TabFile SongOfChords(int bars, int tracks) {
    constexpr int StrumsOf64ths = 64;
    TabFile song = Ruled(tracks, bars, StrumsOf64ths, 6);
    for (int t = 0; t < tracks; ++t) {
        song.Tracks[t].Strings = StringCount;
        for (int b = 0; b < bars; ++b) {
            for (Strum& strum : song.Tracks[t].Bars.Edit(b).EditStrums()) {
                strum.HasChord = true;
                strum.ChordValueB = StringCount;
                for (int string = 0; string < StringCount; ++string) {
                    strum.Notes.Edit(string).Fret = std::to_string(string + b % 12);
                    strum.ChordFrets.Edit()[string] = "2";
                }
                for (const int string : {0, 3}) strum.Notes.Edit(string).Harmonic = SemiHarmonic;
            }
        }
    }
    return song;
}

TabFile Sixteenths(int bars) {
    TabFile file;
    Track& track = file.Tracks[0];
    track.ShowTreble = track.ShowBass = track.ShowTab = true;
    track.Bars.Resize(bars);
    file.BarInfos.Resize(bars);
    for (int bar = 0; bar < bars; ++bar) {
        SetBarStrums(track.Bars.Edit(bar), 15);
        int at = bar;
        for (Strum& strum : track.Bars.Edit(bar).EditStrums()) {
            strum.Length = 4;
            for (const int string : {0, 2, 5}) strum.Notes.Edit(string).Fret = std::to_string((at + string) % 13);
            at += 5;
        }
    }
    return file;
}

}  // namespace Quillon::Bench
