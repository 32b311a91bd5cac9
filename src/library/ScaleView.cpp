#include "library/ScaleView.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

#include "library/ChordNaming.h"

namespace Quillon::Library {

namespace {

constexpr int Octave = 12;
constexpr int Letters = 7;
constexpr std::array<int, Letters> MajorSteps = {0, 2, 4, 5, 7, 9, 11};

int Wrap(int pitch) { return ((pitch % Octave) + Octave) % Octave; }

/// Degrees, from 0, of the tones by their semitones above the tonic. Seven tones get one each; others are named as
/// they are used to.
std::array<int, Octave> DegreesOf(const PitchClasses& classes, int key) {
    std::array<int, Octave> degrees = {0, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6, 6};
    if (classes.count() != Letters || !classes.test(static_cast<std::size_t>(Wrap(key)))) return degrees;
    int next = 0;
    std::array<int, Octave> seven = degrees;
    for (int step = 0; step < Octave; ++step) {
        if (!classes.test(static_cast<std::size_t>(Wrap(key + step)))) continue;
        seven.at(static_cast<std::size_t>(step)) = next;
        // A tone that would need three signs keeps its usual letter, and so do all.
        if (std::abs(step - MajorSteps.at(static_cast<std::size_t>(next))) > 2) return degrees;
        ++next;
    }
    return seven;
}

std::string Signs(int count) { return std::string(static_cast<std::size_t>(std::abs(count)), count < 0 ? 'b' : '#'); }

/// Letter 0 is C.
std::string Spelled(int letter, int signs) {
    static constexpr std::string_view names = "CDEFGAB";
    return std::string(1, names[static_cast<std::size_t>(letter)]) + Signs(signs);
}

/// Signs that turn a letter into a pitch class, the fewest: below 0 are flats.
int SignsFor(int letter, int pitch) {
    const int up = Wrap(pitch - MajorSteps.at(static_cast<std::size_t>(letter)));
    return up > Octave / 2 ? up - Octave : up;
}

}  // namespace

std::vector<ScaleTone> ScaleTones(const PitchClasses& classes, int key) {
    const auto degrees = DegreesOf(classes, key);
    std::vector<ScaleTone> best;
    int fewest = 0;
    for (int letter = 0; letter < Letters; ++letter) {
        if (std::abs(SignsFor(letter, key)) > 1) continue;
        std::vector<ScaleTone> tones;
        int cost = 0;
        for (int step = 0; step < Octave; ++step) {
            const int pitch = Wrap(key + step);
            if (step > 0 && !classes.test(static_cast<std::size_t>(pitch))) continue;
            const int degree = degrees.at(static_cast<std::size_t>(step));
            const int own = (letter + degree) % Letters;
            const int signs = SignsFor(own, pitch);
            constexpr int DoubleSign = 10;
            cost += std::abs(signs) > 1 ? DoubleSign : std::abs(signs);
            tones.push_back(
                {pitch, Spelled(own, signs),
                 Signs(step - MajorSteps.at(static_cast<std::size_t>(degree))) + std::to_string(degree + 1)});
        }
        if (best.empty() || cost < fewest) {
            best = std::move(tones);
            fewest = cost;
        }
    }
    return best;
}

std::string KeyName(const PitchClasses& classes, int key) { return ScaleTones(classes, key).front().Name; }

std::string ScaleCaption(const std::string& name, const ScaleRec& scale, int key) {
    return name + " - " + KeyName(ScaleClasses(scale, key), key);
}

std::vector<NeckDot> ScaleDots(const ScaleRec& scale, const ScaleView& view) {
    const PitchClasses classes = ScaleClasses(scale, view.Key);
    std::array<std::string, Octave> texts;
    for (const ScaleTone& tone : ScaleTones(classes, view.Key)) {
        texts.at(static_cast<std::size_t>(tone.Class)) = view.Degrees ? tone.Degree : tone.Name;
    }
    const int from = PatternFret(scale, view.Key);
    std::vector<NeckDot> others, pattern;
    for (int string = 0; string < scale.NumStrings; ++string) {
        const auto& positions = scale.Pattern.at(static_cast<std::size_t>(scale.NumStrings - 1 - string));
        for (int fret = 0; fret <= NeckGeometry::MostFret; ++fret) {
            const int pitch = scale.Tuning[string] + fret;
            const auto own = static_cast<std::size_t>(Wrap(pitch));
            if (!classes.test(own)) continue;
            const bool tonic = Wrap(pitch) == view.Key;
            const bool inPattern =
                fret >= from && fret < from + PatternFrets && positions.test(static_cast<std::size_t>(fret - from));
            using Kind = NeckDot::Kind;
            const NeckPlace place{string, fret};
            if (inPattern) {
                pattern.push_back({place, texts.at(own), tonic ? Kind::Tonic : Kind::Tone, pitch == view.Sounding});
            } else if (view.WholeNeck) {
                others.push_back({place, texts.at(own), tonic ? Kind::FaintTonic : Kind::Faint});
            }
        }
    }
    others.insert(others.end(), pattern.begin(), pattern.end());
    return others;
}

NeckGeometry ScaleNeck(const ScaleRec& scale, const ScaleView& view, double width, double height) {
    const int from = PatternFret(scale, view.Key);
    return {scale.NumStrings, view.LeftHanded, from, from + PatternFrets - 1, width, height};
}

std::vector<std::string> StringLabels(const ScaleRec& scale) {
    std::vector<std::string> labels;
    for (int string = 0; string < scale.NumStrings; ++string) labels.push_back(PitchClassName(scale.Tuning[string]));
    return labels;
}

void DrawScale(Picture& picture, const ScaleRec& scale, const ScaleView& view, double width, double height) {
    DrawNeck(picture, ScaleNeck(scale, view, width, height), StringLabels(scale), ScaleDots(scale, view));
}

void DrawScaleSheet(Picture& picture, const std::string& name, const ScaleRec& scale, const ScaleView& view,
                    double width, double height) {
    constexpr double Border = 60;
    constexpr double NeckHeight = 210;
    const double inner = std::max(1.0, width - 2 * Border);
    const Font title{.Name = "Arial", .Size = 18, .Bold = true};
    const Font words{.Name = "Arial", .Size = 10};
    double y = Border + title.Pixels();
    picture.SetColor(Black);
    picture.SetFont(title);
    picture.Print(Border, y, ScaleCaption(name, scale, view.Key));
    picture.SetFont(words);
    if (!scale.Keywords.empty()) picture.Print(Border, y += 2 * words.Pixels(), scale.Keywords);
    const std::vector<ScaleTone> tones = ScaleTones(ScaleClasses(scale, view.Key), view.Key);
    y += 3 * words.Pixels();
    constexpr double MostColumn = 48;
    const double column = std::min(MostColumn, inner / static_cast<double>(std::max<std::size_t>(1, tones.size())));
    double x = Border + column / 2;
    for (const ScaleTone& tone : tones) {
        picture.Print(x, y, tone.Name, Anchor::Center);
        picture.Print(x, y + 1.5 * words.Pixels(), tone.Degree, Anchor::Center);
        x += column;
    }
    y += 3.5 * words.Pixels();
    // Once by its names and once by its degrees, whatever the screen shows; what does not fit the sheet is left out.
    for (const bool degrees : {false, true}) {
        if (y + NeckHeight > height - Border) return;
        ScaleView shown = view;
        shown.Degrees = degrees;
        shown.Sounding = -1;
        NeckGeometry neck = ScaleNeck(scale, shown, inner, NeckHeight);
        neck.MoveBy(Border, y);
        DrawNeck(picture, neck, StringLabels(scale), ScaleDots(scale, shown));
        y += NeckHeight + 2 * words.Pixels();
    }
}

}  // namespace Quillon::Library
