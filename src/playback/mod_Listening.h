// Which tracks a person wants to hear: mute and solo. It stands beside the document and is never saved; traces, sound
// files and exports know nothing of it. A track keeps its choice when tracks move, and gets it back when one that was
// deleted comes back.
#pragma once

#include <map>
#include <vector>

namespace Quillon::Playback {

class ListeningState {
public:
    bool IsMuted(int track) const { return ChoiceOf(track).Mute; }
    bool IsSolo(int track) const { return ChoiceOf(track).Solo; }
    /// Mute wins over solo; once a track is solo, those alone that are.
    bool Hears(int track) const;
    void SetMute(int track, bool on) { Edit(track).Mute = on; }
    void SetSolo(int track, bool on) { Edit(track).Solo = on; }

    void TrackDeleted(int track);
    void TracksSwapped(int one, int other);
    /// The tracks by what tells them apart, for CameBack.
    const std::vector<int>& Order(int tracks);
    /// The document is again as it was when it had this order.
    void CameBack(std::vector<int> order) { ids = std::move(order); }

private:
    struct Choice {
        bool Mute = false;
        bool Solo = false;
    };
    Choice ChoiceOf(int track) const;
    Choice& Edit(int track);

    std::vector<int> ids;  // by track; those past its end have no choice yet
    int nextId = 0;
    std::map<int, Choice> choices;
};

}  // namespace Quillon::Playback
