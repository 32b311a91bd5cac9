#include "core/MusicFileTags.h"

#include "core/mod_Common.h"

namespace Quillon::Core::MusicTags {

namespace {

template <class Record, class Fields>
TagRow<Record> Tag(std::string_view name, std::string_view at, bool (*due)(const Record&), Fields) {
    return {name,
            at,
            at,
            due,
            [](TagWriter& io, const Record& record) { Fields{}(io, record); },
            [](TagReader& io, Record& record) { Fields{}(io, record); },
            [](TextInspector& io, const Record& record) { Fields{}(io, record); }};
}

template <class Record>
bool Always(const Record&) {
    return true;
}

// Rows of the common shapes: one field, written always, when set, or when it holds more than blanks.
#define QUILLON_ONE(Record, Name, At, FieldName, Due)          \
    Tag<Record>(                                               \
        Name, At, [](const Record& r) -> bool { return Due; }, \
        [](auto& io, auto& record) { io.Field(record.FieldName, '>'); })
#define QUILLON_TEXT(Record, Name, At, FieldName) \
    QUILLON_ONE(Record, Name, At, FieldName, !TrimBlanks(r.FieldName).empty())
#define QUILLON_FLAG(Record, Name, At, FieldName)                      \
    Tag<Record>(                                                       \
        Name, At, [](const Record& r) -> bool { return r.FieldName; }, \
        [](auto& io, auto& record) { io.Flag(record.FieldName); })
#define QUILLON_MARK(Record, Name, At, FieldName)                           \
    Tag<Record>(                                                            \
        Name, At, [](const Record& r) -> bool { return r.FieldName != 0; }, \
        [](auto& io, auto& record) { io.Mark(record.FieldName); })

}  // namespace

std::span<const TagRow<TabFile>> HeaderTags() {
    static const TagRow<TabFile> rows[] = {
        QUILLON_TEXT(TabFile, "Ý", "", Notes),
        QUILLON_TEXT(TabFile, "Þ", "", Album),
        QUILLON_TEXT(TabFile, "Ø", "", Artist),
        QUILLON_TEXT(TabFile, "×", "", Author),
        QUILLON_TEXT(TabFile, "¹", "", Copyright),
        QUILLON_TEXT(TabFile, "§", "", Instructions),
        QUILLON_TEXT(TabFile, "«", "", Notice),
        QUILLON_TEXT(TabFile, "RT://", "", RT),
        QUILLON_TEXT(TabFile, "RA://", "", RA),
        QUILLON_TEXT(TabFile, "¬", "", Password),
        QUILLON_FLAG(TabFile, "±>", "", AlwaysCharts),
        QUILLON_FLAG(TabFile, "Ð>", "", ShowHeader),
        QUILLON_FLAG(TabFile, "°>", "", HasPassword),
        QUILLON_FLAG(TabFile, "÷>", "", Shuffle),
        QUILLON_ONE(TabFile, "ª", "", Tempo, Always(r)),
        QUILLON_TEXT(TabFile, "´", "", SubTitle),
        QUILLON_TEXT(TabFile, "ð", "", TabbedBy),
        QUILLON_TEXT(TabFile, "¦", "", Title),
        QUILLON_ONE(TabFile, "³", "", RowSpacing, Always(r)),
        Tag<TabFile>("#FC", "", &Always<TabFile>,
                     [](auto& io, auto& file) {
                         io.Field(file.FontColor, '|');
                         io.Field(file.FontBold, '\\');
                         io.Field(file.FontItalic, '/');
                         io.Field(file.FontName, '|');
                         io.Field(file.FontSize, '\\');
                         io.Field(file.FontStrike, '/');
                         io.Field(file.FontUnderline, '>');
                     }),
        Tag<TabFile>("#NC", "", &Always<TabFile>,
                     [](auto& io, auto& file) {
                         io.Field(file.NoteFontColor, '|');
                         io.Field(file.NoteFontBold, '\\');
                         io.Field(file.NoteFontItalic, '/');
                         io.Field(file.NoteFontName, '|');
                         io.Field(file.NoteFontSize, '\\');
                         io.Field(file.NoteFontStrike, '/');
                         io.Field(file.NoteFontUnderline, '>');
                     }),
        QUILLON_ONE(TabFile, "#LC", "", LineColor, Always(r)),
    };
    return rows;
}

std::span<const TagRow<BarInfo>> BarInfoTags() {
    static const TagRow<BarInfo> rows[] = {
        QUILLON_ONE(BarInfo, "“", "B|", RepeatClose, r.RepeatClose > 0),
        QUILLON_ONE(BarInfo, "žž", "", TimeSigBottom, Always(r)),
        QUILLON_FLAG(BarInfo, "”", "B>", RepeatOpen),
        QUILLON_ONE(BarInfo, "º", "", TimeSigTop, Always(r)),
        QUILLON_MARK(BarInfo, "•", "B>", DalSegno),
        QUILLON_MARK(BarInfo, "™™", "B>", CodaMark),
        QUILLON_MARK(BarInfo, "œœ", "B>", ToCoda),
        QUILLON_MARK(BarInfo, "\u009d", "B>", Segno),
    };
    return rows;
}

std::span<const TagRow<Track>> TrackTags() {
    static const TagRow<Track> rows[] = {
        Tag<Track>(
            "ÑÒÒÑ", "T\\", [](const Track& track) { return track.LyricsOfOtherTrack == 1; },
            [](auto& io, auto& track) {
                io.Field(track.LyricsTrack, '>');
                io.Mark(track.LyricsOfOtherTrack, 1);
            }),
        Tag<Track>(
            "ÑÒÑ", "T>", [](const Track& track) { return track.LyricsOfOtherTrack == 1 && track.ShowStaff; },
            [](auto& io, auto& track) { io.Flag(track.ShowStaff); }),
        QUILLON_FLAG(Track, "ÑÑ", "T>", Reverb),
        QUILLON_TEXT(Track, "ÒÒ1", "T|", Lyrics[0]),
        QUILLON_TEXT(Track, "ÒÒ2", "T|", Lyrics[1]),
        QUILLON_TEXT(Track, "ÒÒ3", "T|", Lyrics[2]),
        QUILLON_TEXT(Track, "ÒÒ4", "T|", Lyrics[3]),
        QUILLON_TEXT(Track, "ÒÒ5", "T|", Lyrics[4]),
        QUILLON_FLAG(Track, "ÔÔD", "T>", OctaveDown),
        QUILLON_FLAG(Track, "ÔÔU", "T>", OctaveUp),
        QUILLON_FLAG(Track, "²BA²", "T>", ShowBass),
        QUILLON_FLAG(Track, "²TA²", "T>", ShowTab),
        QUILLON_FLAG(Track, "²TR²", "T>", ShowTreble),
        QUILLON_FLAG(Track, "²DR²", "T>", IsDrum),
    };
    return rows;
}

std::span<const TagRow<PercAssignment>> PercussionTags() {
#define QUILLON_DRUM(FieldName) \
    QUILLON_ONE(PercAssignment, "f.t." #FieldName, "N\\T|", FieldName, Always(r))  // no colon: this is meant
    static const TagRow<PercAssignment> rows[] = {
        QUILLON_DRUM(dbf), QUILLON_DRUM(dbo), QUILLON_DRUM(dbs), QUILLON_DRUM(dbx),
        QUILLON_DRUM(dlc), QUILLON_DRUM(dlf), QUILLON_DRUM(dlo), QUILLON_DRUM(dlr),
        QUILLON_DRUM(dls), QUILLON_DRUM(dlt), QUILLON_DRUM(dlx), QUILLON_DRUM(dro),
    };
#undef QUILLON_DRUM
    return rows;
}

std::span<const TagRow<Track>> PropertyTags() {
    static const TagRow<Track> rows[] = {
        QUILLON_ONE(Track, "f.t.cap:", "", Capo, Always(r)),
        QUILLON_ONE(Track, "f.t.cvo:", "", ChordVolume, Always(r)),
        QUILLON_ONE(Track, "f.t.cha:", "", Channel, Always(r)),
        QUILLON_ONE(Track, "f.t.ech:", "", EffectChannel, Always(r)),
        QUILLON_ONE(Track, "f.t.ins:", "", Instrument, Always(r)),
        QUILLON_ONE(Track, "f.t.inn:", "", InstrumentName, !r.IsDrum),
        QUILLON_ONE(Track, "f.t.nam:", "", Name, Always(r)),
        QUILLON_ONE(Track, "f.t.str:", "", Strings, Always(r)),
        QUILLON_ONE(Track, "f.t.tu0:", "", Tuning[0], Always(r)),
        QUILLON_ONE(Track, "f.t.tu1:", "", Tuning[1], Always(r)),
        QUILLON_ONE(Track, "f.t.tu2:", "", Tuning[2], Always(r)),
        QUILLON_ONE(Track, "f.t.tu3:", "", Tuning[3], Always(r)),
        QUILLON_ONE(Track, "f.t.tu4:", "", Tuning[4], Always(r)),
        QUILLON_ONE(Track, "f.t.tu5:", "", Tuning[5], Always(r)),
        QUILLON_ONE(Track, "f.t.tu6:", "", Tuning[6], Always(r)),
        QUILLON_ONE(Track, PropertiesEnd, "", Volume, Always(r)),
    };
    return rows;
}

std::span<const TagRow<Bar>> BarTags() {
    static const TagRow<Bar> rows[] = {
        QUILLON_ONE(Bar, "ki:", "T\\B/", Key, Always(r)),
        QUILLON_ONE(Bar, "km:", "T\\B/", KeyIsMinor, Always(r)),
    };
    return rows;
}

std::span<const TagRow<Strum>> StrumTags() {
    static const TagRow<Strum> rows[] = {
        QUILLON_ONE(Strum, "goto:", "T|B\\S/", GotoText, !r.GotoText.empty()),
        QUILLON_FLAG(Strum, "dot:", "T|B\\S>", Dotted),
        Tag<Strum>(
            "trm:", "T\\B|S\\", [](const Strum& strum) { return strum.HasTrem; },
            [](auto& io, auto& strum) {
                io.Field(strum.TremLength, '/');
                io.Field(strum.TremRange, '|');
                Alternating separators;
                io.Each(strum.TremPoints, separators);
                io.Close();
                io.Flag(strum.HasTrem);
            }),
        Tag<Strum>(
            "tpt:", "T|B:S\\", [](const Strum& strum) { return strum.HasTuplet; },
            [](auto& io, auto& strum) {
                io.Field(strum.Tuplet, '>');
                io.Flag(strum.HasTuplet);
            }),
        QUILLON_ONE(Strum, "strk:", "T|B/S\\", Stroke, r.Stroke != 0),
        QUILLON_ONE(Strum, "ctch:", "T|B/S\\", Technique, r.Technique != 0),
        QUILLON_ONE(Strum, HashTag, "T|B/S\\", Hash, r.Hash != 0),
        QUILLON_ONE(Strum, "txt:", "T|B/S\\", Text, !r.Text.empty()),
        QUILLON_ONE(Strum, LengthTag, "", Length, Always(r)),
        Tag<Strum>(
            "crd:", "T|B\\S/", [](const Strum& strum) { return strum.HasChord; },
            [](auto& io, auto& strum) {
                Alternating separators;
                io.Field(strum.ChordFlag, separators.Next());
                io.Field(strum.ChordValueA, separators.Next());
                io.Field(strum.ChordValueB, separators.Next());
                io.Each(strum.ChordMarks, separators);
                io.Each(strum.ChordFrets, separators);
                io.Each(strum.ChordFingers, separators);
                io.Field(strum.ChordName, '>');
                io.Flag(strum.HasChord);
            }),
    };
    return rows;
}

std::span<const TagRow<Note>> NoteTags() {
    static const TagRow<Note> rows[] = {
        QUILLON_FLAG(Note, "acc:", "T|B\\S/N>", Accentuate),
        QUILLON_FLAG(Note, "gho:", "T|B\\S/N>", Ghost),
        [] {
            TagRow<Note> harmonic = QUILLON_ONE(Note, "har:", "T|B\\S:N/", Harmonic, r.Harmonic != 0);
            // Written one way and read another: both forms are the format, and a written harmonic stops the reader.
            harmonic.AtWhenRead = "T|B\\S/N:";
            return harmonic;
        }(),
        QUILLON_ONE(Note, "lhf:", "T|B\\S/N:", LeftFinger, r.LeftFinger != 0),
        QUILLON_ONE(Note, "rhf:", "T|B\\S/N:", RightFinger, r.RightFinger != 0),
        QUILLON_FLAG(Note, "rng:", "T|B\\S/N>", LetRing),
        QUILLON_FLAG(Note, "lnk:", "T|B\\S/N>", Tied),
        Tag<Note>(
            "p", "T|B\\S/N:", [](const Note& note) { return !note.Fret.empty(); },
            [](auto& io, auto& note) {
                io.Field(note.Fret, '|');
                io.Field(note.Dynamic, '>');
            }),
        QUILLON_ONE(Note, "tch:", "T|B\\S/N|", Technique, r.Technique != 0),
        Tag<Note>(
            "bnd:", "T|B\\S/N:", [](const Note& note) { return note.HasBend; },
            [](auto& io, auto& note) {
                Alternating separators;
                io.Each(note.BendPoints, separators);
                io.Field(note.BendStyle, ':');
                io.Field(note.BendType, '>');
                io.Flag(note.HasBend);
            }),
        Tag<Note>(
            "grc:", "T|B\\S/N:", [](const Note& note) { return note.HasGrace; },
            [](auto& io, auto& note) {
                io.Field(note.GraceDynamic, '|');
                io.Field(note.GraceDuration, ':');
                io.Field(note.GraceFret, '|');
                io.Field(note.GraceTransition, '>');
                io.Flag(note.HasGrace);
            }),
        Tag<Note>(
            "trr:", "T|B\\S/N:", [](const Note& note) { return note.HasTrill; },
            [](auto& io, auto& note) {
                io.Field(note.TrillFret, '|');
                io.Field(note.TrillPeriod, '>');
                io.Flag(note.HasTrill);
            }),
    };
    return rows;
}

}  // namespace Quillon::Core::MusicTags
