// Bend, tremolo bar, grace note and trill, as their dialogs edit them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/Curve.h"
#include "shell/StrumModel.h"

namespace Quillon::Shell {

using Editing::BendPace;

struct BendModel : NoteEffectModel {
    std::int16_t Style = 0;   ///< into Styles(); BendStyle
    std::int16_t Amount = 3;  ///< quarters of a tone less 1: 0 to 11; of a curve drawn by hand its highest point
    std::int16_t Pace = 0;    ///< a BendPace
    Curve Drawn;              ///< 26 points

    static constexpr int Amounts = 12;
    /// The shapes by their number; the last, without corners, is what is drawn by hand.
    static std::span<const Shape> Styles();
    static bool ByHand(int style);

    void Load();
    /// Style, amount or pace were chosen: the curve follows.
    void Reshape();
    /// The curve was drawn: its style is by hand from now on.
    void TakeDrawn();
    bool Exists() const override { return NoteBefore().HasBend; }
    std::string_view Validate() const override;

protected:
    void WriteNote(Core::Note& note) const override;
    void ClearNote(Core::Note& note) const override { note.HasBend = false; }
    void Remember() const override;
};

/// How much of the beat a tremolo bar's shape takes: TremLength.
enum class TremShare : std::int16_t { Whole, Half, Quarter };

struct TremBarModel : StrumModel {
    std::int16_t Style = 0;   ///< into Styles(); the document keeps the curve alone
    std::int16_t Range = 0;   ///< into the twelve texts of TremRange, "½" to "6" tones
    std::int16_t Length = 0;  ///< a TremShare
    Curve Drawn;              ///< 25 points, as far as the range up and down

    static constexpr int Ranges = 12;
    static std::string RangeText(int range);
    static std::span<const Shape> Styles();
    static bool ByHand(int style);

    void Load();
    /// Style, range or length were chosen. A curve drawn by hand grows or shrinks with the range.
    void Reshape();
    void TakeDrawn();
    bool Exists() const override { return Before().HasTrem; }
    std::string_view Validate() const override;

protected:
    void Write(Core::Strum& strum) const override;
    void Clear(Core::Strum& strum) const override { strum.HasTrem = false; }
    void Remember() const override;

private:
    std::int16_t loadedRange = 0;
    std::int16_t loadedLength = 0;
    double shownRange = 0;  ///< height that Drawn reaches, before the range changed
};

struct GraceModel : NoteEffectModel {
    std::string Fret;             ///< 0 to 29, or "x"
    std::int16_t Dynamic = 0;     ///< by loudness: 0 FFF to 7 PPP
    std::int16_t Duration = 1;    ///< 0 a 16th, 1 a 32nd, 2 a 64th, taken from the beat before
    std::int16_t Transition = 0;  ///< 0 none, 1 slide, 2 bend, 3 hammer-on or pull-off

    void Load();
    bool Exists() const override { return NoteBefore().HasGrace; }
    std::string_view Validate() const override;

protected:
    void WriteNote(Core::Note& note) const override;
    void ClearNote(Core::Note& note) const override { note.HasGrace = false; }
    void Remember() const override;
};

struct TrillModel : NoteEffectModel {
    std::string Fret;         ///< 0 to 29
    std::int16_t Period = 1;  ///< strokes an 8th, a 16th or a 32nd apart

    void Load();
    bool Exists() const override { return NoteBefore().HasTrill; }
    std::string_view Validate() const override;

protected:
    void WriteNote(Core::Note& note) const override;
    void ClearNote(Core::Note& note) const override { note.HasTrill = false; }
    void Remember() const override;
};

/// The dynamics from FFF to PPP by their codes.
std::span<const std::int32_t> DynamicsByLoudness();
/// Index of a dynamic's code there; that of MF for another.
std::int16_t LoudnessIndex(std::int32_t dynamic);

/// What the dialogs begin with on a note without the effect: what was last chosen in this run.
struct LastEffects {
    std::int16_t BendStyle = 0, BendAmount = 3, BendPace = 0;
    std::int16_t TremStyle = 0, TremRange = 0, TremLength = 0;
    std::int16_t GraceDynamic = 3, GraceDuration = 1, GraceTransition = 0;
    std::int16_t TrillPeriod = 1;
};
extern LastEffects EffectsChosen;

}  // namespace Quillon::Shell
