// Which device is opened, why it is silent, and what the store remembers of it.
#include "platform/RunTimeError.h"
#include "shell/Commands.h"
#include "tests/shell/ShellFixture.h"

namespace Quillon::Shell {
namespace {

using Playback::MidiOut;

/// A mapper and ports by name; those that are locked can't be opened.
struct NamedOutputs : MidiOutputs {
    bool Mapper = true;
    std::vector<std::string> Ports;
    std::string Locked;
    std::vector<std::string> Log;  ///< "open Port", "close Port", and the messages

    struct Device : MidiDevice {
        Device(NamedOutputs& owner, std::string called) : Outputs(owner), Called(std::move(called)) {
            Outputs.Log.push_back("open " + Called);
        }
        ~Device() override { Outputs.Log.push_back("close " + Called); }
        int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
            Outputs.Log.push_back(std::to_string(status) + " " + std::to_string(data1) + " " + std::to_string(data2));
            return MidiOk;
        }
        NamedOutputs& Outputs;
        std::string Called;
    };

    int Count() override { return static_cast<int>(Ports.size()); }
    std::optional<std::string> Name(int number) override {
        if (number == MidiMapper) return Mapper ? std::optional<std::string>("Mapper") : std::nullopt;
        return Ports.at(static_cast<std::size_t>(number));
    }
    std::unique_ptr<MidiDevice> Open(int number, int& error) override {
        if (*Name(number) == Locked) return error = MidiNoDevice, nullptr;
        return std::make_unique<Device>(*this, *Name(number));
    }
    std::string ErrorText(int) override { return "The port is busy."; }
};

struct SilentRenderer : WaveRenderer {
    int ShortMessage(std::int16_t, std::int16_t, std::int16_t) override { return MidiOk; }
    void Render(std::span<std::int16_t> samples) override { std::ranges::fill(samples, std::int16_t{0}); }
};

struct FakeSynthesizer : Synthesizer {
    SynthesizerSettings Applied;
    SynthesizerState Is = SynthesizerState::Sounding;

    void Apply(const SynthesizerSettings& settings) override { Applied = settings; }
    SynthesizerState State() const override { return Is; }
    std::filesystem::path SoundFont() const override { return "/fonts/small.sf2"; }
    std::string AudioSystem() const override { return "air"; }
    std::vector<std::filesystem::path> SoundFonts() const override { return {"/fonts/small.sf2", "/fonts/big.sf2"}; }
    std::unique_ptr<WaveRenderer> NewRenderer() override {
        if (Is == SynthesizerState::NoSoundFont) throw RunTimeError(53, "no SoundFont");
        return std::make_unique<SilentRenderer>();
    }
};

class SoundDevices : public ShellTest {
public:
    SoundDevices() { Use(); }
    void Use() {
        Services.Midi = &outputs;
        Services.Synth = &synthesizer;
        outputs.Log.clear();
    }
    void Again() {
        Restart();
        Use();
        Start("");
    }
    ~SoundDevices() override { run.reset(); }

