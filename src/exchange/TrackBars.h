// Bars of tracks that an import has written, made as many for all of them.
#pragma once

#include <map>
#include <utility>

#include "core/mod_TabFileStructure.h"
#include "exchange/AsciiImport.h"

namespace Quillon::Exchange {

/// Bars that hold nothing: with rests for their time signature, or with one quarter. Those of a time signature share
/// their strums, as a file of a few bytes can ask for a million of them.
class RestBars {
public:
    explicit RestBars(bool filled) : fills(filled) {}
    /// Adds bars to a track until it has as many as BarInfos.
    void FillUp(Core::TabFile& file, int track);

private:
    const Core::Bar& For(const Core::BarInfo& info);

    bool fills;
    std::map<std::pair<std::int32_t, std::int32_t>, Core::Bar> made;  ///< by time signature
};

/// Raises "Overflow" when the tracks have more strums than MostStrumsInAll, each bar counted, shared or not.
void CheckStrums(const Core::TabFile& file);

/// As many bars for each track, and for BarInfos, as the longest of them has; the added ones are empty, and filled with
/// rests when `fill` is set. A bar info that is added has the time signature of the one before. False when `progress`,
/// asked before each track, ended it.
bool EvenOutBars(Core::TabFile& file, bool fill, const ImportProgress& progress = {});

}  // namespace Quillon::Exchange
