#include <algorithm>
#include <utility>

#include "playback/mod_Listening.h"

namespace Quillon::Playback {

ListeningState::Choice ListeningState::ChoiceOf(int track) const {
    if (track < 0 || std::cmp_greater_equal(track, ids.size())) return {};
    const auto found = choices.find(ids[static_cast<std::size_t>(track)]);
    return found == choices.end() ? Choice{} : found->second;
}

ListeningState::Choice& ListeningState::Edit(int track) {
    return choices[Order(track + 1)[static_cast<std::size_t>(track)]];
}

bool ListeningState::Hears(int track) const {
    const auto isSolo = [this](int id) {
        const auto found = choices.find(id);
        return found != choices.end() && found->second.Solo;
    };
    const Choice choice = ChoiceOf(track);
    return !choice.Mute && (choice.Solo || std::ranges::none_of(ids, isSolo));
}

const std::vector<int>& ListeningState::Order(int tracks) {
    while (std::cmp_less(ids.size(), tracks)) ids.push_back(nextId++);
    return ids;
}

void ListeningState::TrackDeleted(int track) {
    Order(track + 1);
    ids.erase(ids.begin() + track);
}

void ListeningState::TracksSwapped(int one, int other) {
    Order(std::max(one, other) + 1);
    std::swap(ids[static_cast<std::size_t>(one)], ids[static_cast<std::size_t>(other)]);
}

}  // namespace Quillon::Playback
