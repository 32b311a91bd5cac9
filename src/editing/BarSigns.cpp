#include "core/mod_Common.h"
#include "editing/mod_BarSigns.h"

namespace Quillon::Editing {

namespace {

std::vector<std::int16_t> BarsWith(const Core::TabFile& file, std::int16_t Core::BarInfo::*mark) {
    std::vector<std::int16_t> bars;
    for (int bar = 0; bar < file.BarInfos.Count(); ++bar) {
        if (file.BarInfos[bar].*mark != 0) bars.push_back(Core::ToInt16(bar));
    }
    return bars;
}

}  // namespace

std::vector<SignComplaint> CheckCodas(const Core::TabFile& file) {
    using Core::BarInfo;
    const auto segnos = BarsWith(file, &BarInfo::Segno);
    const auto dalSegnos = BarsWith(file, &BarInfo::DalSegno);
    const auto toCodas = BarsWith(file, &BarInfo::ToCoda);
    const auto codas = BarsWith(file, &BarInfo::CodaMark);
    std::vector<SignComplaint> wrong;
    const auto complain = [&](bool that, SignFault fault, std::int16_t bar) {
        if (that) wrong.push_back({fault, bar});
    };
    if (segnos.size() > 1) complain(true, SignFault::ManySegnos, segnos[1]);
    if (dalSegnos.size() > 1) complain(true, SignFault::ManyDalSegnos, dalSegnos[1]);
    if (codas.size() > 1) complain(true, SignFault::ManyCodas, codas[1]);
    if (!dalSegnos.empty()) {
        complain(segnos.empty(), SignFault::DalSegnoAlone, dalSegnos[0]);
        complain(!segnos.empty() && segnos[0] > dalSegnos[0], SignFault::SegnoBehind, dalSegnos[0]);
    } else if (!segnos.empty()) {
        complain(true, SignFault::SegnoAlone, segnos[0]);
    }
    if (toCodas.empty()) {
        if (!codas.empty()) complain(true, SignFault::CodaAlone, codas[0]);
        return wrong;
    }
    // The leap back ends at the segno, or at the first bar; what stands before that is not played again.
    const std::int16_t back = segnos.empty() ? std::int16_t{0} : segnos[0];
    for (const std::int16_t bar : toCodas) {
        complain(dalSegnos.empty() || bar < back, SignFault::ToCodaUnreached, bar);
        if (codas.empty()) {
            complain(true, SignFault::ToCodaAlone, bar);
        } else {
            complain(codas[0] <= bar, SignFault::CodaBehind, bar);
        }
    }
    return wrong;
}

}  // namespace Quillon::Editing
