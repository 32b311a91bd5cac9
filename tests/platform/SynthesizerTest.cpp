#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <thread>

#include "platform/RunTimeError.h"
#include "platform/sound/FluidSynthesizer.h"
#include "platform/sound/SoundFonts.h"
#include "platform/sound/SystemMidi.h"
#include "tests/support/Golden.h"

namespace Quillon {

namespace {

using Testing::ScratchFolder;
using Testing::Spill;

class RendererTest : public testing::Test {
protected:
    RendererTest() {
        synthesizer.Apply({.SoundFont = "", .Gain = 0.6, .Reverb = false, .Chorus = false});
        renderer = synthesizer.NewRenderer();
    }

    /// Loudest sample of the next milliseconds.
    int Peak(int milliseconds) {
        std::vector<std::int16_t> samples(static_cast<std::size_t>(milliseconds) * WaveRenderer::Rate / 1000 * 2);
        renderer->Render(samples);
        int peak = 0;
        for (const std::int16_t sample : samples) peak = std::max(peak, std::abs(int{sample}));
        return peak;
    }
    void Send(int status, int data1, int data2) {
        renderer->ShortMessage(static_cast<std::int16_t>(status), static_cast<std::int16_t>(data1),
                               static_cast<std::int16_t>(data2));
    }

    FluidSynthesizer synthesizer{"no-such-folder"};
    std::unique_ptr<WaveRenderer> renderer;
};

// Under this a rendered sample is silence: the dither of the last bit.
constexpr int Silence = 4;
constexpr int Loud = 500;

TEST_F(RendererTest, NotesSoundUntilTheyAreSilenced) {
    EXPECT_LE(Peak(50), Silence);
    for (const int controller : {120, 123}) {
        Send(192, 16, 0);  // an organ, which does not fade
        Send(144, 60, 100);
        EXPECT_GT(Peak(500), Loud) << controller;
        Send(176, controller, 0);
        Peak(500);
        EXPECT_LE(Peak(100), Silence) << controller;
    }
    Send(144, 60, 100);
    Peak(100);
    Send(144, 60, 0);
    Peak(500);
    EXPECT_LE(Peak(100), Silence);
}

TEST_F(RendererTest, MessagesThatNoDriverTakesAreDroppedOrLimited) {
    Send(144, 130, 100);
    Send(144, -3, 100);
    Send(300, 60, 100);
    EXPECT_LE(Peak(100), Silence);
    Send(176, 0, 128);
    Send(192, 200, 0);
    Send(224, 0, 500);
    Send(144, 60, 190);
    EXPECT_GT(Peak(200), Loud);
}

TEST(SynthesizerTest, WithoutAUsableSoundFontTheReasonNamesWhatToDo) {
    const ScratchFolder folder;
    Spill(folder / "broken.sf2", "RIFF, but not much of it");
    FluidSynthesizer synthesizer(folder.Path());
    testing::internal::CaptureStderr();

    for (const std::filesystem::path& font : {folder / "broken.sf2", folder / "missing.sf2"}) {
        synthesizer.Apply({.SoundFont = font});
        try {
            synthesizer.NewRenderer();
            ADD_FAILURE() << font;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, 53);
            EXPECT_NE(error.Description().find(font.filename().string()), std::string::npos) << error.Description();
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(SynthesizerTest, TakesMessagesWhateverTheStateOfItsSound) {
    for (int round = 0; round < 3; ++round) {
        FluidSynthesizer synthesizer("no-such-folder");
        EXPECT_EQ(synthesizer.State(), SynthesizerState::Closed);
        SystemMidi outputs(synthesizer);
        EXPECT_EQ(outputs.Name(MidiMapper), "Quillon Synthesizer");
        for (int opening = 0; opening < 3; ++opening) {
            int error = MidiNoDevice;
            const auto device = outputs.Open(MidiMapper, error);
            ASSERT_TRUE(device);
            EXPECT_EQ(error, MidiOk);
            EXPECT_EQ(device->ShortMessage(192, 24, 0), MidiOk);
            EXPECT_EQ(device->ShortMessage(144, 60, 0), MidiOk);
            synthesizer.Apply({.SoundFont = "", .Gain = 0.1 * opening});
            // On to what it found here, in one round; in the others it is closed at any moment before.
            while (round == 0 && synthesizer.State() == SynthesizerState::Loading) std::this_thread::yield();
            EXPECT_NE(synthesizer.State(), SynthesizerState::Closed);
        }
        EXPECT_EQ(synthesizer.State(), SynthesizerState::Closed);
        EXPECT_EQ(synthesizer.SoundFont(), "");
    }
}

TEST(SystemMidiTest, PortsThatAreNotThereAreRefusedQuietly) {
    FluidSynthesizer synthesizer("no-such-folder");
    SystemMidi outputs(synthesizer);
    testing::internal::CaptureStderr();
    const int count = outputs.Count();
    int error = MidiOk;
    EXPECT_FALSE(outputs.Open(count, error));
    EXPECT_EQ(error, MidiNoDevice);
    EXPECT_FALSE(outputs.ErrorText(error).empty());
    EXPECT_FALSE(outputs.Name(count));
    EXPECT_FALSE(outputs.Name(-2));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

/// The head of a SoundFont and blanks: at most 255 bytes, as its length tells.
std::string SoundFontOf(std::size_t bytes) {
    return "RIFF" + std::string(1, static_cast<char>(bytes - 8)) + std::string(3, '\0') + "sfbk" +
           std::string(bytes - 12, ' ');
}

TEST(SoundFontsTest, TheBestOfThemComesFirstAndEachOnce) {
    const ScratchFolder folder;
    const std::filesystem::path own = folder / "own";
    const std::filesystem::path system = folder / "system";
    std::filesystem::create_directories(own);
    std::filesystem::create_directories(system);
    Spill(system / "Small_GM.sf2", SoundFontOf(20));
    Spill(system / "Large_GM.SF3", SoundFontOf(90));
    Spill(system / "piano.sf2", SoundFontOf(100));
    Spill(system / "half_gm.sf2", SoundFontOf(110).substr(0, 109));
    Spill(system / "page_gm.sf2", "<html>" + std::string(900, ' '));
    Spill(system / "nothing_gm.sf2", "");
    Spill(system / "readme.txt", "");
    Spill(own / "my-gm.sf2", SoundFontOf(30));
    std::filesystem::create_symlink(system / "Large_GM.SF3", system / "default-GM.sf3");
    std::filesystem::create_symlink("nowhere.sf2", system / "dangling.sf2");

    std::vector<std::string> names;
    for (const auto& path : FindSoundFonts({own, folder / "missing", system, system}, 1)) {
        names.push_back(path.filename().string());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"my-gm.sf2", "Large_GM.SF3", "Small_GM.sf2", "piano.sf2"}));
}

}  // namespace

}  // namespace Quillon
