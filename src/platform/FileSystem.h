// Files as the system needs them: read whole, replaced whole.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Quillon {

/// Held while the scratch files of a base folder are in use; released when destroyed.
struct FileLock {
    virtual ~FileLock() = default;
};

/// A new file on its way; raises as FileSystem does.
struct FileWriter {
    virtual ~FileWriter() = default;
    virtual void Append(std::string_view bytes) = 0;
    /// Writes over bytes that were appended, as for a length that only the end tells.
    virtual void Overwrite(std::uint64_t position, std::string_view bytes) = 0;
};

/// A plain file of a folder, as much as tells whether it changed.
struct FileStamp {
    std::string Name;
    std::int64_t Changed = 0;  ///< when it was last written, in ticks of the file system's clock
    std::uint64_t Size = 0;    ///< bytes
    bool operator==(const FileStamp&) const = default;
};

struct NamedBytes {
    std::string Name;
    std::string Bytes;
};

/// Every operation raises RunTimeError with a description that names the file and the cause:
/// 53 not found, 61 disk full, 70 permission denied, 75 path or file access error, 7 file too large to read.
struct FileSystem {
    virtual ~FileSystem() = default;
    virtual bool Exists(const std::filesystem::path& path) const = 0;
    virtual std::string Read(const std::filesystem::path& path) const = 0;
    /// Writes a new file in the target's folder, flushes it, renames it over the target and flushes the folder:
    /// after a crash at any moment the whole old or the whole new file is there. Symbolic links are followed and
    /// the access rights of an existing file are kept.
    virtual void Replace(const std::filesystem::path& path, std::string_view bytes) = 0;
    /// As Replace, for what is too large to hold in memory: `write` appends it in parts. When it gives false or raises,
    /// the target stays as it was and nothing else is left; false then.
    virtual bool ReplaceWith(const std::filesystem::path& path, const std::function<bool(FileWriter&)>& write) = 0;
    /// Writes a scratch file: whole, but without the flushing that makes Replace last through a crash.
    virtual void WriteScratch(const std::filesystem::path& path, std::string_view bytes) { Replace(path, bytes); }
    /// Deletes a file; a missing one is no error.
    virtual void Delete(const std::filesystem::path& path) = 0;
    /// Makes a folder with its parents; an existing one is no error.
    virtual void MakeFolder(const std::filesystem::path& path) = 0;
    /// Names of the plain files in a folder, sorted; empty when the folder is missing.
    virtual std::vector<std::string> FilesIn(const std::filesystem::path& folder) const = 0;
    /// The same with the time and size of each, sorted by name.
    virtual std::vector<FileStamp> StampsIn(const std::filesystem::path& folder) const = 0;
    /// Makes a folder of these files, or puts it in the place of the one there, whose plain files go: whole or not at
    /// all, also through a crash. An old folder with folders in it stays beside it under a name that ends in ".old".
    virtual void ReplaceFolder(const std::filesystem::path& folder, const std::vector<NamedBytes>& files) = 0;
    /// Waits for, and takes, an exclusive lock on a lock file. Several locks of one program on one file nest.
    virtual std::unique_ptr<FileLock> Lock(const std::filesystem::path& path) = 0;
    /// As Lock, but gives nothing at once when another program holds it.
    virtual std::unique_ptr<FileLock> TryLock(const std::filesystem::path& path) = 0;
};

}  // namespace Quillon
