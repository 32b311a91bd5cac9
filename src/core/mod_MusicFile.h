// The music file: one document as a stream of text tags, enciphered as a whole.
//
//     Quillon 4.1
//     <ª120><¦Title>...<l:2><p0|0\0/3:5|0>...
//
// Plain text is Windows-1252 bytes here; the document is UTF-8. The engines know neither disk nor dialog.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Core {

// Writing ------------------------------------------------------------------------------------------------------------

/// The plain text of a document. A character that Windows-1252 lacks becomes "?".
std::string WriteTabFileText(const TabFile& file);

/// What the format can't give back, so that a save asks first.
enum class LossKind {
    Harmonic,         ///< written in a form at which reading stops
    HashMarks,        ///< bars that differ in these alone are written as one
    ReservedText,     ///< a text holds a character or word that ends a field of the format
    UnknownCharacter  ///< a character that Windows-1252 lacks
};
struct Loss {
    LossKind Kind;
    int Track = -1;  ///< -1 for the document's own fields
    int Bar = -1;
    int Strum = -1;
    std::string Text;  ///< the text at fault
    bool operator==(const Loss&) const = default;
};
/// In the order of the file; empty when the document comes back whole.
std::vector<Loss> SaveLosses(const TabFile& file);
/// "track 1, bar 3, strum 2: a harmonic", in the chosen language.
std::string LossText(const Loss& loss);

// Reading ------------------------------------------------------------------------------------------------------------

/// Where reading stopped, and why.
struct Damage {
    std::string Description;  ///< "Overflow", "Type mismatch", "Subscript out of range", "Out of memory"
    int TagNumber = 0;        ///< counts from 1 at the first "<"
    std::string Piece;        ///< from behind that "<" up to the next, UTF-8
    /// "Overflow. Tag Number: 7 Source (Tag) Data: l:2"
    std::string Message() const;
};

enum class FileKind {
    Current,  ///< version 4.1, or any that is read as it
    Lyrics40  ///< version 4.0: lyrics split at blanks
};

struct MusicReadResult {
    /// Nothing when the version line is of no known kind; then Document is nothing to use.
    std::optional<FileKind> Kind;
    TabFile Document;               ///< as far as it was read
    std::optional<Damage> Stopped;  ///< set when a tag could not be read
};
/// Parses plain text. `fresh` is a new document; its texts that come from the store of defaults are left out.
/// Takes time linear in the text, and memory bounded by it: counts that the text can't fill are "Out of memory".
MusicReadResult ReadTabFileText(std::string_view text, const TabFile& fresh);
/// True for a file that starts with the plain version line of kinds 3.5 to 3.7, which had no cipher.
bool IsOldMusicFile(std::string_view fileBytes);

// Lyrics -------------------------------------------------------------------------------------------------------------

/// The five lines of a track's syllables joined by "££$", an empty syllable as "`"; "" for a line without any.
Row<std::string, LyricLines> PackLyrics(const Track& track);
/// Spreads Lyrics over the syllables of the strums and empties it.
void UnpackLyrics(Track& track);
/// The same for version 4.0, whose lines are split at blanks, a word to a strum.
void UnpackLyrics40(Track& track);

// Fronts over the open document --------------------------------------------------------------------------------------

enum class OpenOutcome {
    Opened,
    Damaged,      ///< a box told where; what was read is open, without a file name
    UnknownKind,  ///< a box told so; the document is as it was
    OldKind       ///< likewise
};
/// Replaces the open document by the file at `path` and clears FileChanged and the cursor. Raises what the file
/// system raises, the document then being as it was.
OpenOutcome ForceOpenFile(const std::filesystem::path& path);
/// Writes the open document to `path`, all or nothing. Asks first when the file can't hold it whole; false when the
/// answer was no. File name and FileChanged are the caller's. Raises what the file system raises.
bool ForceSaveFile(const std::filesystem::path& path);
/// Leaves the enciphered open document in \Data\temp.
void WriteTabFile();
/// Parses the enciphered \Data\temp into the open document.
OpenOutcome ReadTabFile();
/// Deletes \Data\temp, \Data\temp2 and their lock, unless another program on this base folder is at them.
void DelTempFiles();
/// The plain text of a music file's bytes, and back.
std::string DecipherMusicFile(std::string_view fileBytes);
std::string EncipherMusicFile(std::string_view text);

}  // namespace Quillon::Core
