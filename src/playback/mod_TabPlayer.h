// The player: a timer fires once a 64th note, and at each tick every track goes one step through the document itself.
//
// There is no event list. Each track counts its own strums in one shared bar, which the last track moves on; a strum's
// notes ring until the next strum of its track that is not tied or ringing. Effects within a strum have timers of
// their own (see mod_Effects.h). An index outside a track makes the track idle; nothing here raises.
//
// Bars, strums, strings and tracks count from 0. Intervals are whole milliseconds.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/mod_TabFileStructure.h"
#include "playback/BarWalk.h"
#include "playback/mod_Listening.h"

namespace Quillon::Playback {

struct frmPlayMemory;

/// What the player asks of the window that shows the document.
struct PlayView {
    virtual ~PlayView() = default;
    /// Playing is about to start: the document is drawn anew, what would edit it and both scroll bars are disabled.
    virtual void PlayingStarts() {}
    /// Playing has stopped: the marker goes, and what PlayingStarts disabled is enabled again.
    virtual void PlayingStopped() {}
    /// A bar has begun on the cursor's track: it is to be in view.
    virtual void ScrollToBar(int) {}
    /// The cursor's track reached a strum. Past the bar's last strum the marker hides.
    virtual void MoveMarker(int /*track*/, int /*bar*/, int /*strum*/) {}
    /// The song jumps back for ever, or has left its end behind: it plays on until it is stopped.
    virtual void PlaysOn() {}
};

/// The speed trainer's loop. Bars count from 0, tempos are quarter notes a minute.
struct SpeedTrainer {
    bool Running = false;
    std::int16_t FromBar = 0;
    std::int16_t ToBar = 0;
    std::int16_t LoopsLeft = 0;  ///< after the one that plays
    std::int32_t Tempo = 0;
    std::int32_t FinalTempo = 0;
    std::int32_t Step = 0;
    bool operator==(const SpeedTrainer&) const = default;
};

/// With the bar that plays and the way through the song from there, which are its base.
struct PlayerState : BarWalk {
    PlayerState();
    ~PlayerState();
    PlayerState(PlayerState&&) noexcept;
    PlayerState& operator=(PlayerState&&) noexcept;

    std::vector<std::int16_t> PlayStrum;  ///< by track; -1 when the bar was just entered
    std::vector<double> PlayElapsed;      ///< by track: ticks spent in the strum
    std::int16_t PlayEndBar = 0;
    std::int16_t PlayLastTrack = 0;
    std::int16_t BeatsLeft = 0;  ///< clicks left in the count-in or in the bar
    Core::Strum LastChord;       ///< what a slash strum repeats, of whichever track it was
    double TempoInUse = 0;       ///< that the interval of the ticks was worked out from
    bool ToldPlaysOn = false;
    SpeedTrainer Trainer;
    ListeningState Listening;  ///< of the open document; a track that is not heard keeps time and sends nothing
    std::unique_ptr<frmPlayMemory> Memory;  ///< the timers, there while playing
    PlayView* View = nullptr;

    /// Tells the view, once a playing.
    void TellPlaysOn();
};
extern PlayerState Player;

// Playing the open document ------------------------------------------------------------------------------------------

/// Starts playing; a count-in and the metronome come as the settings say. `endBar` is the last one played.
void PlayTab(std::int16_t startBar, std::int16_t endBar);
/// Stops all, also when nothing plays.
void StopTab();
/// From the call of PlayTab, its count-in included, until StopTab.
bool IsPlaying();
/// The beats a minute that the ticks keep now: the file's tempo, the trainer's, or a tempo text's.
double TempoNow();

/// What the speed trainer's dialog holds, as typed: bars count from 1 there.
struct TrainerFields {
    std::string txtFromBar;
    std::string txtToBar;
    std::string txtLoops;
    std::string txtInitialTempo;
    std::string txtFinalTempo;
    std::string txtTempoIncrease;
};
/// Takes the fields, plays from the first bar of the loop on, and keeps the trainer running until its loops are spent.
/// Raises "Type mismatch" or "Overflow" for a field that is no number.
void StartSpeedTrainer(const TrainerFields& fields);

/// Takes a choice of what is heard. What sounds of a track that is not heard any more ends at once.
void SetMute(int track, bool on);
void SetSolo(int track, bool on);

void PlayTimer_Timer();
void tmrMetronome_Timer();

/// Sounds one strum; `clearFirst` silences all channels before it.
void PlayChord(int track, int bar, int strum, bool clearFirst, bool strumUp);

// Numbers of the player ----------------------------------------------------------------------------------------------

/// Length in 64ths of a note of a length code 0 to 6, 0 for others; see Core::StrumLength.
double GetNumOf64ths(int duration, int tuplet, bool hasTuplet, bool dotted);
/// Beats of the bar, or milliseconds from one click to the next; right in 4/4 alone, which is meant. A figure off the
/// metronome's list counts as 4.
std::int16_t GetMetronomeInterval(const Core::BarInfo& info, std::int32_t tickInterval, bool wantBeats);
/// First bar that holds the sign, and first that is the coda; 0 for none.
std::int16_t GetSignLocation(const Core::TabFile& file);
std::int16_t GetCodaLocation(const Core::TabFile& file);
/// -12 when the down flag is set, else 12 when the up flag is, else 0.
int GetOctaveShift(const Core::Track& track);
/// Velocity of a note by the track's volume and the note's dynamic, halved for a ghost.
std::int16_t getVolume(const Core::Track& track, const Core::Note& note);
/// True when a note of the strings in use is tied, or rings; whether a note stands there does not matter.
bool IsTie(const Core::Track& track, const Core::Strum& strum);
bool IsRing(const Core::Track& track, const Core::Strum& strum);
/// The track with the most strums in a bar; of equal ones the first.
int TrackWithMostStrumsOnBar(const Core::TabFile& file, int bar);
/// The tempo that a strum's text sets ("t=96"), nothing being 0. Blanks do not matter.
double TempoOfText(std::string_view text);
/// Sounds a pitch given as text, higher by what its harmonic adds, and ends it at once if asked to.
void PlayNote(const std::string& pitch, std::int32_t harmonic, std::int16_t channel, double velocity, bool offAtOnce);

}  // namespace Quillon::Playback
