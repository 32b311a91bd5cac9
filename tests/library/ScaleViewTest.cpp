// Scales as they are shown: the spelling of their tones, and the pattern on the neck.
#include "library/ScaleView.h"

#include <algorithm>

#include "library/ChordNaming.h"
#include "library/TunerView.h"
#include "platform/headless/PictureLog.h"
#include "tests/support/Fixture.h"

namespace Quillon::Library {
namespace {

class ScaleViewTest : public testing::Test {
protected:
    ScaleViewTest() {
        EnsureScales();
        Scales.Refresh();
    }
    static std::string Tones(const char* name, const char* key, bool degrees = false) {
        std::string text;
        const int pitch = PitchClassOf(key);
        for (const ScaleTone& tone : ScaleTones(ScaleClasses(*Scales.Find(name), pitch), pitch)) {
            text += (text.empty() ? "" : " ") + (degrees ? tone.Degree : tone.Name);
        }
        return text;
    }
    /// Of a name with any number of signs.
    static int ClassOf(const std::string& name) {
        const auto sharps = std::ranges::count(name, '#');
        const auto flats = std::ranges::count(name.substr(1), 'b');
        return static_cast<int>((PitchClassOf(name.substr(0, 1)) + sharps - flats + 24) % 12);
    }
    Testing::ServicesForTest services;
};

TEST_F(ScaleViewTest, TonesAreSpelledAsMusiciansDo) {
    EXPECT_EQ(Tones("Major", "F"), "F G A Bb C D E");
    EXPECT_EQ(Tones("Major", "C#"), "Db Eb F Gb Ab Bb C") << "five flats are fewer than seven sharps";
    EXPECT_EQ(Tones("Natural Minor", "C#"), "C# D# E F# G# A B");
    EXPECT_EQ(Tones("Lydian", "G", true), "1 2 3 #4 5 6 7");
    EXPECT_EQ(Tones("Locrian", "B", true), "1 b2 b3 4 b5 b6 b7");
    EXPECT_EQ(Tones("Blues Scale", "A"), "A C D Eb E G");
    EXPECT_EQ(Tones("Diminished Scale WH", "C", true), "1 2 b3 4 b5 b6 6 7");
    EXPECT_EQ(ScaleCaption("Major", *Scales.Find("Major"), 10), "Major - Bb");
    for (const std::string& name : Scales.Names()) {
        for (int key = 0; key < 12; ++key) {
            for (const ScaleTone& tone : ScaleTones(ScaleClasses(*Scales.Find(name), key), key)) {
                EXPECT_EQ(ClassOf(tone.Name), tone.Class) << name << " in " << key << ": " << tone.Name;
            }
        }
    }
}

TEST_F(ScaleViewTest, ThePatternSlidesAlongTheNeck) {
    PictureLog log;
    ScaleView view{.Key = 7, .Sounding = 48};
    DrawScale(log, *Scales.Find("Major"), view, 700, 170);
    log.Remark("left-handed, narrow, high up, degrees, the pattern alone");
    view = {.Key = 3, .LeftHanded = true, .Degrees = true, .WholeNeck = false};
    DrawScale(log, *Scales.Find("Spanish"), view, 260, 170);
    Testing::CheckGolden("drawing/scales.txt", log.Text());

    const NeckGeometry narrow = ScaleNeck(*Scales.Find("Spanish"), view, 260, 170);
    for (int string = 0; string < 6; ++string) {
        for (int fret = narrow.First(); fret <= narrow.Last(); ++fret) {
            EXPECT_EQ(narrow.At(narrow.FretX(fret), narrow.StringY(string)), (NeckPlace{string, fret}));
        }
    }
    EXPECT_LE(narrow.First(), 11);
    EXPECT_GE(narrow.Last(), 17) << "the whole pattern is in view";
    EXPECT_FALSE(narrow.At(2, 60));
    EXPECT_LT(narrow.StringY(5), narrow.StringY(0));
    // The order of the strings is all that a left hand changes.
    ScaleView right = view;
    right.LeftHanded = false;
    const auto left = ScaleDots(*Scales.Find("Spanish"), view);
    ASSERT_EQ(left.size(), ScaleDots(*Scales.Find("Spanish"), right).size());
    EXPECT_EQ(left.front().Place, ScaleDots(*Scales.Find("Spanish"), right).front().Place);
}

TEST(TunerView, AStringSwingsWhileItSounds) {
    PictureLog log;
    DrawTunerString(log, {.String = 5}, 100, 20);
    EXPECT_EQ(log.Text(), "box 0 0 5 20 #3a3836\nbox 95 0 5 20 #3a3836\ncolor #6e6c69\nline 5 10 95 10 w3\n");
    log.Clear();
    DrawTunerString(log, {.String = 5, .Sounding = true}, 100, 20);
    EXPECT_NE(log.Text().find(" 50,3.2 "), std::string::npos) << log.Text();
    EXPECT_NE(log.Text().find(" 50,16.8 "), std::string::npos);
}

}  // namespace
}  // namespace Quillon::Library
