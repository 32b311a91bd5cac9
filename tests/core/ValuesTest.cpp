#include "core/Values.h"

#include "core/mod_Common.h"
#include "core/mod_TabFileManipulation.h"

using namespace Quillon;
using namespace Quillon::Core;

TEST(Values, CopiesShareUntilEditedAndStayWholeAfterwards) {
    SharedList<Bar> bars(100);
    bars.Edit(40).EditStrums()[0].Notes.Edit(2).Fret = "7";
    SharedList<Bar> copy = bars;
    EXPECT_TRUE(copy[40].SharesStrums(bars[40]));
    copy.Edit(40).EditStrums()[0].Notes.Edit(2).Fret = "8";
    copy.Edit(99).Key = 3;
    EXPECT_EQ(bars[40].Strums()[0].Notes[2].Fret, "7");
    EXPECT_EQ(copy[40].Strums()[0].Notes[2].Fret, "8");
    EXPECT_EQ(bars[99].Key, 0);
    EXPECT_FALSE(copy == bars);
}

TEST(Values, ShrinkingForgetsWhatStoodBehindTheEnd) {
    SharedList<Bar> bars(40);
    bars.Edit(35).Key = 5;
    bars.Resize(33);
    bars.Resize(40);
    EXPECT_EQ(bars[35].Key, 0);
    EXPECT_TRUE(bars == SharedList<Bar>(40));
}

TEST(Values, PlacesOfUntouchedBarsAreTheirOwn) {
    const SharedList<Bar> bars(70);
    bars[1].Place.BarX = 5;
    bars[65].Place.BarX = 6;
    EXPECT_EQ(bars[33].Place.BarX, 0);
    EXPECT_EQ(SharedList<Bar>(2)[1].Place.BarX, 0);
}

TEST(Values, AnEditedSlotEqualsAnUntouchedOneWhenItHoldsDefaults) {
    Strum a;
    const Strum b;
    a.Notes.Edit(3).Dynamic = 2;
    EXPECT_FALSE(a == b);
    a.Notes.Edit(3).Dynamic = 0;
    EXPECT_TRUE(a == b);
}

TEST(Values, EveryBadIndexRaisesNine) {
    const TabFile file;
    const auto number = [](auto&& act) {
        try {
            act();
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    };
    EXPECT_EQ(number([&] { (void)file.Tracks[1]; }), 9);
    EXPECT_EQ(number([&] { (void)file.Tracks[-1]; }), 9);
    EXPECT_EQ(number([&] { (void)file.BarInfos[1]; }), 9);
    EXPECT_EQ(number([&] { (void)file.Tracks[0].Bars[0].Strums()[1]; }), 9);
    EXPECT_EQ(number([&] { (void)file.Tracks[0].Bars[0].Strums()[0].Notes[7]; }), 9);
    EXPECT_EQ(number([&] { (void)file.Tracks[0].Tuning[7]; }), 9);
    EXPECT_EQ(number([&] { (void)DefaultStringPitch(7); }), 9);
}
