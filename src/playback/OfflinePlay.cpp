#include <utility>

#include "platform/MidiDevice.h"
#include "platform/Services.h"
#include "playback/MIDI_OUT.h"
#include "playback/mod_Effects.h"
#include "playback/mod_OfflinePlay.h"

namespace Quillon::Playback {

namespace {

class Receiver : public MidiDevice {
public:
    Receiver(const VirtualClock& time, const std::function<void(const TimedMessage&)>& to) : clock(time), receive(to) {}
    int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
        receive({clock.Now(), status, data1, data2});
        return MidiOk;
    }

private:
    const VirtualClock& clock;
    const std::function<void(const TimedMessage&)>& receive;
};

/// The timers, the device and the player of real playing, put aside for its lifetime.
class PutAside {
public:
    PutAside(VirtualClock& clock, std::unique_ptr<MidiDevice> device)
        : timers(std::exchange(Services.Timers, &clock)),
          output(std::exchange(MidiOut, MidiOutState{1, std::move(device), MidiOk})),
          player(std::exchange(Player, PlayerState{})),
          effects(std::exchange(Effects, EffectArrays{})) {}
    ~PutAside() {
        Effects = std::move(effects);
        Player = std::move(player);
        MidiOut = std::move(output);
        Services.Timers = timers;
    }
    PutAside(const PutAside&) = delete;
    PutAside& operator=(const PutAside&) = delete;

private:
    TimerHost* timers;
    MidiOutState output;
    PlayerState player;
    EffectArrays effects;
};

}  // namespace

bool PlayOffline(const OfflineOptions& options, const std::function<void(const TimedMessage&)>& receive,
                 const std::function<bool(std::int64_t)>& goOn) {
    VirtualClock clock;
    const PutAside others(clock, std::make_unique<Receiver>(clock, receive));
    if (options.Trainer) {
        StartSpeedTrainer(*options.Trainer);
    } else {
        PlayTab(options.StartBar, options.EndBar);
    }
    std::int64_t asked = clock.Now();
    while (clock.Step(options.MaxMs)) {
        if (!goOn || clock.Now() == asked) continue;
        asked = clock.Now();
        if (!goOn(asked)) return false;
    }
    return true;
}

}  // namespace Quillon::Playback
