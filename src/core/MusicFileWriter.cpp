// The document as the plain text of a music file.
#include <string>
#include <unordered_map>
#include <vector>

#include "core/MusicFileTags.h"
#include "core/mod_Common.h"

namespace Quillon::Core {

using namespace MusicTags;

namespace {

constexpr std::string_view VersionLine = "Quillon 4.1\r\n";
constexpr std::string_view LineEnd = "\r\n";

template <class Record>
void WriteRow(TagWriter& io, const TagRow<Record>& row, const Record& record, const Place& place) {
    if (!row.Due(record)) return;
    io.Name(row.Name);
    io.At(row.At, place);
    row.Write(io, record);
}

template <class Record>
void WriteRows(TagWriter& io, std::span<const TagRow<Record>> rows, const Record& record, const Place& place = {}) {
    for (const TagRow<Record>& row : rows) WriteRow(io, row, record, place);
}

void WriteStrum(TagWriter& io, const Strum& strum, Place place, bool withHash) {
    for (const TagRow<Strum>& row : StrumTags()) {
        if (withHash || row.Name != HashTag) WriteRow(io, row, strum, place);
    }
    for (place.String = 0; place.String < StringCount; ++place.String) {
        if (!strum.Notes.IsDefault(place.String)) WriteRows(io, NoteTags(), strum.Notes[place.String], place);
    }
}

void WriteBar(TagWriter& io, const Bar& bar, Place place, bool withHash = true) {
    WriteRows(io, BarTags(), bar, place);
    for (place.Strum = 0; place.Strum < bar.Strums().Count(); ++place.Strum) {
        WriteStrum(io, bar.Strums()[place.Strum], place, withHash);
    }
}

void WriteBarOrCopy(TagWriter& io, const Bar& bar, const Place& place, int equalTo) {
    if (equalTo < 0) return WriteBar(io, bar, place);
    io.Name(CopyTag);
    io.At(CopyAt, place);
    io.Field(equalTo, '>');
}

void WriteStrumCounts(TagWriter& io, const TabFile& file) {
    Place place;
    for (; place.Track < file.Tracks.Count(); ++place.Track) {
        for (place.Bar = 0; place.Bar < file.BarInfos.Count(); ++place.Bar) {
            io.Name(StrumCountTag);
            io.At(StrumCountAt, place);
            io.Field(file.Tracks[place.Track].Bars[place.Bar].Strums().UpperBound(), '>');
        }
    }
}

void WriteTrack(TagWriter& io, const Track& track, Place place) {
    Track packed = track;  // shares the bars
    packed.Lyrics = PackLyrics(track);
    WriteRows(io, TrackTags(), packed, place);
    if (track.IsDrum) {
        for (place.String = 0; place.String < StringCount; ++place.String) {
            WriteRows(io, PercussionTags(), track.PercStrings[place.String], place);
        }
    }
    WriteRows(io, PropertyTags(), track);
    const std::vector<int> equals = EqualEarlierBars(track);
    for (place.Bar = 0; place.Bar < track.Bars.Count(); ++place.Bar) {
        WriteBarOrCopy(io, track.Bars[place.Bar], place, equals[static_cast<std::size_t>(place.Bar)]);
    }
}

}  // namespace

std::vector<int> EqualEarlierBars(const Track& track) {
    std::vector<int> equals;
    std::unordered_map<std::string, int> latest;
    clsAppend fingerprint;
    TagWriter io(fingerprint);
    for (int b = 0; b < track.Bars.Count(); ++b) {
        fingerprint.ReInit();
        // As if it were bar 0, so that only the music decides. Hash marks are left out of it, and so bars that differ
        // in these alone become copies: this is meant, and a save asks first.
        WriteBar(io, track.Bars[b], Place{}, false);
        const auto [entry, isNew] = latest.try_emplace(fingerprint.GetString(), b);
        equals.push_back(isNew ? -1 : entry->second);
        entry->second = b;
    }
    return equals;
}

std::string WriteTabFileText(const TabFile& file) {
    clsAppend text;
    text.SConcat(VersionLine);
    TagWriter io(text);
    WriteRows(io, HeaderTags(), file);
    io.Name(TrackCountTag);
    io.Field(file.Tracks.UpperBound(), '>');
    io.Name(BarCountTag);
    io.Field(file.BarInfos.UpperBound(), '>');
    WriteStrumCounts(io, file);
    for (Place place; place.Bar < file.BarInfos.Count(); ++place.Bar) {
        WriteRows(io, BarInfoTags(), file.BarInfos[place.Bar], place);
    }
    for (Place place; place.Track < file.Tracks.Count(); ++place.Track) {
        WriteTrack(io, file.Tracks[place.Track], place);
    }
    text.SConcat(LineEnd);
    return text.GetString();
}

}  // namespace Quillon::Core
