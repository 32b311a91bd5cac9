// What the importer of text tabs makes of a text before it reads columns, step by step.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace Quillon::Exchange {

/// Takes what stands for a technique before a digit or a dash for a dash: 7h9 is 7-9. Gives how many there were.
int StripTechniqueMarks(std::string& text);
/// Takes out everything from "<" to ">", and the same text wherever else it stands. Raises "Type mismatch" when a "<"
/// has no ">" behind it.
void RemoveTags(std::string& text);
/// Leaves digits, dashes or whatever is accepted, and line ends.
void FilterCharacters(std::string& text, std::string_view accepted);
/// Empties the lines that hold nothing but a number.
void RemoveNumberLines(std::string& text);
/// Takes out the lines of one, two or three dashes, both of their line ends too.
void RemoveDashLines(std::string& text);
/// Blanks for dashes, "S" for a line end, "BS" for three to forty of them: the end of a system.
std::string SystemText(std::string_view text);
/// Every occurrence of `from`, from left to right.
void ReplaceAll(std::string& text, std::string_view from, std::string_view to);

}  // namespace Quillon::Exchange
