// The frets on one string of a text tab, and which sign belongs to which.
#include <algorithm>

#include "core/mod_Common.h"
#include "exchange/LinesBars.h"

namespace Quillon::Exchange {

namespace {

constexpr int MostFret = 29;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsRest(char c) { return c == '-' || c == ' ' || c == '=' || c == '_' || c == '|'; }

class StringReader {
public:
    StringReader(std::string_view of, int string, TabNote* before, LostSigns& loses)
        : cells(of),
          number(static_cast<std::uint8_t>(string)),
          carried(before),
          lost(loses),
          lastClose(of.rfind(')')) {}

    std::vector<TabNote> Read() {
        while (at < cells.size()) {
            const char c = cells[at];
            if (IsDigit(c)) {
                ReadFret();
            } else if (c == 'x' || c == 'X') {
                Add(TabNote::Dead, 1);
            } else if (IsRest(c)) {
                pending = {};
                inHarmonic = 0;
                ++at;
            } else {
                ReadSign(c);
            }
        }
        return std::move(notes);
    }

private:
    char At(std::size_t place) const { return place < cells.size() ? cells[place] : '-'; }
    char Next() const { return At(at + 1); }
    char Before() const { return at > 0 ? cells[at - 1] : '-'; }
    TabNote* Last() { return notes.empty() ? carried : &notes.back(); }

    /// Figures of the fret that begins at a place: of a run such as 1012 two at a time, of 0000 or 333 one.
    std::size_t WidthAt(std::size_t place) const {
        if (!IsDigit(At(place + 1)) || place + 1 >= cells.size()) return 1;
        const int two = (At(place) - '0') * 10 + (At(place + 1) - '0');
        const bool repeats =
            At(place) == At(place + 1) && (IsDigit(At(place + 2)) ? At(place + 2) == At(place) : false);
        const bool repeated = at > 0 && At(place) == At(place + 1) && Before() == At(place);
        return two >= 10 && two <= MostFret && !repeats && !repeated ? 2 : 1;
    }
    int FretAt(std::size_t place, std::size_t width) const {
        return width == 2 ? (At(place) - '0') * 10 + (At(place + 1) - '0') : At(place) - '0';
    }

    void ReadFret() {
        const std::size_t width = WidthAt(at);
        Add(static_cast<std::int8_t>(FretAt(at, width)), width);
    }

    void Add(std::int8_t fret, std::size_t width) {
        TabNote note = pending;
        note.String = number;
        note.Fret = fret;
        note.Width = static_cast<std::uint8_t>(width);
        note.Column = static_cast<int>(at);
        if (inGhost) note.Ghost = true;
        if (inHarmonic != 0) note.Harmonic = inHarmonic;
        notes.push_back(note);
        pending = {};
        at += width;
    }

    void Lose(char sign) {
        ++lost[sign];
        ++at;
    }
    /// A sign that belongs to the note before it.
    template <class Give>
    void ToLast(char sign, Give give) {
        TabNote* const note = Last();
        if (!note) return Lose(sign);
        give(*note);
        ++at;
    }
    /// A sign that belongs to the note right behind it, or else to the one before.
    template <class Give>
    void ToEither(char sign, Give give) {
        const bool behind = IsDigit(Next()) && !IsDigit(Before());
        if (!behind) return ToLast(sign, give);
        give(pending);
        ++pending.Prefix;
        ++at;
    }

    void ReadSign(char c) {
        switch (c) {
            case 'h':
            case 'H':
            case 'p':
                return ToLast(c, [](TabNote& note) { note.Technique = Core::HammerOnPullOff; });
            case 'P':
                if (Next() != 'M') return ToLast(c, [](TabNote& note) { note.Technique = Core::HammerOnPullOff; });
                ++at;
                return ToLast(c, [](TabNote& note) { note.Beat = Core::PalmMute; });
            case '/':
            case '\\':
            case 's':
            case 'S':
                return ReadSlide(c);
            case 'b':
            case 'B':
            case '^':
                return ReadBend(c);
            case 'f':
            case 'F':  // "7full" leaves out the sign of the bend
                return IsFull(at) && IsDigit(Before()) ? ReadBend(c) : Lose(c);
            case 'r':
            case 'R':
                return ReadRelease(c);
            case '~':
            case 'v':
            case 'V':
                return ToLast(c, [](TabNote& note) { note.Beat = Core::Vibrato; });
            case 'w':
            case 'W':
                return ToLast(c, [](TabNote& note) { note.Beat = Core::WideVibrato; });
            case 'm':
            case 'M':
                return ToLast(c, [](TabNote& note) { note.Beat = Core::PalmMute; });
            case '.':
                return ToLast(c, [](TabNote& note) { note.Technique = Core::Staccato; });
            case '*':
                return ToEither(c, [](TabNote& note) { note.Harmonic = Core::NaturalHarmonic; });
            case 't':
            case 'T':
                if (c == 't' && Next() == 'r') return ReadTrill();
                return ToEither(c, [](TabNote& note) { note.Beat = Core::Tapping; });
            case '(':
            case '<':
            case '[':
            case ')':
            case '>':
            case ']':
                return ReadBracket(c);
            case 'o':
            case 'O':
            case ':':  // beside a bar line they are signs of a repeat, which that took
            default:
                return Lose(c);
        }
    }

    void ReadBracket(char c) {
        if (c == '(' || c == '<' || c == '[') {
            if (!IsDigit(Next()) && Next() != 'x' && Next() != 'X') return Lose(c);
            inGhost = inGhost || (c == '(' && lastClose != std::string_view::npos && lastClose > at);
            if (c == '<') inHarmonic = Core::NaturalHarmonic;
            if (c == '[') inHarmonic = Core::PitchHarmonic;
            ++pending.Prefix;
            ++at;
        } else if (c == ')') {
            inGhost = false;
            ++at;
        } else if (inHarmonic != 0) {
            inHarmonic = 0;
            ++at;
        } else if (c == '>') {
            ToEither(c, [](TabNote& note) { note.Accent = true; });
        } else {
            Lose(c);
        }
    }

