// The plain text of a music file as a document, tag by tag.
#include <algorithm>
#include <array>
#include <map>
#include <variant>
#include <vector>

#include "core/MusicFileTags.h"
#include "core/mod_Common.h"

namespace Quillon::Core {

using namespace MusicTags;

namespace {

// The index of tags --------------------------------------------------------------------------------------------------

enum class Structure { TrackCount, BarCount, StrumCount, Copy };

using AnyRow =
    std::variant<const TagRow<TabFile>*, const TagRow<BarInfo>*, const TagRow<Track>*, const TagRow<PercAssignment>*,
                 const TagRow<Bar>*, const TagRow<Strum>*, const TagRow<Note>*, Structure>;

struct KnownTag {
    std::string Bytes;
    AnyRow Row;
};

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

class TagIndex {
public:
    TagIndex() {
        AddRows(HeaderTags());
        AddRows(BarInfoTags());
        AddRows(TrackTags());
        AddRows(PercussionTags());
        AddRows(PropertyTags());
        AddRows(BarTags());
        AddRows(StrumTags());
        AddRows(NoteTags());
        Add(TrackCountTag, Structure::TrackCount);
        Add(BarCountTag, Structure::BarCount);
        Add(StrumCountTag, Structure::StrumCount);
        Add(CopyTag, Structure::Copy);
        for (auto& tags : byFirst) {
            std::ranges::stable_sort(tags, std::ranges::greater{},
                                     [](const KnownTag& tag) { return tag.Bytes.size(); });
        }
    }

