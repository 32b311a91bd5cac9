// Files of a POSIX system. A save is whole or did not happen.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <utility>

#include "platform/FileSystem.h"

namespace Quillon {

class PosixFiles : public FileSystem {
public:
    static constexpr std::size_t DefaultReadLimit = std::size_t{64} << 20;

    /// Read refuses files of more than `readLimit` bytes. From here on a write past a limit on file sizes raises; the
    /// signal that would end the program is ignored.
    explicit PosixFiles(std::size_t readLimit = DefaultReadLimit);

    bool Exists(const std::filesystem::path& path) const override;
    std::string Read(const std::filesystem::path& path) const override;
    void Replace(const std::filesystem::path& path, std::string_view bytes) override;
    bool ReplaceWith(const std::filesystem::path& path, const std::function<bool(FileWriter&)>& write) override;
    void WriteScratch(const std::filesystem::path& path, std::string_view bytes) override;
    void Delete(const std::filesystem::path& path) override;
    void MakeFolder(const std::filesystem::path& path) override;
    std::vector<std::string> FilesIn(const std::filesystem::path& folder) const override;
    std::vector<FileStamp> StampsIn(const std::filesystem::path& folder) const override;
    void ReplaceFolder(const std::filesystem::path& folder, const std::vector<NamedBytes>& files) override;
    std::unique_ptr<FileLock> Lock(const std::filesystem::path& path) override;
    std::unique_ptr<FileLock> TryLock(const std::filesystem::path& path) override;

private:
    struct HeldLock;
    struct NestedLock;
    std::unique_ptr<FileLock> TakeLock(const std::filesystem::path& path, bool wait);

    std::size_t limit;
    std::map<std::pair<unsigned long, unsigned long>, std::weak_ptr<HeldLock>> held;  ///< by device and inode
};

}  // namespace Quillon