    /// A slide to the fret right behind it, out of the one before it, or from nowhere.
    void ReadSlide(char c) {
        const bool down = c == '\\';
        const bool behind = IsDigit(Next()) || Next() == '(';
        const bool before = at > 0 && !IsRest(Before());
        if (before && Last()) {
            const bool letter = c == 's' || c == 'S';
            const std::int8_t legato = Core::LegatoSlide;
            const std::int8_t away = down ? Core::SlideDown : Core::SlideUp;
            return ToLast(c, [&](TabNote& note) { note.Technique = behind || letter ? legato : away; });
        }
        if (behind) {
            pending.Technique = down ? Core::SlideIntoDown : Core::SlideIntoUp;
            ++pending.Prefix;
            ++at;
            return;
        }
        ToLast(c, [&](TabNote& note) { note.Technique = down ? Core::SlideDown : Core::SlideUp; });
    }

    /// The number that a bend or its release goes to: 9 or (9). Passes over it; -1 for none.
    int ReadTarget() {
        const bool bracket = At(at) == '(';
        const std::size_t from = at + (bracket ? 1 : 0);
        if (from >= cells.size() || !IsDigit(cells[from])) return -1;
        const std::size_t width = WidthAt(from);
        if (bracket && At(from + width) != ')') return -1;
        at = from + width + (bracket ? 1 : 0);
        return FretAt(from, width);
    }
    /// "1/2", "½", "full" and so on behind a bend, bare or as in "(1/2)", in quarters of a tone; 0 for none.
    int ReadFraction() {
        const std::size_t from = at;
        if (At(at) == '(') ++at;
        const int quarters = ReadBareFraction();
        const bool closed = from == at || At(from) != '(' || At(at) == ')';
        if (quarters == 0 || !closed) {
            at = from;
            return 0;
        }
        if (At(from) == '(') ++at;
        return quarters;
    }
    bool IsFull(std::size_t place) const {
        return Core::LowerAscii(cells.substr(std::min(place, cells.size()), 4)) == "full";
    }
    int ReadBareFraction() {
        constexpr int full = 4;
        int quarters = 0;
        std::size_t place = at;
        const std::size_t blanks = At(place) == ' ' ? 1 : 0;
        if (IsFull(place + blanks)) {
            at = place + blanks + 4;
            return full;
        }
        if (IsDigit(At(place)) && (At(place + 1) == '\x01' || At(place + 1) == '\x02')) {
            quarters = 4 * (At(place++) - '0');
        }
        if (At(place) == '\x01' || At(place) == '\x02') {
            quarters += At(place) == '\x01' ? 2 : 1;
            ++place;
        } else if (cells.substr(std::min(place, cells.size())).starts_with("1/2")) {
            quarters = 2;
            place += 3;
        } else if (cells.substr(std::min(place, cells.size())).starts_with("1/4")) {
            quarters = 1;
            place += 3;
        } else {
            return 0;
        }
        at = place;
        return quarters;
    }

    void ReadBend(char c) {
        TabNote* const note = Last();
        if (!note || note->Fret == TabNote::Dead) return Lose(c);
        constexpr int full = 4, mostQuarters = 12;
        if (!IsFull(at)) ++at;
        int quarters = ReadFraction();
        if (quarters == 0) {
            const std::size_t place = at;
            const int target = ReadTarget();
            const int above = 2 * (target - note->Fret);
            if (target >= 0 && c == '^' && above <= 0) {  // some write it for a hammer-on or pull-off
                note->Technique = Core::HammerOnPullOff;
                at = place;
                return;
            }
            quarters = above > 0 && above <= mostQuarters ? above : target > 0 && target <= 3 ? full * target : full;
        }
        if (At(at) == 'f' || At(at) == 'F') ++at;
        note->Bend = static_cast<std::int8_t>(std::clamp(quarters, 1, mostQuarters));
    }
    void ReadRelease(char c) {
        TabNote* const note = Last();
        if (!note || note->Bend == 0) return Lose(c);
        note->Release = true;
        ++at;
        ReadTarget();
    }

    void ReadTrill() {
        TabNote* const note = Last();
        if (!note || note->Fret == TabNote::Dead) return Lose('t');
        at += 2;
        const int target = ReadTarget();
        constexpr int toneAbove = 2;
        note->Trill = static_cast<std::int8_t>(std::min(target >= 0 ? target : note->Fret + toneAbove, MostFret));
        while (At(at) == '~' && at < cells.size()) ++at;
    }

    std::string_view cells;
    std::uint8_t number;
    TabNote* carried;
    LostSigns& lost;
    std::vector<TabNote> notes;
    TabNote pending;
    std::size_t at = 0;
    std::size_t lastClose;  ///< of the brackets around ghost notes
    bool inGhost = false;
    std::int8_t inHarmonic = 0;
};

}  // namespace

std::vector<TabNote> NotesOf(std::string_view cells, int string, TabNote* before, LostSigns& lost) {
    return StringReader(cells, string, before, lost).Read();
}

int FretsOn(const std::vector<TextColumns>& lines, const StringLine& line) {
    const std::string_view columns = lines[static_cast<std::size_t>(line.Line)].Columns;
    LostSigns lost;
    return static_cast<int>(
        NotesOf(columns.substr(static_cast<std::size_t>(line.Body), static_cast<std::size_t>(line.End - line.Body)), 0,
                nullptr, lost)
            .size());
}

}  // namespace Quillon::Exchange
