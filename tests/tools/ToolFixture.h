// The models of the tools on a started program without windows.
#pragma once

#include "library/NoteRun.h"
#include "library/mod_Tuner.h"
#include "playback/MIDI_OUT.h"
#include "tests/shell/ShellFixture.h"
#include "tools/GuitarTuner.h"
#include "tools/ScaleFinder.h"
#include "tools/ScaleManager.h"

namespace Quillon::Tools {

class ToolTest : public Shell::ShellTest {
protected:
    ToolTest() {
        Shell::Start("");
        Shell::LoadMIDI();
        run->Midi.Receive = [this](const SentMessage& sent) {
            if ((sent.Status & 0xF0) == 0x90 && sent.Data2 > 0) heard.push_back(sent.Data1);
        };
    }
    ~ToolTest() override {
        Library::StopRun();
        Library::StopTuning();
        ScaleManager = {};
        ScaleFinder = {};
        GuitarTuner = {};
        Library::Tuner = {};
    }
    /// What is heard until all is silent again.
    std::vector<int> RunOut() {
        while (run->Clock.Step(run->Clock.Now() + 10'000)) {
        }
        return std::exchange(heard, {});
    }
    std::vector<int> heard;
};

}  // namespace Quillon::Tools
