#include "bench/SongS.h"

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

}  // namespace Quillon::Bench
