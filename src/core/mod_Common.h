// Arithmetic, text codes and names that every module shares.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/RunTimeError.h"

namespace Quillon::Core {

// Rounding and trapping ------------------------------------------------------------------------------------------

/// Rounds to a whole number, halves to the even one.
double RoundHalfEven(double value);
/// Rounds halves to even into 16 bits; raises "Overflow" outside, and for a value that is no number.
std::int16_t CInt(double value);
/// Rounds halves to even into 32 bits; raises "Overflow" outside.
std::int32_t CLng(double value);
/// A sum of whole numbers stored into 16 bits; raises "Overflow" outside.
std::int16_t ToInt16(std::int64_t value);
/// As ToInt16, for 32 bits.
std::int32_t ToInt32(std::int64_t value);

// Text of numbers --------------------------------------------------------------------------------------------------

/// The machine's decimal sign, "." or ",". Main sets it once from the locale; "." until then.
extern char DecimalSign;

/// Shortest form with at most 15 (7 for single) significant digits, trailing zeros dropped and "0" for both zeros;
/// plain while the figures fit, else d.ddddE+nn. Written with DecimalSign.
std::string FormatDouble(double value);
std::string FormatSingle(float value);

// Conversions of a text, blanks around it allowed. Raise "Type mismatch" for what is no number and "Overflow" for one
// out of range. Numbers with decimals are read with either decimal sign; whole numbers round halves to even.
double ParseDouble(std::string_view text);
float ParseSingle(std::string_view text);
std::int16_t ParseInt16(std::string_view text);
std::int32_t ParseInt32(std::string_view text);
/// "True" and "False" in any case of letters, or a number, 0 being false.
bool ParseBool(std::string_view text);

// Text codes --------------------------------------------------------------------------------------------------------

/// UTF-8 to the 8-bit code of the system's files. The five codes that Windows-1252 leaves undefined stand for the
/// control characters of the same number. A character without a code becomes one "?", and so does each byte of
/// malformed UTF-8; `lost`, when given, counts them.
std::string ToWindows1252(std::string_view utf8, int* lost = nullptr);
std::string FromWindows1252(std::string_view bytes);
/// What NextCharacter gives for a malformed byte.
constexpr char32_t NoCharacter = 0xFFFFFFFF;
/// Takes the first character off the front of UTF-8 that is not empty.
char32_t NextCharacter(std::string_view& utf8);
void AppendUtf8(std::string& out, char32_t character);
/// True when the text is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Without blanks (character 32 alone) at both ends.
std::string_view TrimBlanks(std::string_view text);
/// ASCII letters in upper case, all else as it stands.
std::string UpperAscii(std::string_view text);
/// ASCII letters in lower case, all else as it stands.
std::string LowerAscii(std::string_view text);

// Note names ---------------------------------------------------------------------------------------------------------

/// Name of a MIDI pitch, 60 being C4, with sharps: "E4", "F#3".
std::string NoteName(int pitch);
/// Pitch of a name such as "E4", "f#3" or "Bb2"; -1 for what is none, or outside 0 to 127.
int PitchOfNoteName(std::string_view name);

}  // namespace Quillon::Core
