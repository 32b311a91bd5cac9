#include <algorithm>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"
#include "exchange/JsonDocument.h"
#include "exchange/JsonFields.h"

namespace Quillon::Exchange {

using nlohmann::json;

namespace {

constexpr std::size_t MostElements = 32768;  // indices are 16-bit

/// The way from the document to a value, told only when something is wrong.
struct Where {
    const Where* Parent = nullptr;
    std::string_view Name;
    std::int64_t Index = -1;

    std::string Text() const {
        std::string text = Parent ? Parent->Text() : "";
        if (Index >= 0) return text + "[" + std::to_string(Index) + "]";
        if (!text.empty() && !Name.empty()) text += ".";
        return text.append(Name);
    }
};

[[noreturn]] void Refuse(const Where& where, const std::string& why) {
    const std::string place = where.Text();
    throw RunTimeError(13, (place.empty() ? "Document" : place) + ": " + why);
}

/// Reads the fields of one record from one object, and refuses what is left over.
class Reader {
public:
    Reader(const json& from, const Where& at) : object(from), where(at) {
        if (!object.is_object()) Refuse(where, "an object expected");
    }

    /// Raises for a key that no field took.
    void Finish() const {
        if (known.size() == object.size()) return;
        for (const auto& [key, value] : object.items()) {
            if (std::find(known.begin(), known.end(), key) == known.end()) Refuse({&where, key}, "unknown key");
        }
    }

    void Field(const char* name, std::string& value) {
        const json* found = Find(name);
        if (found) Element(*found, {&where, name}, value);
    }
    void Field(const char* name, bool& value) {
        const json* found = Find(name);
        if (!found) return;
        if (!found->is_boolean()) Refuse({&where, name}, "true or false expected");
        value = found->get<bool>();
    }
    template <class Integer>
    requires std::is_integral_v<Integer>
    void Field(const char* name, Integer& value) {
        Field(name, value, {std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()});
    }
    template <class Integer>
    void Field(const char* name, Integer& value, JsonFields::Limits limits) {
        if (const json* found = Find(name)) value = static_cast<Integer>(Whole(*found, {&where, name}, limits));
    }
    template <class Integer>
    void Always(const char* name, Integer& value, JsonFields::Limits limits) {
        Field(name, value, limits);
    }
    void PowerOfTwo(const char* name, std::int32_t& value) {
        Field(name, value, {1, 32});
        if ((value & (value - 1)) != 0) Refuse({&where, name}, "1, 2, 4, 8, 16 or 32 expected");
    }
    void Tempo(const char* name, float& value) {
        const json* found = Find(name);
        if (!found) return;
        const double tempo = Number(*found, {&where, name});
        const bool fits = std::fabs(tempo) <= static_cast<double>(std::numeric_limits<float>::max());
        value = fits ? static_cast<float>(tempo) : 0;
        if (!(value > 0)) Refuse({&where, name}, "a number above 0 expected");
    }

    template <class Values>
    void Row(const char* name, Values& values) {
        if (const json* array = Array(name, Values::Size)) ReadRow(*array, {&where, name}, values);
    }
    template <class T>
    void Lazy(const char* name, Core::Lazy<T>& values) {
        const json* array = Array(name, T::Size);
        if (!array) return;
        ReadRow(*array, {&where, name}, values.Edit());
        if (values.IsDefault()) values.Clear();
    }
    template <class T>
    void Curve(const char* name, Core::Lazy<T>& values, bool) {
        Lazy(name, values);
    }
    void PercStrings(const char* name, Core::Row<Core::PercAssignment, Core::StringCount>& strings) {
        ReadRecords(name, Core::StringCount, [&](const json& element, const Where& at, std::size_t index) {
            Reader reader(element, at);
            JsonFields::PercFields(reader, strings[index]);
            reader.Finish();
        });
    }
    void Notes(const char* name, Core::Slots<Core::Note, Core::StringCount>& notes) {
        const json* slots = Find(name);
        if (!slots) return;
        const Where at{&where, name};
        if (!slots->is_object()) Refuse(at, "an object expected");
        for (const auto& [key, slot] : slots->items()) {
            const Where noteAt{&at, key};
            if (key.size() != 1 || key[0] < '0' || key[0] > '6') Refuse(noteAt, "a string from 0 to 6 expected");
            const int string = key[0] - '0';
            Reader reader(slot, noteAt);
            JsonFields::NoteFields(reader, notes.Edit(string));
            reader.Finish();
            if (notes.IsDefault(string)) notes.Clear(string);
        }
    }
    void Strums(const char* name, Core::Bar& bar) {
        Core::List<Core::Strum>& strums = bar.EditStrums();
        strums[0].Length = 2;
        if (const auto found = object.find(name); found != object.end() && found->is_array()) {
            strums.Resize(CountOf(*found, {&where, name}));
        }
        ReadRecords(name, AtLeastOne, [&](const json& element, const Where& at, std::size_t index) {
            strums[index].Length = 2;
            Reader reader(element, at);
            JsonFields::StrumFields(reader, strums[index]);
            reader.Finish();
        });
    }
    void Bars(const char* name, Core::SharedList<Core::Bar>& bars) {
        bars.Edit(0).EditStrums()[0].Length = 2;
        if (const auto found = object.find(name); found != object.end() && found->is_array()) {
            bars.Resize(CountOf(*found, {&where, name}));
        }
        ReadRecords(name, AtLeastOne, [&](const json& element, const Where& at, std::size_t index) {
            Reader reader(element, at);
            JsonFields::BarFields(reader, bars.Edit(index));
            reader.Finish();
        });
    }
    void Tracks(const char* name, Core::List<Core::Track>& tracks) {
        if (const auto found = object.find(name); found != object.end() && found->is_array()) {
            tracks = Core::List<Core::Track>(static_cast<std::size_t>(CountOf(*found, {&where, name})));
        }
        ReadRecords(name, AtLeastOne, [&](const json& element, const Where& at, std::size_t index) {
            Reader reader(element, at);
            JsonFields::TrackFields(reader, tracks[index]);
            reader.Finish();
            const int bars = tracks[0].Bars.Count();
            if (tracks[index].Bars.Count() != bars) {
                Refuse({&at, "Bars"}, std::to_string(bars) + " bars expected, as in the first track");
            }
        });
    }
    void BarInfos(const char* name, Core::TabFile& file) {
        const int bars = file.Tracks[0].Bars.Count();
        file.BarInfos.Resize(bars);
        ReadRecords(name, bars, [&](const json& element, const Where& at, std::size_t index) {
            Reader reader(element, at);
            JsonFields::BarInfoFields(reader, file.BarInfos.Edit(index));
            reader.Finish();
        });
    }

private:
    static constexpr int AtLeastOne = -1;

