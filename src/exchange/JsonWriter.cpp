#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

#include "exchange/JsonDocument.h"
#include "exchange/JsonFields.h"

namespace Quillon::Exchange {

using Json = nlohmann::ordered_json;

namespace {

/// Writes the fields of one record into one object: all of them, or those that are not 0, "" or false.
class Writer {
public:
    Writer(Json& into, bool all) : object(into), writesAll(all) {}

    template <class T>
    void Field(const char* name, const T& value) {
        if (writesAll || value != T{}) object[name] = value;
    }
    template <class T>
    void Field(const char* name, const T& value, JsonFields::Limits) {
        Field(name, value);
    }
    template <class T>
    void Always(const char* name, const T& value, JsonFields::Limits) {
        object[name] = value;
    }
    void PowerOfTwo(const char* name, std::int32_t value) { object[name] = value; }
    /// As the shortest decimal that gives the single back: 120.55, not 120.55000305.
    void Tempo(const char* name, float value) {
        std::array<char, 32> digits{};
        const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        double decimal = 0;
        std::from_chars(digits.data(), end, decimal);
        object[name] = AsNumber(decimal);
    }

    template <class Values>
    void Row(const char* name, const Values& values) {
        Json& array = object[name] = Json::array();
        for (const auto& value : values) array.push_back(AsNumber(value));
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
        Json& array = object[name] = Json::array();
        for (const Core::PercAssignment& perc : strings) {
            Writer writer(array.emplace_back(Json::object()), true);
            JsonFields::PercFields(writer, perc);
        }
    }
    void Notes(const char* name, const Core::Slots<Core::Note, Core::StringCount>& notes) {
        Json slots = Json::object();
        for (int s = 0; s < Core::StringCount; ++s) {
            if (notes.IsDefault(s)) continue;
            Json slot = Json::object();
            Writer writer(slot, false);
            JsonFields::NoteFields(writer, notes[s]);
            // Points of a bend that is off are not written, and may have been all that the slot held.
            if (!slot.empty()) slots[std::to_string(s)] = std::move(slot);
        }
        if (!slots.empty()) object[name] = std::move(slots);
    }
    void Strums(const char* name, const Core::Bar& bar) {
        Json& array = object[name] = Json::array();
        for (const Core::Strum& strum : bar.Strums()) {
            Writer writer(array.emplace_back(Json::object()), false);
            JsonFields::StrumFields(writer, strum);
        }
    }
    void Bars(const char* name, const Core::SharedList<Core::Bar>& bars) {
        Json& array = object[name] = Json::array();
        for (const Core::Bar& bar : bars) {
            Writer writer(array.emplace_back(Json::object()), true);
            JsonFields::BarFields(writer, bar);
        }
    }
    void Tracks(const char* name, const Core::List<Core::Track>& tracks) {
        Json& array = object[name] = Json::array();
        for (const Core::Track& track : tracks) {
            Writer writer(array.emplace_back(Json::object()), true);
            JsonFields::TrackFields(writer, track);
        }
    }
    void BarInfos(const char* name, const Core::TabFile& file) {
        Json& array = object[name] = Json::array();
        for (const Core::BarInfo& info : file.BarInfos) {
            Writer writer(array.emplace_back(Json::object()), true);
            JsonFields::BarInfoFields(writer, info);
        }
    }

private:
    template <class T>
    static const T& AsNumber(const T& value) {
        return value;
    }
    /// A whole number without a point: 60, not 60.0.
    static Json AsNumber(double value) {
        constexpr double exact = 9007199254740992.0;  // up to here every whole number is its own double
        if (std::fabs(value) < exact && std::trunc(value) == value) return static_cast<std::int64_t>(value);
        return value;
    }

    Json& object;
    bool writesAll;
};

}  // namespace

std::string WriteJson(const Core::TabFile& file) {
    Json document = Json::object();
    Writer writer(document, true);
    JsonFields::DocumentFields(writer, file);
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace Quillon::Exchange
