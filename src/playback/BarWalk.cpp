#include "playback/BarWalk.h"

#include <set>

#include "core/mod_Common.h"
#include "playback/PlayScore.h"
#include "playback/mod_TabPlayer.h"

namespace Quillon::Playback {

void BarWalk::Start(const Core::TabFile& file, std::int16_t bar) {
    *this = {};
    PlayBar = bar;
    SegnoBar = GetSignLocation(file);
    CodaBar = GetCodaLocation(file);
}

void BarWalk::NoteRepeat(const Core::TabFile& file) {
    const Core::BarInfo* const info = FindBarInfo(file, PlayBar);
    if (info && info->RepeatOpen) RepeatStartBar = PlayBar;
}

BarWalk::Step BarWalk::EndBar(const Core::TabFile& file) {
    const Core::BarInfo* const info = FindBarInfo(file, PlayBar);
    const Step repeated = Repeat(info);
    return InRepeat ? repeated : FollowSigns(info);
}

void BarWalk::Enter(int bar) {
    Skipping([&] { PlayBar = Core::ToInt16(bar); });
}

BarWalk::Step BarWalk::Repeat(const Core::BarInfo* info) {
    if (!InRepeat && info && info->RepeatClose > 0) {
        RepeatsLeft = info->RepeatClose;
        InRepeat = true;
    }
    if (!InRepeat || !info) return Step::Stays;
    if (info->RepeatClose <= 0) {
        Enter(PlayBar + 1);
    } else if (RepeatsLeft > 0) {
        --RepeatsLeft;
        Enter(RepeatStartBar);
    } else {
        InRepeat = false;
    }
    return Step::Enters;
}

BarWalk::Step BarWalk::FollowSigns(const Core::BarInfo* info) {
    Step step = Step::Enters;
    int bar = PlayBar;
    if (info && info->ToCoda != 0 && SegnoTaken) {
        if (CodaBar <= PlayBar) step = Step::Circles;
        bar = CodaBar - 1;
    }
    if (info && info->DalSegno != 0 && !SegnoTaken) {
        bar = SegnoBar - 1;
        SegnoTaken = true;
    }
    Enter(bar + 1);
    return step;
}

PlayingOrder BarsInPlayingOrder(const Core::TabFile& file, int most) {
    PlayingOrder order;
    std::set<BarWalk> jumps;  // as the song stood behind each jump back: to stand so again is to go round for ever
    BarWalk walk;
    walk.Start(file, 0);
    while (FindBarInfo(file, walk.PlayBar)) {
        if (std::ssize(order.Bars) == most) Core::ToInt16(std::int64_t{1} << 15);
        order.Bars.push_back(walk.PlayBar);
        walk.NoteRepeat(file);
        const int before = walk.PlayBar;
        if (walk.EndBar(file) == BarWalk::Step::Stays) break;
        if (walk.PlayBar > before || jumps.insert(walk).second) continue;
        order.Ends = false;
        break;
    }
    return order;
}

}  // namespace Quillon::Playback
