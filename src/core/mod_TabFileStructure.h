// What a music file is in memory: tracks of bars of strums of notes, flat and positional, and the one open document.
//
// A document is a value. Copies share every bar that none of them edited, so an undo snapshot costs microseconds.
// A place in the score is the triple track, bar, strum, and for a note a string besides; all count from 0.
// Reading and editing look different: Bars[b] and Strums() read, Bars.Edit(b) and EditStrums() unshare and edit.
#pragma once

#include <cstdint>
#include <string>

#include "core/Values.h"

namespace Quillon::Core {

constexpr int StringCount = 7;  ///< string slots of every strum, string 0 the highest
constexpr int LyricLines = 5;   ///< lyric lines of a track, syllables of a strum
constexpr int BendPointCount = 26;
constexpr int TremPointCount = 25;

/// What each drum letter on one string plays: indices into the list of drum sounds, 0 for none.
struct PercAssignment {
    std::int16_t dbx = 0, dlo = 0, dlx = 0, dlr = 0, dlf = 0, dbo = 0;
    std::int16_t dls = 0, dbs = 0, dlc = 0, dro = 0, dlt = 0, dbf = 0;
    bool operator==(const PercAssignment&) const = default;
};

struct Note {
    std::string Fret;          ///< decimal fret, "x" for a dead note, a letter on a drum track; "" is no note at all
    std::int32_t Dynamic = 0;  ///< 0 MF, 1 F, 2 FF, 3 FFF, 4 MP, 5 P, 6 PP, 7 PPP
    bool LetRing = false;
    bool Accentuate = false;
    std::int32_t Harmonic = 0;   ///< see HarmonicKind
    bool Tied = false;           ///< to the next note on this string
    std::int32_t Technique = 0;  ///< see NoteTechnique
    std::string GraceFret;
    std::int32_t GraceDynamic = 0;
    std::int32_t GraceDuration = 0;
    std::int32_t GraceTransition = 0;
    bool HasGrace = false;
    std::int16_t TrillFret = 0;
    std::int32_t TrillPeriod = 0;
    bool HasTrill = false;
    Lazy<Row<double, BendPointCount>> BendPoints;
    std::int32_t BendStyle = 0;
    std::int32_t BendType = 0;
    bool HasBend = false;
    std::int32_t LeftFinger = 0;   ///< 1 to 5: T 1 2 3 4
    std::int32_t RightFinger = 0;  ///< 1 to 5: T I M A O
    bool Ghost = false;
    bool operator==(const Note&) const = default;
};

struct Strum {
    Slots<Note, StringCount> Notes;
    std::int32_t Length = 0;     ///< 0 whole, 1 half, 2 quarter, 3 eighth, 4 16th, 5 32nd, 6 64th; others are kept
    std::int32_t Technique = 0;  ///< see StrumTechnique
    Lazy<Row<double, TremPointCount>> TremPoints;
    std::int32_t TremLength = 0;
    std::string TremRange;
    bool HasTrem = false;
    std::int32_t Stroke = 0;  ///< 1 up, 2 down, 0 none
    std::string Text;
    std::int32_t Tuplet = 0;  ///< 0 to 8 for figures 3 5 6 7 9 10 11 12 13
    bool HasTuplet = false;
    bool Dotted = false;
    bool HasChord = false;
    std::int16_t ChordValueA = 0;
    std::int16_t ChordValueB = 0;
    bool ChordFlag = false;
    Lazy<Row<std::string, StringCount>> ChordFrets;
    Lazy<Row<std::string, StringCount>> ChordFingers;
    Lazy<Row<std::int16_t, StringCount>> ChordMarks;
    std::string ChordName;
    std::string GotoText;
    Lazy<Row<std::string, LyricLines>> Syllables;
    std::uint8_t Hash = 0;
    bool operator==(const Strum&) const = default;
};

/// Where the last layout put a bar, in view pixels. A cache: neither compared nor saved, and written without
/// unsharing the bar.
struct BarPlace {
    std::int16_t BarX = 0;
    std::int32_t BarY = 0;
    std::int16_t BarWidth = 0;
    bool ShowTimeSig = false;
    std::int16_t BarStep = 0;
    std::int16_t RowOnPage = 0;
    std::int32_t Page = -1;  ///< index of the page, -1 when not placed
    List<std::int16_t> StrumX;
};

/// The strums of a bar; there is always at least one.
struct StrumList : List<Strum> {
    StrumList() : List<Strum>(1) {}
    bool operator==(const StrumList&) const = default;
};

class Bar {
public:
    std::int32_t Key = 0;  ///< index into the key list
    bool KeyIsMinor = false;
    mutable BarPlace Place;

