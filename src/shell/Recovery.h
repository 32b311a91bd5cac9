// A copy of the changed document under Data/Recovery, so that a crash costs seconds and not an evening.
//
// Each running program has a name there and holds a lock on it; a copy whose lock is free was left by a crash and is
// offered at the next start.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/mod_TabFileStructure.h"
#include "platform/FileSystem.h"

namespace Quillon::Shell {

/// The window's timer calls tmrRecovery_Timer this often; with the pause between two copies that is at most
/// 10 seconds from a change to its copy.
constexpr std::int64_t RecoveryTick = 2000;   ///< ms
constexpr std::int64_t RecoveryPause = 8000;  ///< ms

struct RecoveryState {
    std::string Name;                ///< of this program's copy, "" before the first
    std::unique_ptr<FileLock> Lock;  ///< on that name
    bool Written = false;            ///< a copy stands on the disk
    bool Failed = false;             ///< the last try failed, which was told
    Core::TabFile Copied;            ///< what the copy holds
    std::optional<std::int64_t> CopiedAt;
};
extern RecoveryState Recovery;

/// True when the document changed since its last copy and the pause is over. `now` is any steady clock in ms.
/// Comparing is cheap: what no edit touched is shared with the last copy.
bool RecoveryDue(std::int64_t now);
/// Writes a copy when one is due. A failure is told once, in the status bar.
void tmrRecovery_Timer(std::int64_t now);
/// The document was saved or given up: its copy goes.
void RemoveRecovery();
/// As RemoveRecovery, and gives the name up, at the end of the program.
void EndRecovery();
/// Offers the copies that crashes left, one after the other, until one is taken. A taken one becomes the open
/// document, changed, with the file name it had.
void OfferRecovery();

/// What a copy's file holds.
struct RecoveryCopy {
    std::string FileName;  ///< of the document, "" for one never saved
    std::string Time;      ///< when it was written, local: "2025-03-01 20:15"
    Core::TabFile Document;
};
std::string FormatRecovery(const RecoveryCopy& copy);
/// Raises for what is no whole copy.
RecoveryCopy ParseRecovery(std::string_view bytes);

}  // namespace Quillon::Shell
