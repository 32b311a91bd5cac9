#include "tests/support/RandomDocument.h"

#include <array>
#include <random>
#include <string>

namespace Quillon::Testing {

using namespace Core;

namespace {

class Maker {
public:
    Maker(unsigned seed, HeldBy heldBy) : random(seed), json(heldBy == HeldBy::Json) {}

    TabFile Document() {
        TabFile file;
        for (std::string* text :
             {&file.RA, &file.RT, &file.Password, &file.SubTitle, &file.Author, &file.Artist, &file.Album,
              &file.Copyright, &file.TabbedBy, &file.Instructions, &file.Notice, &file.Notes}) {
            *text = Maybe(2) ? Text() : "";
        }
        file.Title = "T" + Text();  // a blank title comes back as "Untitled"
        for (bool* flag : {&file.HasPassword, &file.Shuffle, &file.AlwaysCharts, &file.ShowHeader, &file.FontBold,
                           &file.FontItalic, &file.FontStrike, &file.FontUnderline, &file.NoteFontBold,
                           &file.NoteFontItalic, &file.NoteFontStrike, &file.NoteFontUnderline}) {
            *flag = Maybe(2);
        }
        file.FontName = Text("|");
        file.NoteFontName = Text("|");
        file.Tempo = static_cast<float>(Between(1, 4000)) / 4;
        file.RowSpacing = Small();
        file.FontSize = Small();
        file.NoteFontSize = Small();
        for (std::int32_t* color : {&file.FontColor, &file.LineColor, &file.NoteFontColor}) *color = Wide();

        const int bars = Between(1, 70);
        file.BarInfos.Resize(bars);
        for (int b = 0; b < bars; ++b) file.BarInfos.Edit(b) = Info();
        file.Tracks.Resize(Between(1, 4));
        for (Core::Track& track : file.Tracks) MakeTrack(track, bars);
        return file;
    }

private:
    BarInfo Info() {
        static constexpr std::array<int, 6> bottoms = {1, 2, 4, 8, 16, 32};
        BarInfo info;
        info.TimeSigTop = Between(1, 32);
        info.TimeSigBottom = bottoms[static_cast<std::size_t>(Between(0, 5))];
        for (std::int16_t* mark : {&info.DalSegno, &info.CodaMark, &info.ToCoda, &info.Segno}) {
            if (Maybe(6)) *mark = -1;
        }
        info.RepeatOpen = Maybe(5);
        if (Maybe(5)) info.RepeatClose = static_cast<std::int16_t>(Between(1, 32767));
        return info;
    }

    void MakeTrack(Core::Track& track, int bars) {
        track.Name = Text();
        track.IsDrum = Maybe(3);
        if (!track.IsDrum || json) track.InstrumentName = Text();
        for (std::int16_t* number : {&track.Volume, &track.Instrument, &track.Channel, &track.EffectChannel,
                                     &track.ChordVolume, &track.Capo}) {
            *number = Small();
        }
        track.Strings = static_cast<std::int16_t>(Between(1, 7));
        for (std::int16_t& offset : track.Tuning) offset = Small();
        for (bool* flag :
             {&track.OctaveDown, &track.OctaveUp, &track.Reverb, &track.ShowTreble, &track.ShowBass, &track.ShowTab}) {
            *flag = Maybe(2);
        }
        if (track.IsDrum || json) {
            for (PercAssignment& string : track.PercStrings) {
                string.dbx = Small();
                string.dro = Small();
                string.dlt = Small();
            }
        }
        if (Maybe(3)) {
            track.LyricsOfOtherTrack = 1;
            track.LyricsTrack = Small();
            track.ShowStaff = Maybe(2);
        }
        track.Bars.Resize(bars);
        const bool sings = Maybe(2);
        for (int b = 0; b < bars; ++b) {
            Bar& bar = track.Bars.Edit(b);
            if (b > 0 && Maybe(3)) {  // equal bars, whose music is stored once
                bar = track.Bars[Between(0, b - 1)];
            } else {
                bar.Key = Between(0, 13);
                bar.KeyIsMinor = Maybe(2);
                bar.EditStrums().Resize(Between(1, 6));
                for (Strum& strum : bar.EditStrums()) strum = MakeStrum();
            }
            if (!sings) continue;
            for (Strum& strum : bar.EditStrums()) {
                if (Maybe(3)) strum.Syllables.Edit()[Between(0, LyricLines - 1)] = "la" + Text();
            }
        }
    }

