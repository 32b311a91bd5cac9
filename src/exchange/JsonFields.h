// The fields of every record in their order, described once for the writer and the reader.
//
// An io offers Field for numbers, flags and texts, with limits where a field has any; Row for rows of a fixed length;
// Lazy for rows that are left out while empty; Curve for points that stand only with their flag; and a routine for
// each kind of record within.
#pragma once

#include <cstdint>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Exchange::JsonFields {

struct Limits {
    std::int64_t Least;
    std::int64_t Most;
};

constexpr Limits KeyLimits{0, 13};
constexpr Limits LengthLimits{0, 6};
constexpr Limits TupletLimits{0, 8};
constexpr Limits StringLimits{1, Core::StringCount};
constexpr Limits TimeSigTopLimits{1, 32};

template <class Io, class Assignment>
void PercFields(Io& io, Assignment& perc) {
    io.Field("dbx", perc.dbx);
    io.Field("dlo", perc.dlo);
    io.Field("dlx", perc.dlx);
    io.Field("dlr", perc.dlr);
    io.Field("dlf", perc.dlf);
    io.Field("dbo", perc.dbo);
    io.Field("dls", perc.dls);
    io.Field("dbs", perc.dbs);
    io.Field("dlc", perc.dlc);
    io.Field("dro", perc.dro);
    io.Field("dlt", perc.dlt);
    io.Field("dbf", perc.dbf);
}

template <class Io, class Note>
void NoteFields(Io& io, Note& note) {
    io.Field("Fret", note.Fret);
    io.Field("Dynamic", note.Dynamic);
    io.Field("LetRing", note.LetRing);
    io.Field("Accentuate", note.Accentuate);
    io.Field("Harmonic", note.Harmonic);
    io.Field("Tied", note.Tied);
    io.Field("Technique", note.Technique);
    io.Field("GraceFret", note.GraceFret);
    io.Field("GraceDynamic", note.GraceDynamic);
    io.Field("GraceDuration", note.GraceDuration);
    io.Field("GraceTransition", note.GraceTransition);
    io.Field("HasGrace", note.HasGrace);
    io.Field("TrillFret", note.TrillFret);
    io.Field("TrillPeriod", note.TrillPeriod);
    io.Field("HasTrill", note.HasTrill);
    io.Curve("BendPoints", note.BendPoints, note.HasBend);
    io.Field("BendStyle", note.BendStyle);
    io.Field("BendType", note.BendType);
    io.Field("HasBend", note.HasBend);
    io.Field("LeftFinger", note.LeftFinger);
    io.Field("RightFinger", note.RightFinger);
    io.Field("Ghost", note.Ghost);
}

template <class Io, class Strum>
void StrumFields(Io& io, Strum& strum) {
    io.Notes("Notes", strum.Notes);
    io.Always("Length", strum.Length, LengthLimits);
    io.Field("Technique", strum.Technique);
    io.Curve("TremPoints", strum.TremPoints, strum.HasTrem);
    io.Field("TremLength", strum.TremLength);
    io.Field("TremRange", strum.TremRange);
    io.Field("HasTrem", strum.HasTrem);
    io.Field("Stroke", strum.Stroke);
    io.Field("Text", strum.Text);
    io.Field("Tuplet", strum.Tuplet, TupletLimits);
    io.Field("HasTuplet", strum.HasTuplet);
    io.Field("Dotted", strum.Dotted);
    io.Field("HasChord", strum.HasChord);
    io.Field("ChordValueA", strum.ChordValueA);
    io.Field("ChordValueB", strum.ChordValueB);
    io.Field("ChordFlag", strum.ChordFlag);
    io.Lazy("ChordFrets", strum.ChordFrets);
    io.Lazy("ChordFingers", strum.ChordFingers);
    io.Lazy("ChordMarks", strum.ChordMarks);
    io.Field("ChordName", strum.ChordName);
    io.Field("GotoText", strum.GotoText);
    io.Lazy("Syllables", strum.Syllables);
    io.Field("Hash", strum.Hash);
}

