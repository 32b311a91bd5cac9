// The string builder of the writers: appending stays cheap however long the text grows.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace Quillon::Core {

class clsAppend {
public:
    /// Empties the builder; keeps its room.
    void ReInit() { text.clear(); }
    const std::string& GetString() const { return text; }
    void SetString(std::string value) { text = std::move(value); }
    void SConcat(std::string_view piece) { text += piece; }
    void SConcat(char piece) { text += piece; }

private:
    std::string text;
};

}  // namespace Quillon::Core
