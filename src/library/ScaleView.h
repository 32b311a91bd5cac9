// A scale as it is shown: its tones by name and degree, and its pattern on the neck in a key.
#pragma once

#include <string>
#include <vector>

#include "library/NeckView.h"
#include "library/mod_Scales.h"

namespace Quillon::Library {

/// A tone of a scale in a key, spelled with a letter for each degree where that can be: F major has a Bb.
struct ScaleTone {
    int Class = 0;  ///< pitch class, 0 being C
    std::string Name;
    std::string Degree;  ///< against the major scale: "1", "b3", "#4"
};
/// From the tonic upwards. The tonic comes first also when the pattern lacks it, as its name is the key's.
std::vector<ScaleTone> ScaleTones(const PitchClasses& classes, int key);
/// The tonic as the scale spells it.
std::string KeyName(const PitchClasses& classes, int key);
/// The name, " - " and the key.
std::string ScaleCaption(const std::string& name, const ScaleRec& scale, int key);

struct ScaleView {
    int Key = 4;              ///< pitch class of the tonic
    bool LeftHanded = false;  ///< the strings in the order reversed; the scale is the same
    bool Degrees = false;     ///< dots show degrees, not names
    bool WholeNeck = true;    ///< the scale's other notes are shown faintly
    int Sounding = -1;        ///< MIDI pitch that is heard, -1 for none
};

/// The dots of a scale on a neck: those of its pattern, and the others behind them.
std::vector<NeckDot> ScaleDots(const ScaleRec& scale, const ScaleView& view);
/// The neck that shows a scale's pattern in a box.
NeckGeometry ScaleNeck(const ScaleRec& scale, const ScaleView& view, double width, double height);
/// Names of the open strings, the highest first.
std::vector<std::string> StringLabels(const ScaleRec& scale);

/// Draws the neck with the scale on it into a box from 0, 0.
void DrawScale(Picture& picture, const ScaleRec& scale, const ScaleView& view, double width, double height);
/// Draws a scale's page into a sheet of that size, in document pixels: the caption, the tones, the neck, the keywords.
void DrawScaleSheet(Picture& picture, const std::string& name, const ScaleRec& scale, const ScaleView& view,
                    double width, double height);

}  // namespace Quillon::Library
