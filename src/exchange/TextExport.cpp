#include "exchange/TextExport.h"

#include <algorithm>
#include <string_view>

#include "core/mod_Common.h"
#include "platform/RunTimeError.h"

namespace Quillon::Exchange {

using Core::Bar;
using Core::Note;
using Core::Strum;
using Core::TabFile;
using Core::Track;

const char* const ProductSite = QUILLON_SITE;

namespace {

constexpr std::string_view WarningLines[] = {
    "################################################################",
    "# This file is the author's own work and represents only their #",
    "# interpretation of the song. This file may only be used for   #",
    "# scholarship, study, or private research.                     #",
    "################################################################",
};

/// Lines as the system's files end them.
class Lines {
public:
    void Print(std::string_view line) { text.append(line).append("\r\n"); }
    void Blank(int count = 1) {
        for (int i = 0; i < count; ++i) Print("");
    }
    std::string Take() { return std::move(text); }

private:
    std::string text;
};

/// Letters of Windows-1252 in upper case.
std::string UpperBytes(std::string bytes) {
    for (char& byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const bool plain = code >= 'a' && code <= 'z';
        const bool accented = code >= 0xE0 && code != 0xF7 && code != 0xFF;  // 0xF7 is the division sign
        if (plain || accented) {
            byte = static_cast<char>(code - 0x20);
        } else if (code == 0x9A || code == 0x9C || code == 0x9E) {
            byte = static_cast<char>(code - 0x10);
        } else if (code == 0xFF) {
            byte = static_cast<char>(0x9F);
        }
    }
    return bytes;
}

std::string Padded(std::string text, char with) {
    constexpr std::size_t Width = 3;
    if (text.size() < Width) text.append(Width - text.size(), with);
    return text;
}

/// What is done to the note, in two characters. Of several the last one shows.
const char* EffectOf(const Note& note) {
    const char* effect = "--";
    if (note.Technique == Core::HammerOnPullOff) effect = "h-";
    if (note.Technique == Core::LegatoSlide) effect = "/-";
    if (note.Technique == Core::SlideDown) effect = "\\-";
    if (note.Technique == Core::SlideUp) effect = "/-";
    if (note.Technique == Core::Staccato) effect = ".-";
    if (note.HasBend) effect = "b-";
    if (note.Harmonic != Core::NoHarmonic) effect = "*-";
    if (note.Accentuate) effect = ">-";
    return effect;
}

/// What is done to the strum, in three characters. Of several the last one shows.
const char* SymbolOf(const Strum& strum) {
    const char* symbol = "   ";
    if (strum.HasTrem) symbol = "  ^";
    if (strum.Technique == Core::FadeIn) symbol = "  <";
    if (strum.Technique == Core::PalmMute) symbol = "  m";
    if (strum.Technique == Core::Tapping) symbol = " T.";
    if (strum.Technique == Core::Vibrato || strum.Technique == Core::WideVibrato) symbol = "  ~";
    return symbol;
}

constexpr int SymbolLine = -1;

/// One line of a row: the symbols, or a string from 0. `bar` is the row's first and then the first of the next.
std::string RowLine(const TabFile& file, const Track& track, int string, std::size_t longest, int& bar) {
    std::string line;
    for (; line.size() < longest && bar < track.Bars.Count(); ++bar) {
        line += string == SymbolLine ? "   " : "|--";
        for (const Strum& strum : track.Bars[bar].Strums()) {
            if (string == SymbolLine) {
                line.append(SymbolOf(strum)).append("  ");
            } else {
                const Note& note = strum.Notes[string];
                line.append(Padded(Core::ToWindows1252(note.Fret), '-')).append(EffectOf(note));
            }
        }
        const int jumps = bar < file.BarInfos.Count() ? file.BarInfos[bar].RepeatClose : 0;
        if (string != SymbolLine) {
            line += "--|";
        } else {
            line += jumps > 0 ? Padded(std::to_string(jumps + 1) + "x", ' ') : "   ";
        }
    }
    return line;
}

void PrintRows(const TabFile& file, const TextExportOptions& options, Lines& lines) {
    const Track& track = file.Tracks[options.Track];
    const int strings = std::clamp<int>(track.Strings, 1, Core::StringCount);
    for (int first = 0; first < track.Bars.Count();) {
        int next = first;
        for (int string = SymbolLine; string < strings; ++string) {
            next = first;
            lines.Print(RowLine(file, track, string, static_cast<std::size_t>(options.MaxLineLength), next));
        }
        lines.Blank();
        first = next;
    }
}

void PrintWarning(const TextExportOptions& options, Lines& lines) {
    if (!options.Warning) return;
    for (const std::string_view line : WarningLines) lines.Print(line);
    lines.Blank();
}

void PrintSong(const TabFile& file, Lines& lines) {
    const auto upper = [](const std::string& text) { return UpperBytes(Core::ToWindows1252(text)); };
    lines.Print(upper(file.Title) + " - " + upper(file.Artist));
    lines.Print("Tempo:" + Core::FormatSingle(file.Tempo));
}

void Check(const TextExportOptions& options) {
    constexpr int InvalidProcedureCall = 5;
    if (options.MaxLineLength < 1)
        throw RunTimeError(InvalidProcedureCall, "The longest line must have at least one character.");
}

}  // namespace

std::string WriteTextTab(const TabFile& file, const TextExportOptions& options) {
    Check(options);
    Lines lines;
    PrintWarning(options, lines);
    PrintSong(file, lines);
    lines.Blank(3);
    PrintRows(file, options, lines);
    lines.Blank();
    lines.Print(std::string("Created with Quillon (") + ProductSite + ")");
    return lines.Take();
}

std::string WriteWebPage(const TabFile& file, const TextExportOptions& options) {
    Check(options);
    Lines lines;
    lines.Print("<html>");
    lines.Print("<head>");
    lines.Print(std::string("<title>Created With Quillon - ") + ProductSite + "</title>");
    lines.Print("</head>");
    lines.Print("<pre>");
    // These two tags are left open at their ends, and the page without one: readers know pages by it.
    lines.Print(R"(<font face= "Courier New, Courier, mono"</font>)");
    lines.Print(R"(<font size= "+1"</font>)");
    lines.Print(std::string("<a href= \"") + ProductSite + "\">Click Here to get Quillon!</a>");
    PrintWarning(options, lines);
    PrintSong(file, lines);
    lines.Blank();
    PrintRows(file, options, lines);
    lines.Blank();
    lines.Print("</pre>");
    return lines.Take();
}

}  // namespace Quillon::Exchange
