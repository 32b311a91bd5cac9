#include "exchange/DrumLetters.h"

#include <algorithm>
#include <string_view>

#include "core/mod_Instruments.h"

namespace Quillon::Exchange {

namespace {

const Core::PercussionLetter& Named(char letter) {
    return *std::ranges::find_if(Core::PercussionLetters(),
                                 [&](const Core::PercussionLetter& each) { return each.Letter[0] == letter; });
}

}  // namespace

const char* LetterForDrum(Core::PercAssignment& sounds, std::int16_t sound) {
    // Two letters of a string may have one sound, and sound 0 is that of every letter that is free: the first one of
    // this order counts. It is another one in which free letters are given away.
    for (const char stored : std::string_view("XoxrfOsSc~tF")) {
        const Core::PercussionLetter& letter = Named(stored);
        if (sounds.*letter.Sound == sound) return letter.Letter;
    }
    for (const char free : std::string_view("xoXOcfrsFSt~")) {
        const Core::PercussionLetter& letter = Named(free);
        if (sounds.*letter.Sound != 0) continue;
        sounds.*letter.Sound = sound;
        return letter.Letter;
    }
    return nullptr;
}

int HomeOfDrum(int key) {
    switch (key) {
        case 49:
        case 51:
        case 52:
        case 53:
        case 55:
        case 57:
        case 59:  // cymbals
            return 0;
        case 42:
        case 44:
        case 46:  // hi-hats
            return 1;
        case 48:
        case 50:  // high toms
            return 2;
        case 37:
        case 38:
        case 39:
        case 40:  // snares and claps
            return 3;
        case 41:
        case 43:
        case 45:
        case 47:  // low toms
            return 4;
        case 35:
        case 36:  // bass drums
            return 5;
        default:
            return 2;
    }
}

}  // namespace Quillon::Exchange
