// Documents as a damaged or malicious file may hold them: drawing survives any of them.
#include <functional>
#include <limits>
#include <string>

#include "core/mod_Common.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_PrintedPages.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/headless/PictureLog.h"

using namespace Quillon;
using namespace Quillon::Drawing;
using Core::Open;
using Core::TabFile;

namespace {

constexpr int Bars = 12, StrumsPerBar = 4;

void EachStrum(TabFile& file, const std::function<void(Core::Strum&)>& change) {
    for (Core::Track& track : file.Tracks) {
        for (int bar = 0; bar < Bars; ++bar) {
            for (Core::Strum& strum : track.Bars.Edit(bar).EditStrums()) change(strum);
        }
    }
}

void EachNote(TabFile& file, const std::function<void(Core::Note&)>& change) {
    EachStrum(file, [&](Core::Strum& strum) {
        for (const int string : {0, 3, 6}) change(strum.Notes.Edit(string));
    });
}

void EachTrack(TabFile& file, const std::function<void(Core::Track&)>& change) {
    for (Core::Track& track : file.Tracks) change(track);
}

/// Two tracks with everything on every note.
TabFile FullDocument() {
    TabFile file;
    file.Tracks.Add(Core::Track{});
    file.BarInfos.Resize(Bars);
    file.BarInfos.Edit(3) = {.DalSegno = 1, .CodaMark = 1, .ToCoda = 1, .Segno = 1, .RepeatOpen = true};
    file.BarInfos.Edit(5).RepeatClose = 2;
    for (Core::Track& track : file.Tracks) {
        track.ShowTreble = false;
        track.Bars.Resize(Bars);
        for (int bar = 0; bar < Bars; ++bar) track.Bars.Edit(bar).EditStrums().Resize(StrumsPerBar);
    }
    int count = 0;
    EachStrum(file, [&](Core::Strum& strum) {
        strum.Length = 2;
        strum.Technique = ++count % 9;
        strum.Stroke = count % 3;
        strum.HasTrem = strum.HasChord = true;
        strum.Text = "text";
        strum.GotoText = "A";
        strum.ChordName = "Am";
        for (int string = 0; string < 6; ++string) strum.ChordFrets.Edit()[string] = std::to_string(string);
        strum.Syllables.Edit()[0] = "la";
    });
    EachNote(file, [&](Core::Note& note) {
        note.Fret = "7";
        note.Technique = ++count % 13;
        note.HasGrace = note.HasTrill = note.HasBend = note.LetRing = note.Accentuate = true;
        note.GraceFret = "5";
        note.BendPoints.Edit()[5] = 8;
    });
    return file;
}

struct Case {
    const char* Name;
    std::function<void(TabFile&)> Change;
    bool MayOverflow = false;
};

const std::string Long(5000, 'W');

const Case Cases[] = {
    {"as it is", [](TabFile&) {}},
    {"one string", [](TabFile& file) { EachTrack(file, [](auto& t) { t.Strings = 1; }); }},
    {"seven strings", [](TabFile& file) { EachTrack(file, [](auto& t) { t.Strings = 7; }); }},
    {"no strings", [](TabFile& file) { EachTrack(file, [](auto& t) { t.Strings = 0; }); }},
    {"200 strings", [](TabFile& file) { EachTrack(file, [](auto& t) { t.Strings = 200; }); }},
    {"32767 strings", [](TabFile& file) { EachTrack(file, [](auto& t) { t.Strings = 32767; }); }},
    {"-32768 strings", [](TabFile& file) { EachTrack(file, [](auto& t) { t.Strings = -32768; }); }},
    {"no staves", [](TabFile& file) { EachTrack(file, [](auto& t) { t.ShowTab = false; }); }},
    {"no staves, rows touch",
     [](TabFile& file) {
         file.RowSpacing = 1;
         EachTrack(file, [](auto& t) { t.ShowTab = false; });
     }},
    {"rows upward", [](TabFile& file) { file.RowSpacing = -300; }},
    {"rows without height", [](TabFile& file) { file.RowSpacing = -50; }},
    {"rows overlap", [](TabFile& file) { file.RowSpacing = -49; }},
    {"rows far apart", [](TabFile& file) { file.RowSpacing = 32767; }},
    {"far top",
     [](TabFile& file) {
         for (int b = 0; b < Bars; ++b) file.BarInfos.Edit(b).TimeSigTop = 1000000;
     }},
    {"no top",
     [](TabFile& file) {
         for (int b = 0; b < Bars; ++b) file.BarInfos.Edit(b).TimeSigTop = 0;
     }},
    {"negative top",
     [](TabFile& file) {
         for (int b = 0; b < Bars; ++b) file.BarInfos.Edit(b).TimeSigTop = -4;
     }},
    {"no bottom",
     [](TabFile& file) {
         for (int b = 0; b < Bars; ++b) file.BarInfos.Edit(b).TimeSigBottom = 0;
     }},
    {"tiny bars",
     [](TabFile& file) {
         for (int b = 0; b < Bars; ++b) file.BarInfos.Edit(b).TimeSigBottom = 2147483647;
     },
     true},
    {"extreme signature",
     [](TabFile& file) { file.BarInfos.Edit(0) = {.TimeSigTop = -2147483647 - 1, .TimeSigBottom = -2147483647 - 1}; },
     true},
    {"repeats",
     [](TabFile& file) {
         for (int b = 0; b < Bars; ++b) file.BarInfos.Edit(b).RepeatClose = 32767;
     }},
    {"long texts",
     [](TabFile& file) {
         file.Title = file.SubTitle = file.Author = file.Artist = file.Album = file.Copyright = file.TabbedBy =
             file.Instructions = Long;
         EachStrum(file, [](auto& s) {
             s.Text = s.GotoText = s.ChordName = s.TremRange = s.Syllables.Edit()[0] = s.ChordFrets.Edit()[0] = Long;
         });
     }},
    {"very long title", [](TabFile& file) { file.Title = std::string(400000, 'W'); }},
    {"texts that are no UTF-8",
     [](TabFile& file) {
         file.Title = file.Artist = std::string(3000, '\x80');
         EachStrum(file, [](auto& s) { s.Text = "\xC3"; });
     }},
    {"length 99", [](TabFile& file) { EachStrum(file, [](auto& s) { s.Length = 99; }); }},
    {"tuplet 99",
     [](TabFile& file) {
         EachStrum(file, [](auto& s) {
             s.HasTuplet = true;
             s.Tuplet = 99;
         });
     }},
    {"codes outside their tables",
     [](TabFile& file) {
         EachStrum(file, [](auto& s) {
             s.Technique = s.Stroke = s.TremLength = -2147483647;
             s.ChordValueA = s.ChordValueB = -32768;
             s.Hash = 255;
         });
         EachNote(file, [](auto& n) {
             n.Dynamic = n.Harmonic = n.Technique = n.BendStyle = n.BendType = 2147483647;
             n.LeftFinger = n.RightFinger = -2147483647;
             n.TrillFret = -32768;
         });
     }},
    {"frets 999999", [](TabFile& file) { EachNote(file, [](auto& n) { n.Fret = n.GraceFret = "999999"; }); }},
    {"frets past any number",
     [](TabFile& file) { EachNote(file, [](auto& n) { n.Fret = n.GraceFret = "99999999999999"; }); }},
    {"frets abc", [](TabFile& file) { EachNote(file, [](auto& n) { n.Fret = n.GraceFret = "abc"; }); }},
    {"long frets", [](TabFile& file) { EachNote(file, [](auto& n) { n.Fret = n.GraceFret = Long; }); }},
    {"curves without numbers",
     [](TabFile& file) {
         EachNote(file, [](auto& n) { n.BendPoints.Edit()[3] = std::numeric_limits<double>::quiet_NaN(); });
         EachStrum(file, [](auto& s) { s.TremPoints.Edit()[3] = std::numeric_limits<double>::infinity(); });
     }},
    {"lyrics of no track",
     [](TabFile& file) {
         EachTrack(file, [](auto& t) {
             t.LyricsOfOtherTrack = 1;
             t.LyricsTrack = -32768;
             t.ShowStaff = true;
         });
     }},
    {"lyrics past the last track",
     [](TabFile& file) {
         EachTrack(file, [](auto& t) {
             t.LyricsOfOtherTrack = 1;
             t.LyricsTrack = 9;
         });
     }},
    {"fonts without size",
     [](TabFile& file) {
         file.FontSize = file.NoteFontSize = 0;
         file.FontName = file.NoteFontName = "";
     }},
    {"fonts of negative size", [](TabFile& file) { file.FontSize = file.NoteFontSize = -5; }},
    {"fonts of 30000 points", [](TabFile& file) { file.FontSize = file.NoteFontSize = 30000; }},
    {"an odd drum track",
     [](TabFile& file) {
         EachTrack(file, [](auto& t) {
             t.IsDrum = t.ShowBass = t.ShowTreble = true;
             t.Strings = 4;
         });
     }},
    {"a bar of 4,000 strums", [](TabFile& file) { file.Tracks[0].Bars.Edit(2).EditStrums().Resize(4000); }, true},
};

void DrawAll() {
    PictureLog log;
    Open.CurBar = Bars - 1;
    for (const bool stretch : {false, true}) {
        Page.AutoPageStretch = stretch;
        DrawDocument(log);
        log.Clear();
        for (int y = 0; y < View.ScaleHeight; y += 7) {
            const Hit hit = HitTest(Open.TabFile, 0, 300, y);
            EXPECT_TRUE(hit.String >= 0 && hit.String < Core::StringCount) << hit.String;
        }
    }
    for (const int track : {0, 1}) DrawPage(log, track, CountPages(track) - 1);
}

}  // namespace

TEST(HostileDocuments, AreDrawnOrOverflow) {
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.Name);
        Open = {};
        Page = {};
        View = {};
        Open.TabFile = FullDocument();
        test.Change(Open.TabFile);
        try {
            DrawAll();
        } catch (const RunTimeError& error) {
            EXPECT_TRUE(test.MayOverflow && error.Description().starts_with("Overflow in bar ")) << error.Description();
        }
    }
}