    const List<Strum>& Strums() const { return strums.Read(); }
    List<Strum>& EditStrums() { return strums.Edit(); }
    /// True when EditStrums() need not copy them.
    bool OwnsStrums() const { return strums.IsOwned(); }
    /// True when both share their strums in memory.
    bool SharesStrums(const Bar& other) const { return strums.SameAs(other.strums); }
    bool operator==(const Bar& other) const {
        return Key == other.Key && KeyIsMinor == other.KeyIsMinor && strums == other.strums;
    }

private:
    Shared<StrumList> strums;
};

/// What all tracks share of a bar. The four sign marks are 0 or any other number, as stored.
struct BarInfo {
    std::int32_t TimeSigTop = 4;
    std::int32_t TimeSigBottom = 4;
    std::int16_t DalSegno = 0;
    std::int16_t CodaMark = 0;
    std::int16_t ToCoda = 0;
    std::int16_t Segno = 0;
    bool RepeatOpen = false;
    std::int16_t RepeatClose = 0;  ///< jumps back at the repeat closing here, 0 for none; the page prints it
    bool operator==(const BarInfo&) const = default;
};

struct Track {
    Row<std::string, LyricLines> Lyrics;  ///< packed lines; filled while a file is written or read
    std::string Name = "Track 1";
    std::string InstrumentName = "A. Guitar (Nylon)";
    std::int16_t Volume = 50;
    std::int16_t Instrument = 24;           ///< General MIDI program from 0
    std::int16_t Strings = 6;               ///< strings in use, 1 to 7
    Row<std::int16_t, StringCount> Tuning;  ///< semitones from the standard pitch of the string
    std::int16_t Channel = 0;
    std::int16_t EffectChannel = 1;
    bool OctaveDown = false;
    bool OctaveUp = false;
    std::int16_t ChordVolume = 30;
    Row<PercAssignment, StringCount> PercStrings;
    bool Reverb = false;
    bool ShowStaff = false;
    std::int16_t Capo = 0;
    std::int16_t LyricsOfOtherTrack = 0;  ///< 1: this track displays the lyrics of LyricsTrack
    std::int16_t LyricsTrack = 0;
    SharedList<Bar> Bars{1};
    bool ShowTreble = true;
    bool ShowBass = false;
    bool ShowTab = true;
    bool IsDrum = false;
    bool operator==(const Track&) const = default;
};

struct TabFile {
    std::string RA;
    std::string RT;
    List<Track> Tracks{Track{}};
    SharedList<BarInfo> BarInfos{1};
    std::string Title = "Untitled";
    bool HasPassword = false;
    std::string Password;
    std::string SubTitle;
    std::string Author;
    std::string Artist;
    std::string Album;
    std::string Copyright;
    std::string TabbedBy;
    std::string Instructions;
    std::string Notice;
    std::string Notes;
    float Tempo = 60;  ///< quarter notes a minute
    bool Shuffle = false;
    std::int16_t RowSpacing = 100;  ///< pixels between two rows
    bool AlwaysCharts = true;
    bool ShowHeader = false;
    bool FontBold = false;
    bool FontItalic = false;
    std::string FontName = "Times New Roman";
    std::int16_t FontSize = 19;  ///< points
    bool FontStrike = false;
    bool FontUnderline = false;
    std::int32_t FontColor = 0;
    std::int32_t LineColor = 0;
    bool NoteFontBold = false;
    bool NoteFontItalic = false;
    std::string NoteFontName = "Arial";
    std::int16_t NoteFontSize = 8;
    bool NoteFontStrike = false;
    bool NoteFontUnderline = false;
    std::int32_t NoteFontColor = 0;
    bool operator==(const TabFile&) const = default;
};

/// How the cursor enters notes.
enum : std::int16_t { NotationInput = 0, TabInput = 1 };

/// The open document, its cursor and its file. There is always exactly one.
struct OpenDocument {
    Core::TabFile TabFile;
    std::int16_t CurTrack = 0;
    std::int16_t CurBar = 0;
    std::int16_t CurStrum = 0;
    std::int16_t CurString = 0;
    std::int16_t CurPitch = 0;  ///< MIDI pitch, or lane of a drum track, under the cursor in notation input
    std::int16_t InputMode = TabInput;
    std::string FileName;  ///< path, "" for a document never saved
    bool FileChanged = false;
};

extern OpenDocument Open;

enum HarmonicKind : std::int32_t {
    NoHarmonic,
    NaturalHarmonic,
    ArtificialHarmonic5,
    ArtificialHarmonic7,
    ArtificialHarmonic12,
    TappedHarmonic,
    PitchHarmonic,
    SemiHarmonic
};

/// 5 is not offered. 9 rises into the note although its menu entry stands behind that of 10.
enum NoteTechnique : std::int32_t {
    NoTechnique = 0,
    Staccato = 1,
    TremoloPicking8ths = 2,
    TremoloPicking16ths = 3,
    TremoloPicking32nds = 4,
    SlideUp = 6,
    SlideDown = 7,
    LegatoSlide = 8,
    SlideIntoUp = 9,
    SlideIntoDown = 10,
    HammerOnPullOff = 11
};

enum StrumTechnique : std::int32_t {
    NoStrumTechnique,
    Vibrato,
    WideVibrato,
    PalmMute,
    Tapping,
    Slapping,
    Popping,
    FadeIn
};

}  // namespace Quillon::Core