template <class Io, class Bar>
void BarFields(Io& io, Bar& bar) {
    io.Field("Key", bar.Key, KeyLimits);
    io.Field("KeyIsMinor", bar.KeyIsMinor);
    io.Strums("Strums", bar);
}

template <class Io, class BarInfo>
void BarInfoFields(Io& io, BarInfo& info) {
    io.Field("TimeSigTop", info.TimeSigTop, TimeSigTopLimits);
    io.PowerOfTwo("TimeSigBottom", info.TimeSigBottom);
    io.Field("DalSegno", info.DalSegno);
    io.Field("CodaMark", info.CodaMark);
    io.Field("ToCoda", info.ToCoda);
    io.Field("Segno", info.Segno);
    io.Field("RepeatOpen", info.RepeatOpen);
    io.Field("RepeatClose", info.RepeatClose);
}

template <class Io, class Track>
void TrackFields(Io& io, Track& track) {
    io.Field("Name", track.Name);
    io.Field("InstrumentName", track.InstrumentName);
    io.Field("Volume", track.Volume);
    io.Field("Instrument", track.Instrument);
    io.Field("Strings", track.Strings, StringLimits);
    io.Row("Tuning", track.Tuning);
    io.Field("Channel", track.Channel);
    io.Field("EffectChannel", track.EffectChannel);
    io.Field("OctaveDown", track.OctaveDown);
    io.Field("OctaveUp", track.OctaveUp);
    io.Field("ChordVolume", track.ChordVolume);
    io.PercStrings("PercStrings", track.PercStrings);
    io.Field("Reverb", track.Reverb);
    io.Field("ShowStaff", track.ShowStaff);
    io.Field("Capo", track.Capo);
    io.Field("LyricsOfOtherTrack", track.LyricsOfOtherTrack);
    io.Field("LyricsTrack", track.LyricsTrack);
    io.Bars("Bars", track.Bars);
    io.Field("ShowTreble", track.ShowTreble);
    io.Field("ShowBass", track.ShowBass);
    io.Field("ShowTab", track.ShowTab);
    io.Field("IsDrum", track.IsDrum);
}

template <class Io, class TabFile>
void DocumentFields(Io& io, TabFile& file) {
    io.Field("RA", file.RA);
    io.Field("RT", file.RT);
    io.Tracks("Tracks", file.Tracks);
    io.BarInfos("BarInfos", file);
    io.Field("Title", file.Title);
    io.Field("HasPassword", file.HasPassword);
    io.Field("Password", file.Password);
    io.Field("SubTitle", file.SubTitle);
    io.Field("Author", file.Author);
    io.Field("Artist", file.Artist);
    io.Field("Album", file.Album);
    io.Field("Copyright", file.Copyright);
    io.Field("TabbedBy", file.TabbedBy);
    io.Field("Instructions", file.Instructions);
    io.Field("Notice", file.Notice);
    io.Field("Notes", file.Notes);
    io.Tempo("Tempo", file.Tempo);
    io.Field("Shuffle", file.Shuffle);
    io.Field("RowSpacing", file.RowSpacing);
    io.Field("AlwaysCharts", file.AlwaysCharts);
    io.Field("ShowHeader", file.ShowHeader);
    io.Field("FontBold", file.FontBold);
    io.Field("FontItalic", file.FontItalic);
    io.Field("FontName", file.FontName);
    io.Field("FontSize", file.FontSize);
    io.Field("FontStrike", file.FontStrike);
    io.Field("FontUnderline", file.FontUnderline);
    io.Field("FontColor", file.FontColor);
    io.Field("LineColor", file.LineColor);
    io.Field("NoteFontBold", file.NoteFontBold);
    io.Field("NoteFontItalic", file.NoteFontItalic);
    io.Field("NoteFontName", file.NoteFontName);
    io.Field("NoteFontSize", file.NoteFontSize);
    io.Field("NoteFontStrike", file.NoteFontStrike);
    io.Field("NoteFontUnderline", file.NoteFontUnderline);
    io.Field("NoteFontColor", file.NoteFontColor);
}

}  // namespace Quillon::Exchange::JsonFields
