// Into how many equal parts the notes of a beat divide it.
#pragma once

#include <vector>

namespace Quillon::Exchange {

/// Offsets are 64ths from the start of a beat, beats 2, 4, 8 or 16 of them long.
class BeatDivider {
public:
    explicit BeatDivider(double ofTicksPer64th) : ticksPer64th(ofTicksPer64th) {}

    /// Every start of the part is to be met before anything is chosen: they tell whether the part was entered in steps
    /// or played by hand.
    void Meet(double offset);
    /// A division for these starts, each given once. In a part entered in steps, and for many starts, it is the
    /// simplest that all stand on, if there is one.
    int Choose(const std::vector<double>& starts, int beat) const;
    /// A division for a beat where notes only end, a simple one: how early a finger is lifted is not written.
    int ChooseForEnds(const std::vector<double>& ends, int beat) const;
    /// The simplest division that all stand on; 0 without one.
    int Exact(const std::vector<double>& offsets, int beat) const;

private:
    bool InSteps() const;

    double ticksPer64th;
    int met = 0;
    int onSteps = 0;
};

}  // namespace Quillon::Exchange
