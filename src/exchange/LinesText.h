// A text from outside as lines of columns, as a person sees them in a font of fixed width.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Quillon::Exchange {

struct TextColumns {
    /// A byte a column in ASCII: whatever looks like a dash is "-", like a bar line "|", like a blank " ". A character
    /// without a likeness is OtherSign.
    std::string Columns;
    std::string Text;  ///< the same columns as they stand, UTF-8; "" when they are those of Columns

    /// Of the columns from one up to another, that one excluded.
    std::string Between(std::size_t from, std::size_t to) const;
    bool IsBlank() const { return Columns.empty(); }
};
constexpr char OtherSign = 0x7F;
constexpr char HalfSign = 0x01;     ///< of a bend by half a tone
constexpr char QuarterSign = 0x02;  ///< by a quarter

/// UTF-8 of a file's bytes: UTF-8 or UTF-16 by its mark, else UTF-8 where they are that, else Windows-1252.
std::string Utf8OfBytes(std::string_view bytes);
/// What a web page shows: without tags, scripts and entities. Any other text comes back as it is.
std::string TextOfPage(std::string_view utf8);
/// Lines end with LF, CR LF or CR. Tab characters reach to the next eighth column; blanks at a line's end go.
std::vector<TextColumns> ColumnsOf(std::string_view utf8);
/// Takes ">" off the lines of a quoted mail; their columns stay.
void UnquoteLines(std::vector<TextColumns>& lines);
/// Joins the strings of systems that a mail program broke in two, each half below the other; how many it joined.
int JoinBrokenLines(std::vector<TextColumns>& lines);

}  // namespace Quillon::Exchange
