// What the sources of MidiVoice share.
#pragma once

#include "exchange/MidiVoice.h"

namespace Quillon::Exchange {

struct MidiVoice::Now {
    const Core::Strum& Strum;
    const Core::Strum* Next;
    double Start;
    double End;
    int Channel;  ///< of the notes without an effect of their own

    double Length() const;   ///< 64ths as written; a bar may cut it earlier
    double Strum64() const;  ///< rounded, as the effects of the player count it
};

}  // namespace Quillon::Exchange
