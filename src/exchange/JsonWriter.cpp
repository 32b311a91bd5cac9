// The document goes into its text at once: a tree of a long song would take ten times the room of the text.
#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

#include "exchange/JsonDocument.h"
#include "exchange/JsonFields.h"

namespace Quillon::Exchange {

namespace {

constexpr std::size_t IndentStep = 2;

std::string TextOf(const std::string& value) {
    return nlohmann::json(value).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}
std::string TextOf(bool value) { return value ? "true" : "false"; }
template <class Integer>
requires std::is_integral_v<Integer> std::string TextOf(Integer value) { return std::to_string(value); }
/// A whole number without a point: 60, not 60.0.
std::string TextOf(double value) {
    constexpr double exact = 9007199254740992.0;  // up to here every whole number is its own double
    if (std::fabs(value) < exact && std::trunc(value) == value) return TextOf(static_cast<std::int64_t>(value));
    return nlohmann::json(value).dump();
}

/// An object or array that is being written: braces, commas and line ends.
class Bracket {
public:
    Bracket(std::string& to, std::size_t depth, char opens, char closes) : out(to), indent(depth), close(closes) {
        out += opens;
    }
    ~Bracket() {
        if (!empty) Line(indent);
        out += close;
    }
    Bracket(const Bracket&) = delete;
    Bracket& operator=(const Bracket&) = delete;

    /// Begins the next element; what it holds is written behind.
    std::string& Next() {
        if (!empty) out += ',';
        empty = false;
        Line(Inner());
        return out;
    }
    std::string& Next(std::string_view name) { return Next().append("\"").append(name).append("\": "); }
    std::size_t Inner() const { return indent + IndentStep; }
    bool IsEmpty() const { return empty; }

private:
    void Line(std::size_t depth) { (out += '\n').append(depth, ' '); }

    std::string& out;
    std::size_t indent;
    char close;
    bool empty = true;
};

/// Writes the fields of one record as one object: all of them, or those that are not 0, "" or false.
class Writer {
public:
    Writer(std::string& to, std::size_t depth, bool all) : out(to), object(to, depth, '{', '}'), writesAll(all) {}

    bool IsEmpty() const { return object.IsEmpty(); }

    template <class T>
    void Field(const char* name, const T& value) {
        if (writesAll || value != T{}) object.Next(name) += TextOf(value);
    }
    template <class T>
    void Field(const char* name, const T& value, JsonFields::Limits) {
        Field(name, value);
    }
    template <class T>
    void Always(const char* name, const T& value, JsonFields::Limits) {
        object.Next(name) += TextOf(value);
    }
    void PowerOfTwo(const char* name, std::int32_t value) { object.Next(name) += TextOf(value); }
    /// As the shortest decimal that gives the single back: 120.55, not 120.55000305.
    void Tempo(const char* name, float value) {
        std::array<char, 32> digits{};
        const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        double decimal = 0;
        std::from_chars(digits.data(), end, decimal);
        object.Next(name) += TextOf(decimal);
    }

    template <class Values>
    void Row(const char* name, const Values& values) {
        Array(name, values, [this](const auto& value, std::size_t) { out += TextOf(value); });
    }
    template <class Values>
    void Lazy(const char* name, const Values& values) {
        if (!values.IsDefault()) Row(name, values.Read());
    }
    template <class Values>
    void Curve(const char* name, const Values& values, bool present) {
        if (present) Lazy(name, values);
    }
    void PercStrings(const char* name, const Core::Row<Core::PercAssignment, Core::StringCount>& strings) {
        Array(name, strings, [this](const Core::PercAssignment& perc, std::size_t depth) {
            Writer writer(out, depth, true);
            JsonFields::PercFields(writer, perc);
        });
    }
    void Notes(const char* name, const Core::Slots<Core::Note, Core::StringCount>& notes) {
        std::string text;
        bool isEmpty = true;
        {
            Bracket slots(text, object.Inner(), '{', '}');
            for (int s = 0; s < Core::StringCount; ++s) {
                if (notes.IsDefault(s)) continue;
                // Points of a bend that is off are not written, and may have been all that the slot held.
                std::string slot;
                bool slotIsEmpty = true;
                {
                    Writer writer(slot, slots.Inner(), false);
                    JsonFields::NoteFields(writer, notes[s]);
                    slotIsEmpty = writer.IsEmpty();
                }
                if (!slotIsEmpty) slots.Next(std::to_string(s)) += slot;
            }
            isEmpty = slots.IsEmpty();
        }
        if (!isEmpty) object.Next(name) += text;
    }
    void Strums(const char* name, const Core::Bar& bar) {
        Array(name, bar.Strums(), [this](const Core::Strum& strum, std::size_t depth) {
            Writer writer(out, depth, false);
            JsonFields::StrumFields(writer, strum);
        });
    }
    void Bars(const char* name, const Core::SharedList<Core::Bar>& bars) {
        Array(name, bars, [this](const Core::Bar& bar, std::size_t depth) {
            Writer writer(out, depth, true);
            JsonFields::BarFields(writer, bar);
        });
    }
    void Tracks(const char* name, const Core::List<Core::Track>& tracks) {
        Array(name, tracks, [this](const Core::Track& track, std::size_t depth) {
            Writer writer(out, depth, true);
            JsonFields::TrackFields(writer, track);
        });
    }
    void BarInfos(const char* name, const Core::TabFile& file) {
        Array(name, file.BarInfos, [this](const Core::BarInfo& info, std::size_t depth) {
            Writer writer(out, depth, true);
            JsonFields::BarInfoFields(writer, info);
        });
    }

private:
    template <class Values, class Write>
    void Array(const char* name, const Values& values, Write write) {
        object.Next(name);
        Bracket array(out, object.Inner(), '[', ']');
        for (const auto& value : values) {
            array.Next();
            write(value, array.Inner());
        }
    }

    std::string& out;
    Bracket object;
    bool writesAll;
};

/// About how many bytes a document takes: room that is asked for at once is not copied while it grows.
std::size_t RoughSize(const Core::TabFile& file) {
    constexpr std::size_t ofFile = 4096, ofTrack = 8192, ofBar = 160, ofInfo = 240, ofStrum = 60, ofNote = 90;
    std::size_t size = ofFile + ofInfo * static_cast<std::size_t>(file.BarInfos.Count());
    for (const Core::Track& track : file.Tracks) {
        size += ofTrack + ofBar * static_cast<std::size_t>(track.Bars.Count());
        for (const Core::Bar& bar : track.Bars) {
            for (const Core::Strum& strum : bar.Strums()) {
                size += ofStrum;
                for (int string = 0; string < Core::StringCount; ++string) {
                    if (!strum.Notes.IsDefault(string)) size += ofNote;
                }
            }
        }
    }
    return size;
}

}  // namespace

std::string WriteJson(const Core::TabFile& file) {
    std::string text;
    text.reserve(RoughSize(file));
    {
        Writer writer(text, 0, true);
        JsonFields::DocumentFields(writer, file);
    }
    text += '\n';
    return text;
}

}  // namespace Quillon::Exchange
