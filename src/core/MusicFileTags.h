// The tags of the music file, described once: writer, reader and the search for losses all walk these rows.
//
// A row names the tag, the indices behind it with the separator behind each ("T|B\S/N:" is track, bar, strum and
// string), when it is written, and its fields. The fields are one generic function over an "io" that either writes,
// reads or inspects them, so that no two of the three can drift apart.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/clsAppend.h"
#include "core/mod_MusicFile.h"
#include "core/mod_TabFileStructure.h"

namespace Quillon::Core::MusicTags {

struct Place {
    int Track = 0;
    int Bar = 0;
    int Strum = 0;
    int String = 0;
};

/// Separators of curves and chords: "\", "/", "\" and so on.
class Alternating {
public:
    char Next() {
        backslash = !backslash;
        return backslash ? '\\' : '/';
    }

private:
    bool backslash = false;
};

/// Writes values, each followed by its separator.
class TagWriter {
public:
    explicit TagWriter(clsAppend& to) : out(to) {}

    void Field(const std::string& value, char separator);
    void Field(bool value, char separator);
    void Field(double value, char separator);
    void Field(float value, char separator);
    template <class Integer>
    requires std::is_integral_v<Integer>
    void Field(Integer value, char separator) { Whole(value, separator); }
    template <class List>
    void Each(const List& values, Alternating& separators) {
        for (const auto& value : values.Read()) Field(value, separators.Next());
    }
    void Flag(bool) {}
    void Mark(std::int16_t, std::int16_t = -1) {}
    void Close() { out.SConcat('>'); }
    void Name(std::string_view utf8Name);
    void At(std::string_view pattern, const Place& place);

private:
    void Whole(std::int64_t value, char separator);
    clsAppend& out;
};

/// Converts values up to their separators. Raises "Overflow" for a missing separator, and what conversions raise.
/// Stores only when told so: a tag takes effect when all its fields converted.
class TagReader {
public:
    TagReader(std::string_view from, bool stores) : rest(from), storing(stores) {}

    template <class T>
    void Field(T& value, char separator) {
        Convert(Take(separator), value);
    }
    template <class List>
    void Each(List& values, Alternating& separators) {
        if (storing) {
            for (auto& value : values.Edit()) Field(value, separators.Next());
        } else {
            auto unused = values.Read();
            for (auto& value : unused) Field(value, separators.Next());
        }
    }
    /// The presence of the tag is the value.
    void Flag(bool& value) const {
        if (storing) value = true;
    }
    /// As Flag; true is minus one in most 16-bit marks.
    void Mark(std::int16_t& value, std::int16_t set = -1) const {
        if (storing) value = set;
    }
    void Close() const {}  // nothing to convert is left
    Place At(std::string_view pattern);
    int Index(char separator);
    std::string_view Rest() const { return rest; }

private:
    std::string_view Take(char separator);
    void Convert(std::string_view text, std::string& value) const;
    void Convert(std::string_view text, bool& value) const;
    void Convert(std::string_view text, double& value) const;
    void Convert(std::string_view text, float& value) const;
    void Convert(std::string_view text, std::uint8_t& value) const;
    void Convert(std::string_view text, std::int16_t& value) const;
    void Convert(std::string_view text, std::int32_t& value) const;

    std::string_view rest;
    bool storing;
};

/// Looks for texts that do not come back.
class TextInspector {
public:
    TextInspector(std::vector<Loss>& to, const Place& at) : losses(to), place(at) {}

    void Field(const std::string& value, char separator);
    template <class T>
    void Field(const T&, char) {}
    template <class List>
    void Each(const List& values, Alternating& separators) {
        for (const auto& value : values.Read()) Field(value, separators.Next());
    }
    void Flag(bool) {}
    void Close() {}
    void Mark(std::int16_t, std::int16_t = -1) {}

private:
    std::vector<Loss>& losses;
    Place place;
};

template <class Record>
struct TagRow {
    std::string_view Name;  ///< without the "<", UTF-8
    std::string_view At;    ///< "" for a tag that counts by position, or stands once
    std::string_view AtWhenRead;
    bool (*Due)(const Record&);
    void (*Write)(TagWriter&, const Record&);
    void (*Read)(TagReader&, Record&);
    void (*Inspect)(TextInspector&, const Record&);
};

std::span<const TagRow<TabFile>> HeaderTags();
std::span<const TagRow<BarInfo>> BarInfoTags();
std::span<const TagRow<Track>> TrackTags();
std::span<const TagRow<PercAssignment>> PercussionTags();
/// Without a track number: the reader counts. The last one, PropertiesEnd, moves its count on.
std::span<const TagRow<Track>> PropertyTags();
std::span<const TagRow<Bar>> BarTags();
std::span<const TagRow<Strum>> StrumTags();
std::span<const TagRow<Note>> NoteTags();

constexpr std::string_view PropertiesEnd = "f.t.vov:";
constexpr std::string_view LengthTag = "l:";     ///< moves the reading position on
constexpr std::string_view HashTag = "hsh:";     ///< no part of a bar's fingerprint
constexpr std::string_view TrackCountTag = "¸";  // the cedilla
constexpr std::string_view BarCountTag = "\u0090";
constexpr std::string_view StrumCountTag = "µ";  // the micro sign
constexpr std::string_view StrumCountAt = "T|B/";
constexpr std::string_view CopyTag = "TB=";
constexpr std::string_view CopyAt = "T\\B|";

}  // namespace Quillon::Core::MusicTags

namespace Quillon::Core {

/// For each bar of a track the nearest earlier bar with the same tags, or -1. Linear in the size of the track.
std::vector<int> EqualEarlierBars(const Track& track);

}  // namespace Quillon::Core