    Strum MakeStrum() {
        Strum strum;
        strum.Length = Between(0, 6);
        strum.Dotted = Maybe(5);
        if (Maybe(8)) strum.Technique = Wide();
        if (Maybe(8)) strum.Stroke = Between(1, 2);
        if (Maybe(8)) strum.Text = Text();
        if (Maybe(8)) strum.GotoText = Text();
        if (Maybe(8)) {
            strum.HasTuplet = true;
            strum.Tuplet = Between(0, 8);
        }
        if (Maybe(8)) {
            strum.HasTrem = true;
            strum.TremLength = Wide();
            strum.TremRange = Text("|");
            for (double& point : strum.TremPoints.Edit()) point = Point();
        }
        if (Maybe(8)) {
            strum.HasChord = true;
            strum.ChordValueA = Small();
            strum.ChordValueB = Small();
            strum.ChordFlag = Maybe(2);
            strum.ChordName = Text();
            for (std::string& fret : strum.ChordFrets.Edit()) fret = Maybe(2) ? Text("/\\") : "";
            for (std::string& finger : strum.ChordFingers.Edit()) finger = Maybe(2) ? Text("/\\") : "";
            for (std::int16_t& mark : strum.ChordMarks.Edit()) mark = Small();
        }
        if (json && Maybe(8)) strum.Hash = static_cast<std::uint8_t>(Between(1, 255));
        for (int s = 0; s < StringCount; ++s) {
            if (Maybe(4)) strum.Notes.Edit(s) = MakeNote();
        }
        return strum;
    }

    Note MakeNote() {
        Note note;
        if (!Maybe(6)) {
            note.Fret = std::to_string(Between(0, 24));
            note.Dynamic = Between(0, 7);
        }
        for (bool* flag : {&note.LetRing, &note.Accentuate, &note.Tied, &note.Ghost}) *flag = Maybe(6);
        for (std::int32_t* number : {&note.Technique, &note.LeftFinger, &note.RightFinger}) {
            if (Maybe(6)) *number = Wide();
        }
        if (json && Maybe(6)) note.Harmonic = Between(1, 7);
        if (Maybe(8)) {
            note.HasGrace = true;
            note.GraceFret = Text("|");
            note.GraceDynamic = Wide();
            note.GraceDuration = Wide();
            note.GraceTransition = Wide();
        }
        if (Maybe(8)) {
            note.HasTrill = true;
            note.TrillFret = Small();
            note.TrillPeriod = Wide();
        }
        if (Maybe(8)) {
            note.HasBend = true;
            note.BendStyle = Wide();
            note.BendType = Wide();
            for (double& point : note.BendPoints.Edit()) point = Point();
        }
        return note;
    }

    int Between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random); }
    bool Maybe(int oneIn) { return Between(1, oneIn) == 1; }
    std::int16_t Small() { return static_cast<std::int16_t>(Between(-32768, 32767)); }
    std::int32_t Wide() { return Between(-2147483647 - 1, 2147483647); }
    /// Whole thousandths come back from 15 digits as they were.
    double Point() { return Between(-9'000'000, 9'000'000) / 1000.0; }

    /// Some characters of every kind that Windows-1252 holds, separators and line ends among them.
    std::string Text(const std::string& without = "") {
        static constexpr std::array<const char*, 22> pieces = {"a",  "Z",      "7",  " ",  "|",    "\\", "/", ":",
                                                               "\"", "'",      "é",  "€",  "“",    "½",  "ž", "²",
                                                               "µ",  "\u0090", "\t", "\n", "\r\n", "-"};
        std::string text;
        for (int i = Between(1, 8); i > 0; --i) {
            const std::string piece = pieces[static_cast<std::size_t>(Between(0, static_cast<int>(pieces.size()) - 1))];
            if (without.find(piece) == std::string::npos) text += piece;
        }
        return text + "x";  // never blank alone
    }

    std::mt19937 random;
    bool json;
};

}  // namespace

TabFile RandomDocument(unsigned seed, HeldBy format) { return Maker(seed, format).Document(); }

}  // namespace Quillon::Testing
