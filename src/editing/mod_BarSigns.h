// The signs that send the player elsewhere, and whether they make sense together.
#pragma once

#include <cstdint>
#include <vector>

#include "core/mod_TabFileStructure.h"

namespace Quillon::Editing {

enum class SignFault : std::uint8_t {
    DalSegnoAlone,    ///< a D.S. without a segno: it goes back to the first bar
    SegnoAlone,       ///< a segno that no D.S. goes back to
    SegnoBehind,      ///< the D.S. stands before its segno and leaps forward
    ManySegnos,       ///< only the first one counts
    ManyDalSegnos,    ///< only the first one is taken
    ManyCodas,        ///< only the first one counts
    ToCodaAlone,      ///< "To Coda" without a coda: it goes to the first bar
    CodaAlone,        ///< a coda that no "To Coda" leads to
    ToCodaUnreached,  ///< "To Coda" counts only after a D.S., and no way leads there
    CodaBehind        ///< the coda does not stand behind its "To Coda": the piece would have no end
};

struct SignComplaint {
    SignFault Fault;
    std::int16_t Bar;  ///< from 0: the sign that is at fault
    bool operator==(const SignComplaint&) const = default;
};

/// What is wrong with the segnos, codas and leaps of a piece, as the player would take them. Empty when nothing is.
std::vector<SignComplaint> CheckCodas(const Core::TabFile& file);

}  // namespace Quillon::Editing