    const json* Find(const char* name) {
        const auto found = object.find(name);
        if (found == object.end()) return nullptr;
        known.emplace_back(name);
        return &*found;
    }
    static int CountOf(const json& array, const Where& at) {
        if (array.empty()) Refuse(at, "at least one element expected");
        if (array.size() > MostElements) Refuse(at, "at most 32768 elements expected");
        return static_cast<int>(array.size());
    }
    const json* Array(const char* name, int count) {
        const json* found = Find(name);
        if (!found) return nullptr;
        const Where at{&where, name};
        if (!found->is_array()) Refuse(at, "an array expected");
        if (count != AtLeastOne && found->size() != static_cast<std::size_t>(count)) {
            Refuse(at, std::to_string(count) + " elements expected, " + std::to_string(found->size()) + " found");
        }
        return found;
    }
    static std::int64_t Whole(const json& value, const Where& at, JsonFields::Limits limits) {
        if (!value.is_number_integer()) Refuse(at, "a whole number expected");
        constexpr auto most = std::numeric_limits<std::int64_t>::max();
        const bool large = value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(most);
        const std::int64_t number = large ? most : value.get<std::int64_t>();
        if (number < limits.Least || number > limits.Most) {
            Refuse(at, std::to_string(limits.Least) + " to " + std::to_string(limits.Most) + " expected");
        }
        return number;
    }
    static double Number(const json& value, const Where& at) {
        if (!value.is_number()) Refuse(at, "a number expected");
        return value.get<double>();
    }
    template <class Use>
    void ReadRecords(const char* name, int count, Use use) {
        if (const json* array = Array(name, count)) Each(*array, {&where, name}, use);
    }
    template <class Use>
    static void Each(const json& array, const Where& at, Use use) {
        for (std::size_t i = 0; i < array.size(); ++i) use(array[i], Where{&at, "", static_cast<std::int64_t>(i)}, i);
    }
    template <class Values>
    static void ReadRow(const json& array, const Where& at, Values& values) {
        Each(array, at, [&](const json& element, const Where& place, std::size_t index) {
            Element(element, place, values[index]);
        });
    }
    static void Element(const json& element, const Where& at, std::string& value) {
        if (!element.is_string()) Refuse(at, "a text expected");
        value = element.get_ref<const std::string&>();
    }
    static void Element(const json& element, const Where& at, double& value) { value = Number(element, at); }
    static void Element(const json& element, const Where& at, std::int16_t& value) {
        value = static_cast<std::int16_t>(Whole(element, at, {-32768, 32767}));
    }

    const json& object;
    const Where& where;
    std::vector<std::string_view> known;
};

}  // namespace

Core::TabFile ReadJson(std::string_view bytes, const SettingsStore& settings) {
    json document;
    try {
        document = json::parse(bytes);
    } catch (const json::parse_error& error) {
        throw RunTimeError(13, "not valid JSON at byte " + std::to_string(error.byte));
    } catch (const json::exception&) {
        throw RunTimeError(13, "not valid JSON: a number is out of range");
    }
    Core::TabFile file = Core::MakeNewTabFile(settings);
    const Where root;
    Reader reader(document, root);
    JsonFields::DocumentFields(reader, file);
    reader.Finish();
    return file;
}

}  // namespace Quillon::Exchange