    /// The tag at the front of a piece; nothing for an unknown one. A name that ends in a letter must end there in the
    /// piece too, so that "path" is not taken for the note tag "p".
    const KnownTag* Find(std::string_view piece) const {
        if (piece.empty()) return nullptr;
        for (const KnownTag& tag : byFirst[static_cast<unsigned char>(piece.front())]) {
            if (!piece.starts_with(tag.Bytes)) continue;
            const bool goesOn = piece.size() > tag.Bytes.size() && IsLetter(piece[tag.Bytes.size()]);
            if (!(goesOn && IsLetter(tag.Bytes.back()))) return &tag;
        }
        return nullptr;
    }

private:
    template <class Record>
    void AddRows(std::span<const TagRow<Record>> rows) {
        for (const TagRow<Record>& row : rows) Add(row.Name, &row);
    }
    void Add(std::string_view name, AnyRow row) {
        std::string bytes = ToWindows1252(name);
        byFirst[static_cast<unsigned char>(bytes.front())].push_back({std::move(bytes), row});
    }
    std::array<std::vector<KnownTag>, 256> byFirst;
};

const TagIndex& Tags() {
    static const TagIndex index;
    return index;
}

// Limits -------------------------------------------------------------------------------------------------------------

/// What a text of this size may ask for. A count costs a few bytes of text however large it is, so counts are charged
/// here before anything is sized by them. The shares per byte are ample for any document that was really written: a
/// strum of its own has a length tag of five bytes, and a bar that copies another has twenty bytes of tags.
class Limits {
public:
    explicit Limits(std::size_t textSize)
        : places(65'536 + 4 * static_cast<std::int64_t>(textSize)),
          copies(65'536 + static_cast<std::int64_t>(textSize) / 3) {}

    /// Bars and strums that the document gets to hold, equal ones counted apart.
    void Hold(std::int64_t count) { Charge(places, count); }
    /// Strums that take memory of their own.
    void Make(std::int64_t count) { Charge(copies, count); }

private:
    static void Charge(std::int64_t& left, std::int64_t count) {
        if (count > left) RaiseOutOfMemory();
        left -= count;
    }
    std::int64_t places;
    std::int64_t copies;
};

/// A track weighs as much as this many bars.
constexpr std::int64_t TrackWeight = 64;
constexpr std::int32_t LargestUpperBound = 32'767;

// The reader ---------------------------------------------------------------------------------------------------------

class MusicReader {
public:
    MusicReader(TabFile fresh, std::size_t textSize) : file(std::move(fresh)), limits(textSize) {
        for (std::string* text : {&file.Author, &file.Artist, &file.Album, &file.Copyright, &file.TabbedBy,
                                  &file.Instructions, &file.Notice, &file.Notes}) {
            text->clear();  // tags that are missing because they were empty
        }
        file.AlwaysCharts = file.ShowHeader = file.HasPassword = file.Shuffle = false;
        for (Track& track : file.Tracks) ClearShown(track);
    }

    void ReadPiece(std::string_view piece) {
        const KnownTag* tag = Tags().Find(piece);
        if (tag) {  // one of a later version is harmless
            const std::string_view rest = piece.substr(tag->Bytes.size());
            std::visit([&](auto row) { Read(row, rest); }, tag->Row);
        }
        // A tag that does not end was cut off, and the song with it.
        if (piece.find('>') == std::string_view::npos) RaiseOverflow();
    }

    TabFile Finish(FileKind kind) {
        for (Track& track : file.Tracks) kind == FileKind::Lyrics40 ? UnpackLyrics40(track) : UnpackLyrics(track);
        return std::move(file);
    }

private:
    /// Converts all fields first; only then looks for the record, and stores.
    template <class Record, class Find>
    void ReadFields(const TagRow<Record>& row, TagReader& io, Find find) {
        static Record unused;
        TagReader trial(io.Rest(), false);
        row.Read(trial, unused);
        TagReader stores(io.Rest(), true);
        row.Read(stores, find());
    }

    void Read(const TagRow<TabFile>* row, std::string_view rest) {
        TagReader io(rest, false);
        ReadFields(*row, io, [&]() -> TabFile& { return file; });
    }
    void Read(const TagRow<BarInfo>* row, std::string_view rest) {
        TagReader io(rest, false);
        const Place place = io.At(row->AtWhenRead);
        int bar = place.Bar;
        if (row->AtWhenRead.empty()) bar = signatures[row]++;
        ReadFields(*row, io, [&]() -> BarInfo& { return file.BarInfos.Edit(bar); });
    }
    void Read(const TagRow<Track>* row, std::string_view rest) {
        TagReader io(rest, false);
        const Place place = io.At(row->AtWhenRead);
        const int track = row->AtWhenRead.empty() ? propertyTrack : place.Track;
        ReadFields(*row, io, [&]() -> Track& { return file.Tracks[track]; });
        if (row->Name == PropertiesEnd) ++propertyTrack;
    }
    void Read(const TagRow<PercAssignment>* row, std::string_view rest) {
        TagReader io(rest, false);
        const Place place = io.At(row->AtWhenRead);
        ReadFields(*row, io, [&]() -> PercAssignment& { return file.Tracks[place.Track].PercStrings[place.String]; });
    }
    void Read(const TagRow<Bar>* row, std::string_view rest) {
        TagReader io(rest, false);
        const Place place = io.At(row->AtWhenRead);
        ReadFields(*row, io, [&]() -> Bar& { return file.Tracks[place.Track].Bars.Edit(place.Bar); });
    }
    void Read(const TagRow<Strum>* row, std::string_view rest) {
        TagReader io(rest, false);
        const Place place = row->AtWhenRead.empty() ? position : io.At(row->AtWhenRead);
        ReadFields(*row, io, [&]() -> Strum& { return EditStrum(place); });
        if (row->AtWhenRead.empty()) MoveOn();
    }
    void Read(const TagRow<Note>* row, std::string_view rest) {
        TagReader io(rest, false);
        const Place place = io.At(row->AtWhenRead);
        ReadFields(*row, io, [&]() -> Note& { return EditStrum(place).Notes.Edit(place.String); });
    }

    void Read(Structure structure, std::string_view rest) {
        TagReader io(rest, true);
        switch (structure) {
            case Structure::TrackCount:
                return ResizeTracks(UpperBound(io) + 1);
            case Structure::BarCount:
                return ResizeBars(UpperBound(io) + 1);
            case Structure::StrumCount: {
                const Place place = io.At(StrumCountAt);
                return ResizeStrums(place, UpperBound(io) + 1);
            }
            case Structure::Copy: {
                const Place place = io.At(CopyAt);
                return CopyBar(place, io.Index('>'));
            }
        }
    }

    static int UpperBound(TagReader& io) {
        std::int32_t value = 0;
        io.Field(value, '>');
        if (value < 0) RaiseSubscriptOutOfRange();
        if (value > LargestUpperBound) RaiseOutOfMemory();
        return value;
    }

    void ResizeTracks(int count) {
        const int before = file.Tracks.Count();
        const std::int64_t added = std::max(0, count - before);
        limits.Hold(added * (TrackWeight + file.BarInfos.Count()));
        file.Tracks.Resize(count);
        for (int t = before; t < count; ++t) {
            ClearShown(file.Tracks[t]);
            file.Tracks[t].Bars = {};
            ResizeBars(file.Tracks[t], file.BarInfos.Count());
        }
    }

    void ResizeBars(int count) {
        const std::int64_t added = std::max(0, count - file.BarInfos.Count());
        limits.Hold(added * (file.Tracks.Count() + 1));
        file.BarInfos.Resize(count);
        for (Track& track : file.Tracks) ResizeBars(track, count);
    }

    void ResizeBars(Track& track, int count) {
        const int before = track.Bars.Count();
        track.Bars.Resize(count);
        for (int b = before; b < count; ++b) track.Bars.Edit(b) = BlankBar(1);
    }

    void ResizeStrums(const Place& place, int count) {
        Bar& bar = file.Tracks[place.Track].Bars.Edit(place.Bar);
        limits.Hold(count);
        if (!bar.OwnsStrums()) {  // blank still, or a copy that gives way
            Bar sized = BlankBar(count);
            sized.Key = bar.Key;
            sized.KeyIsMinor = bar.KeyIsMinor;
            bar = std::move(sized);
            return;
        }
        limits.Make(count);
        bar.EditStrums().Resize(count);
    }

    void CopyBar(const Place& to, int from) {
        Track& track = file.Tracks[to.Track];
        const Bar copied = track.Bars[from];
        limits.Hold(std::max(0, copied.Strums().Count() - track.Bars[to.Bar].Strums().Count()));
        track.Bars.Edit(to.Bar) = copied;
        MoveToNextBar();
    }

    /// Bars of equal size share their strums until something is stored in one of them.
    const Bar& BlankBar(int strums) {
        const auto [entry, isNew] = blanks.try_emplace(strums);
        if (isNew) {
            limits.Make(strums);
            entry->second.EditStrums().Resize(strums);
            entry->second.EditStrums()[0].Length = 2;
        }
        return entry->second;
    }

    Strum& EditStrum(const Place& place) {
        Bar& bar = file.Tracks[place.Track].Bars.Edit(place.Bar);
        const int strums = bar.Strums().Count();
        if (place.Strum < 0 || place.Strum >= strums) RaiseSubscriptOutOfRange();
        if (!bar.OwnsStrums()) limits.Make(strums);
        return bar.EditStrums()[place.Strum];
    }

    void MoveOn() {
        if (++position.Strum < file.Tracks[position.Track].Bars[position.Bar].Strums().Count()) return;
        MoveToNextBar();
    }
    void MoveToNextBar() {
        position.Strum = 0;
        if (++position.Bar < file.BarInfos.Count()) return;
        position.Bar = 0;
        ++position.Track;
    }

    static void ClearShown(Track& track) {
        track.ShowTab = track.ShowTreble = track.ShowBass = track.IsDrum = false;  // written only when true
    }

    TabFile file;
    Limits limits;
    std::map<int, Bar> blanks;                         ///< by number of strums
    std::map<const TagRow<BarInfo>*, int> signatures;  ///< tags of the time signature count bars, each for itself
    int propertyTrack = 0;                             ///< track of the tags without a track number
    Place position;                                    ///< of the next length tag
};

/// The first line of a text, without its end.
std::string_view FirstLine(std::string_view text) { return text.substr(0, text.find_first_of("\r\n")); }

constexpr std::string_view Product = "Quillon";
constexpr std::size_t VersionSize = 4;  // " 4.1"

}  // namespace

std::string Damage::Message() const {
    return Description + ". Tag Number: " + std::to_string(TagNumber) + " Source (Tag) Data: " + Piece;
}

bool IsOldMusicFile(std::string_view fileBytes) {
    const std::string_view line = FirstLine(fileBytes);
    return line == "Quillon 3.5" || line == "Quillon 3.6" || line == "Quillon 3.7";
}

MusicReadResult ReadTabFileText(std::string_view text, const TabFile& fresh) {
    MusicReadResult result;
    const std::string_view version = FirstLine(text);
    // Whatever the last four characters say: a later version's unknown tags are skipped.
    if (version.size() != Product.size() + VersionSize || !version.starts_with(Product)) return result;
    result.Kind = version == "Quillon 4.0" ? FileKind::Lyrics40 : FileKind::Current;

    MusicReader reader(fresh, text.size());
    std::size_t from = text.find('<');
    for (int number = 1; from != std::string_view::npos; ++number) {
        const std::size_t to = text.find('<', from + 1);
        const std::string_view piece = text.substr(from + 1, to == std::string_view::npos ? to : to - from - 1);
        try {
            reader.ReadPiece(piece);
        } catch (const RunTimeError& error) {
            result.Stopped = Damage{error.Description(), number, FromWindows1252(piece)};
            break;
        }
        from = to;
    }
    result.Document = reader.Finish(*result.Kind);
    return result;
}

}  // namespace Quillon::Core