    NamedOutputs outputs;
    FakeSynthesizer synthesizer;
};

TEST_F(SoundDevices, AFreshMachinePlaysOnTheMapperAndTheStopClosesItBeforeSettingsAreWritten) {
    Start("");
    EXPECT_EQ(outputs.Log, (std::vector<std::string>{"open Mapper", "176 0 128", "192 24 0"}))
        << "the bank is past 7 bits, which is meant";
    EXPECT_EQ(SoundText(), "In use: Mapper with small.sf2 over air");
    Core::Settings.OutputDevice = 5;
    run->Files.FullFor = "QL4.ini";
    outputs.Log.clear();
    EXPECT_TRUE(Stop());
    EXPECT_EQ(outputs.Log.back(), "close Mapper") << "closed, and messages to silence it before";
    EXPECT_EQ(MidiOut.MidiHandle, 0);
}

TEST_F(SoundDevices, ADeviceIsFoundByItsNameWhereverItStands) {
    outputs.Ports = {"Piano", "Box"};
    Start("");
    lstDevices_Click(2);
    EXPECT_EQ(outputs.Log.back(), "open Box");
    EXPECT_EQ(Core::Settings.OutputDevice, 2);
    lstDevices_Click(7);
    lstDevices_Click(-1);
    EXPECT_EQ(outputs.Log.back(), "open Box") << "no such entry";

    struct {
        const char* What;
        std::vector<std::string> Ports;
        const char* Opened;
        const char* Told;
    } const cases[] = {{"as it was", {"Piano", "Box"}, "Box", ""},
                       {"another before it", {"Synth", "Piano", "Box"}, "Box", ""},
                       {"the one before it is gone", {"Box"}, "Box", ""},
                       {"two alike: the one at the place", {"Box", "Box"}, "Box", ""},
                       {"gone", {"Piano", "Organ"}, "Mapper", "Box is not there any more: playing on Mapper."},
                       {"back", {"Box"}, "Box", ""}};
    for (const auto& c : cases) {
        outputs.Ports = c.Ports;
        Again();
        EXPECT_EQ(outputs.Log.at(0), "open " + std::string(c.Opened)) << c.What;
        std::string told;
        for (const std::string& line : Window().Status) told += line;
        EXPECT_EQ(told, c.Told) << c.What;
        EXPECT_TRUE(Box().Shown.empty()) << c.What;
    }
}

TEST_F(SoundDevices, SilenceIsToldOnceInTheStatusBarAndNeverInABox) {
    struct {
        const char* What;
        void (*Make)(SoundDevices&);
        const char* Why;
    } const cases[] = {
        {"no MIDI at all", [](SoundDevices&) { Services.Midi = nullptr; }, "no device to play on"},
        {"neither mapper nor port", [](SoundDevices& t) { t.outputs.Mapper = false; }, "no device to play on"},
        {"refused", [](SoundDevices& t) { t.outputs.Locked = "Mapper"; }, "The port is busy."},
        {"no audio", [](SoundDevices& t) { t.synthesizer.Is = SynthesizerState::NoAudio; }, "no audio system"},
        {"no font", [](SoundDevices& t) { t.synthesizer.Is = SynthesizerState::NoSoundFont; },
         "no SoundFont was found"},
    };
    for (const auto& c : cases) {
        outputs = {};
        synthesizer = {};
        Restart();
        Use();
        c.Make(*this);
        Start("");
        Playback::PlayTab(0, 0);
        while (run->Clock.Step(60'000)) {
        }
        TellSilence();
        std::string told;
        for (const std::string& line : Window().Status) told += line;
        EXPECT_NE(told.find(c.Why), std::string::npos) << c.What << ": " << told;
        EXPECT_EQ(told.find("No sound"), told.rfind("No sound")) << c.What << " is told once";
        EXPECT_NE(SoundText().find(c.Why), std::string::npos) << c.What;
        EXPECT_TRUE(Box().Shown.empty()) << c.What;
    }
    Again();
    synthesizer.Is = SynthesizerState::Loading;
    TellSilence();
    EXPECT_EQ(SoundText(), "In use: Mapper, loading small.sf2 ...");
    synthesizer.Is = SynthesizerState::NoSoundFont;
    TellSilence();
    EXPECT_NE(Window().Status.back().find("SoundFont"), std::string::npos) << "known only after a while";
}

TEST_F(SoundDevices, DamagedSettingsHaveTheirDefaults) {
    const auto stored = [&](const char* gain, const char* reverb) {
        run->Store.Save("Sound", "Gain", gain);
        run->Store.Save("Sound", "Reverb", reverb);
        run->Store.Save("Sound", "SoundFont", "/fonts/mine.sf2");
        LoadMIDI();
        LoadSoundSettings();
        return Sound.Synthesizer;
    };
    EXPECT_EQ(stored("1.25", "0"), (SynthesizerSettings{"/fonts/mine.sf2", 1.25, false, true}));
    for (const char* gain : {"loud", "-1", "2.01", "nan", "1e999", ""}) {
        EXPECT_EQ(stored(gain, "maybe"), (SynthesizerSettings{"/fonts/mine.sf2", 0.5, true, true})) << gain;
    }
}

TEST_F(SoundDevices, OptionsAreHeardAtOnceAndCancelTakesThemBackButNotTheDevice) {
    outputs.Ports = {"Box"};
    Start("");
    Window().On<OptionsModel>([&](OptionsModel& model) {
        EXPECT_EQ(model.SoundFonts.size(), 2U);
        lstDevices_Click(1);
        model.Synthesizer = {"/fonts/big.sf2", 1.5, false, false};
        model.Preview();
        EXPECT_EQ(synthesizer.Applied.Gain, 1.5);
        return false;
    });
    mnuFileOptions_Click();
    EXPECT_EQ(synthesizer.Applied, SynthesizerSettings{});
    EXPECT_EQ(Core::Settings.OutputDevice, 1);
    EXPECT_EQ(outputs.Log.back(), "open Box");

    Window().On<OptionsModel>([&](OptionsModel& model) {
        lstDevices_Click(0);
        model.Synthesizer.Gain = 0.25;
        model.Settings.AlternatePlayback = true;
        return true;
    });
    mnuFileOptions_Click();
    EXPECT_EQ(Core::Settings.OutputDevice, 0) << "the model's older copy must not bring the other back";
    EXPECT_EQ(Core::Settings.OutputBank, 127);
    Again();
    EXPECT_EQ(synthesizer.Applied.Gain, 0.25);
    EXPECT_EQ(Core::Settings.OutputBank, 127);
}

TEST_F(SoundDevices, BendsAreNumbersAboveOneAndBelowFifty) {
    Start("");
    for (const auto& [typed, kept] : std::initializer_list<std::pair<const char*, const char*>>{
             {"49.99", "49.99"}, {" 2,5 ", " 2,5 "}, {"1", "7.9"}, {"50", "7.9"}, {"", "7.9"}, {"wide", "7.9"}}) {
        OptionsModel model;
        model.Load();
        model.BendCoefficient = typed;
        const bool taken = model.CheckBends().empty();
        EXPECT_EQ(model.BendCoefficient, kept) << typed;
        EXPECT_EQ(taken, model.Settings.BendCoefficient != 7.9) << typed;
    }
    OptionsModel model;
    model.Load();
    model.VibratoBend = "0";
    EXPECT_EQ(model.CheckBends(), "str_VibratoOutOfRange");
    EXPECT_EQ(model.VibratoBend, "4");
}

TEST_F(SoundDevices, TheTestToneEndsByItself) {
    Start("");
    outputs.Log.clear();
    cmdTestTone_Click();
    EXPECT_EQ(std::ranges::count_if(outputs.Log, [](const std::string& m) { return m.starts_with("144"); }), 6);
    while (run->Clock.Step(2000)) {
    }
    EXPECT_EQ(outputs.Log.back(), "176 123 0");
    EXPECT_EQ(run->Clock.Running(), 0U);
}

TEST_F(SoundDevices, AMidiFileIsWrittenWhereAsked) {
    Start("");
    const auto target = folder / "song.mid";
    RunCommand(*FindCommand("mnuFileExportMIDI"));
    EXPECT_EQ(Window().Suggested, "Untitled.mid");
    EXPECT_FALSE(std::filesystem::exists(target)) << "the question was cancelled";
    Window().SaveAnswer = target;
    RunCommand(*FindCommand("mnuFileExportMIDI"));
    EXPECT_EQ(Testing::Slurp(target).substr(0, 4), "MThd");
    EXPECT_EQ(Window().Status.back(), "song.mid written");
}

TEST_F(SoundDevices, ASoundFileIsWrittenWholeOrNotAtAll) {
    Start("");
    EXPECT_TRUE(IsEnabled(*FindCommand("mnuFileExportWave")));
    const auto target = folder / "song.wav";
    mnuFileExportWave_Click();
    EXPECT_EQ(Window().Suggested, "Untitled.wav");
    EXPECT_FALSE(std::filesystem::exists(target)) << "the question was cancelled";
    Window().SaveAnswer = target;

    Window().CancelAt = 0;
    mnuFileExportWave_Click();
    EXPECT_FALSE(std::filesystem::exists(target));
    EXPECT_EQ(Window().Calls.back(), "work ends");
    EXPECT_NE(Window().Status.back().find("not written"), std::string::npos);

    Window().CancelAt = 1000;
    synthesizer.Is = SynthesizerState::NoSoundFont;
    RunCommand(*FindCommand("mnuFileExportWave"));
    EXPECT_EQ(Box().Shown, std::vector<std::string>{"no SoundFont"});
    synthesizer.Is = SynthesizerState::Sounding;
    Window().SaveAnswer = folder / "no such folder" / "song.wav";
    RunCommand(*FindCommand("mnuFileExportWave"));
    EXPECT_NE(Box().Shown.back().find("no such folder"), std::string::npos);
    EXPECT_EQ(Window().Calls.back(), "work ends") << "also when it raises";

    Window().SaveAnswer = target;
    mnuFileExportWave_Click();
    EXPECT_EQ(Testing::Slurp(target).substr(0, 4), "RIFF");
    EXPECT_EQ(Window().Status.back(), "song.wav written");
    Services.Synth = nullptr;
    EXPECT_FALSE(IsEnabled(*FindCommand("mnuFileExportWave")));
}

}  // namespace
}  // namespace Quillon::Shell
