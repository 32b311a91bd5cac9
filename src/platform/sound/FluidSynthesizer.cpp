#include "platform/sound/FluidSynthesizer.h"

#include <new>
#include <system_error>
#include <utility>

#include "platform/RunTimeError.h"
#include "platform/sound/FluidSound.h"
#include "platform/sound/SoundFonts.h"

namespace Quillon {

namespace fs = std::filesystem;

class FluidSynthesizer::Device : public MidiDevice {
public:
    explicit Device(FluidSynthesizer& of) : owner(of) {}
    ~Device() override { owner.Close(); }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
        if (const auto bytes = BytesOfMessage(status, data1, data2)) owner.Take(*bytes);
        return MidiOk;
    }

private:
    FluidSynthesizer& owner;
};

FluidSynthesizer::FluidSynthesizer(fs::path ownSoundFonts) : ownFonts(std::move(ownSoundFonts)) {}

FluidSynthesizer::~FluidSynthesizer() {
    {
        const std::lock_guard guard(lock);
        ends = true;
    }
    wished.notify_one();
    if (thread.joinable()) thread.join();
}

std::unique_ptr<MidiDevice> FluidSynthesizer::Open() {
    {
        const std::lock_guard guard(lock);
        ++devices;
        memory = {};
        if (sound) sound->Reset();
        state = sound ? SynthesizerState::Sounding : SynthesizerState::Loading;
        Wish();
    }
    return std::make_unique<Device>(*this);
}

void FluidSynthesizer::Close() {
    const std::lock_guard guard(lock);
    if (--devices > 0) return;
    if (sound) sound->Reset();
    state = SynthesizerState::Closed;
    Wish();
}

void FluidSynthesizer::Take(const MidiBytes& message) {
    const std::lock_guard guard(lock);
    memory.Take(message);
    if (sound) sound->Play(message);
}

void FluidSynthesizer::Apply(const SynthesizerSettings& applied) {
    const std::lock_guard guard(lock);
    const bool sameFont = applied.SoundFont == settings.SoundFont;
    settings = applied;
    if (sound) sound->Apply(settings);
    if (!sameFont && devices > 0) Wish();
}

SynthesizerState FluidSynthesizer::State() const {
    const std::lock_guard guard(lock);
    return state;
}

fs::path FluidSynthesizer::SoundFont() const {
    const std::lock_guard guard(lock);
    return state == SynthesizerState::Sounding || state == SynthesizerState::Loading ? font : fs::path();
}

std::string FluidSynthesizer::AudioSystem() const {
    const std::lock_guard guard(lock);
    return sound ? sound->AudioSystem() : "";
}

std::vector<fs::path> FluidSynthesizer::SoundFonts() const {
    std::vector<fs::path> folders = UsualSoundFontFolders();
    folders.insert(folders.begin(), ownFonts);
    return FindSoundFonts(folders, 1);
}

fs::path FluidSynthesizer::Chosen(const SynthesizerSettings& of) const {
    if (!of.SoundFont.empty()) return of.SoundFont;
    const auto found = SoundFonts();
    return found.empty() ? fs::path() : found.front();
}

// With the lock held.
void FluidSynthesizer::Wish() {
    due = true;
    if (!thread.joinable()) {
        try {
            thread = std::thread([this] { Work(); });
        } catch (const std::system_error&) {
            state = SynthesizerState::NoAudio;
        }
    }
    wished.notify_one();
}

void FluidSynthesizer::Work() {
    std::unique_lock guard(lock);
    for (;;) {
        wished.wait(guard, [this] { return ends || due; });
        if (ends) break;
        due = false;
        if (devices > 0) {
            try {
                MakeSound(guard);
            } catch (const std::bad_alloc&) {
                if (!guard.owns_lock()) guard.lock();
                state = SynthesizerState::NoAudio;
            }
        } else {
            std::unique_ptr<FluidSound> old = std::exchange(sound, nullptr);
            guard.unlock();
            old.reset();
            guard.lock();
        }
    }
    const auto old = std::exchange(sound, nullptr);
    guard.unlock();
}

/// Brings the sound to what is wished. Leaves the lock while it works; called with it held, and returns so.
void FluidSynthesizer::MakeSound(std::unique_lock<std::mutex>& guard) {
    const SynthesizerSettings wanted = settings;
    const fs::path before = sound ? sound->SoundFont() : fs::path();
    guard.unlock();

    const auto finish = [&](SynthesizerState outcome, std::unique_ptr<FluidSound> made) {
        guard.lock();
        std::unique_ptr<FluidSound> old = std::exchange(sound, std::move(made));
        if (sound) {
            sound->Apply(settings);
            memory.PlayTo(*sound);
        }
        if (devices > 0) state = outcome;
        if (!old) return;
        guard.unlock();
        old.reset();
        guard.lock();
    };

    const fs::path chosen = Fluid() ? Chosen(wanted) : fs::path();
    if (!before.empty() && chosen == before) return guard.lock();
    if (!Fluid()) return finish(SynthesizerState::NoAudio, nullptr);
    {
        const std::lock_guard told(lock);
        font = chosen;
    }
    auto made = std::make_unique<FluidSound>(wanted, FluidSound::Use::Live);
    // A machine without sound is spared the reading of a hundred megabytes.
    if (before.empty() && !made->OpenAudio()) return finish(SynthesizerState::NoAudio, nullptr);
    if (chosen.empty() || !made->Load(chosen)) return finish(SynthesizerState::NoSoundFont, nullptr);
    if (!before.empty()) {
        // An audio device may be for one alone: the old sound leaves it only now that the new one is ready.
        finish(SynthesizerState::Loading, nullptr);
        guard.unlock();
        if (!made->OpenAudio()) return finish(SynthesizerState::NoAudio, nullptr);
    }
    finish(SynthesizerState::Sounding, std::move(made));
}

namespace {

class FluidRenderer : public WaveRenderer {
public:
    explicit FluidRenderer(const SynthesizerSettings& applied) : sound(applied, FluidSound::Use::Offline) {}
    bool Load(const fs::path& font) { return sound.Load(font); }

    int ShortMessage(std::int16_t status, std::int16_t data1, std::int16_t data2) override {
        if (const auto bytes = BytesOfMessage(status, data1, data2)) sound.Play(*bytes);
        return MidiOk;
    }
    void Render(std::span<std::int16_t> samples) override {
        sound.Render(samples.data(), static_cast<int>(samples.size() / 2));
    }

private:
    FluidSound sound;
};

}  // namespace

std::unique_ptr<WaveRenderer> FluidSynthesizer::NewRenderer() {
    constexpr int FileNotFound = 53;
    if (!Fluid()) throw RunTimeError(FileNotFound, "The library " QUILLON_FLUIDSYNTH " is not installed");
    SynthesizerSettings wanted;
    {
        const std::lock_guard guard(lock);
        wanted = settings;
    }
    const fs::path chosen = Chosen(wanted);
    if (chosen.empty()) {
        throw RunTimeError(FileNotFound,
                           "There is no SoundFont to play with: install one, for instance timgm6mb-soundfont, or put "
                           "one into " +
                               ownFonts.string());
    }
    auto renderer = std::make_unique<FluidRenderer>(wanted);
    if (!renderer->Load(chosen)) {
        throw RunTimeError(FileNotFound,
                           chosen.string() + ": can't be read as a SoundFont; choose another one in the options");
    }
    return renderer;
}

}  // namespace Quillon
