#include "platform/portable/PosixFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <system_error>
#include <utility>

#include "platform/RunTimeError.h"

namespace Quillon {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view NewFilePrefix = ".quillon-";
constexpr std::string_view NewFileSuffix = ".new";
constexpr std::time_t LeftoverAge = 3600;  ///< seconds; no save takes that long
constexpr int MostLinks = 40;

int NumberOf(int code) {
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return 53;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return 61;
        case EACCES:
        case EPERM:
        case EROFS:
            return 70;
        default:
            return 75;
    }
}

[[noreturn]] void Raise(const fs::path& path, int code) {
    throw RunTimeError(NumberOf(code), path.string() + ": " + std::generic_category().message(code));
}

/// Owns an open file; closes it unseen unless Close was called.
class File : public FileWriter {
public:
    File(const fs::path& of, int flags, mode_t mode = 0) : path(of) {
        do {
            handle = ::open(of.c_str(), flags | O_CLOEXEC, mode);
        } while (handle < 0 && errno == EINTR);
        if (handle < 0) Raise(path, errno);
    }
    ~File() override {
        if (handle >= 0) ::close(handle);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int Handle() const { return handle; }
    int Release() { return std::exchange(handle, -1); }
    struct stat Status() const {
        struct stat status {};
        if (::fstat(handle, &status) != 0) Raise(path, errno);
        return status;
    }
    void Append(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::write(handle, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) Raise(path, errno);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void Overwrite(std::uint64_t position, std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = ::pwrite(handle, bytes.data(), bytes.size(), static_cast<off_t>(position));
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) Raise(path, errno);
            bytes.remove_prefix(static_cast<std::size_t>(written));
            position += static_cast<std::size_t>(written);
        }
    }
    void Flush() {
        if (::fsync(handle) != 0 && errno != EINVAL && errno != ENOTSUP) Raise(path, errno);
    }
    void Close() {
        if (::close(Release()) != 0 && errno != EINTR) Raise(path, errno);
    }

private:
    fs::path path;
    int handle = -1;
};

/// Where a write lands: symbolic links followed to their end, which need not exist.
fs::path FollowLinks(fs::path path) {
    std::error_code none;
    for (int link = 0; fs::is_symlink(fs::symlink_status(path, none)); ++link) {
        if (link == MostLinks) Raise(path, ELOOP);
        const fs::path target = fs::read_symlink(path, none);
        if (none) Raise(path, none.value());
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

fs::path FolderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

/// A save that was killed leaves its new file behind; a later one in the same folder clears it away.
void RemoveLeftovers(const fs::path& folder) {
    std::error_code none;
    for (fs::directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(NewFilePrefix) || !name.ends_with(NewFileSuffix)) continue;
        struct stat status {};
        if (::lstat(entry->path().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
        if (std::time(nullptr) - status.st_mtime > LeftoverAge) ::unlink(entry->path().c_str());
    }
}

/// A fresh file beside the target, removed unless it was put in the target's place.
class NewFile {
public:
    NewFile(const fs::path& folder, mode_t mode) {
        static unsigned count = 0;
        for (;;) {
            path = folder / (std::string(NewFilePrefix) + std::to_string(::getpid()) + "-" + std::to_string(count++) +
                             std::string(NewFileSuffix));
            try {
                file = std::make_unique<File>(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
                return;
            } catch (const RunTimeError&) {
                std::error_code none;
                if (!fs::exists(fs::symlink_status(path, none))) throw;
            }
        }
    }
    ~NewFile() {
        if (!placed) ::unlink(path.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    File& operator*() { return *file; }
    File* operator->() { return file.get(); }
    void PutInPlaceOf(const fs::path& target) {
        if (::rename(path.c_str(), target.c_str()) != 0) Raise(target, errno);
        placed = true;
    }

private:
    fs::path path;
    std::unique_ptr<File> file;
    bool placed = false;
};

/// Deletes the plain files of a folder, and the folder when nothing else is in it; true when it is gone.
bool RemoveFolder(const fs::path& folder) {
    std::error_code none;
    for (fs::directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
        std::error_code unreadable;
        if (!entry->is_directory(unreadable)) ::unlink(entry->path().c_str());
    }
    return ::rmdir(folder.c_str()) == 0 || errno == ENOENT;
}

/// What is left of a folder keeps a name beside it that is free.
void SetAside(const fs::path& rest, const fs::path& folder) {
    constexpr int Tries = 1000;
    for (int number = 1; number <= Tries; ++number) {
        const std::string old = folder.string() + (number == 1 ? "" : " " + std::to_string(number)) + ".old";
        const int moved = ::renameat2(AT_FDCWD, rest.c_str(), AT_FDCWD, old.c_str(), RENAME_NOREPLACE);
        if (moved == 0 || errno != EEXIST) return;
    }
}

}  // namespace

PosixFiles::PosixFiles(std::size_t readLimit) : limit(readLimit) { std::signal(SIGXFSZ, SIG_IGN); }

bool PosixFiles::Exists(const fs::path& path) const {
    std::error_code none;
    return fs::exists(path, none);
}

std::string PosixFiles::Read(const fs::path& path) const {
    File file(path, O_RDONLY);
    const struct stat status = file.Status();
    if (S_ISDIR(status.st_mode)) Raise(path, EISDIR);
    std::string bytes;
    if (S_ISREG(status.st_mode) && status.st_size > 0) {
        bytes.reserve(std::min(limit, static_cast<std::size_t>(status.st_size)) + 1);
    }
    std::array<char, 65536> part{};
    for (;;) {
        const ssize_t count = ::read(file.Handle(), part.data(), part.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) Raise(path, errno);
        if (count == 0) return bytes;
        if (bytes.size() + static_cast<std::size_t>(count) > limit) {
            throw RunTimeError(7, path.string() + ": the file is larger than " + std::to_string(limit >> 20) + " MiB");
        }
        bytes.append(part.data(), static_cast<std::size_t>(count));
    }
}

void PosixFiles::Replace(const fs::path& path, std::string_view bytes) {
    ReplaceWith(path, [bytes](FileWriter& file) {
        file.Append(bytes);
        return true;
    });
}

bool PosixFiles::ReplaceWith(const fs::path& path, const std::function<bool(FileWriter&)>& write) {
    const fs::path target = FollowLinks(path);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) Raise(path, EISDIR);
    if (exists && !S_ISREG(old.st_mode)) {  // a device or a pipe stays what it is
        File file(path, O_WRONLY);
        const bool whole = write(file);
        file.Close();
        return whole;
    }
    // Renaming asks only for the folder's rights; a file marked as not to be written must stay.
    if (exists && ::access(target.c_str(), W_OK) != 0) Raise(path, errno);

    const fs::path folder = FolderOf(target);
    try {
        NewFile made(folder, exists ? old.st_mode & 0777 : 0666);
        if (exists && ::fchmod(made->Handle(), old.st_mode & 07777) != 0) Raise(path, errno);
        if (!write(*made)) return false;
        made->Flush();
        made->Close();
        made.PutInPlaceOf(target);
    } catch (const RunTimeError& error) {  // the person knows the target, not the new file's name
        const std::string text = error.Description();
        const std::size_t name = text.rfind(std::string(NewFileSuffix) + ": ");
        if (name == std::string::npos) throw;
        throw RunTimeError(error.Number, path.string() + text.substr(name + NewFileSuffix.size()));
    }
    File(folder, O_RDONLY | O_DIRECTORY).Flush();
    RemoveLeftovers(folder);
    return true;
}

void PosixFiles::WriteScratch(const fs::path& path, std::string_view bytes) {
    File file(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    file.Append(bytes);
    file.Close();
}

void PosixFiles::Delete(const fs::path& path) {
    if (::unlink(path.c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) Raise(path, errno);
}

void PosixFiles::MakeFolder(const fs::path& path) {
    std::error_code problem;
    if (fs::is_directory(path, problem)) return;
    if (fs::exists(path, problem)) Raise(path, EEXIST);
    fs::create_directories(path, problem);
    if (problem) Raise(path, problem.value());
}

std::vector<std::string> PosixFiles::FilesIn(const fs::path& folder) const {
    std::vector<std::string> names;
    std::error_code none;
    for (fs::directory_iterator entry(folder, none), end; !none && entry != end; entry.increment(none)) {
        std::error_code unreadable;
        const std::string name = entry->path().filename().string();
        const bool unfinished = name.starts_with(NewFilePrefix) && name.ends_with(NewFileSuffix);
        if (!unfinished && entry->is_regular_file(unreadable)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<FileStamp> PosixFiles::StampsIn(const fs::path& folder) const {
    std::vector<FileStamp> stamps;
    for (const std::string& name : FilesIn(folder)) {
        struct stat status {};
        if (::stat((folder / name).c_str(), &status) != 0) continue;  // it went meanwhile
        constexpr std::int64_t SecondInNanoseconds = 1'000'000'000;
        stamps.push_back({name, status.st_mtim.tv_sec * SecondInNanoseconds + status.st_mtim.tv_nsec,
                          static_cast<std::uint64_t>(status.st_size)});
    }
    return stamps;
}

void PosixFiles::ReplaceFolder(const fs::path& path, const std::vector<NamedBytes>& files) {
    const fs::path folder = FollowLinks(path);
    const fs::path made = folder.string() + std::string(NewFileSuffix);
    if (!RemoveFolder(made)) SetAside(made, folder);  // that a crash left
    MakeFolder(made);
    try {
        for (const NamedBytes& each : files) {
            File file(made / each.Name, O_WRONLY | O_CREAT | O_TRUNC, 0666);
            file.Append(each.Bytes);
            file.Close();
        }
        // One flush for all of them: a thousand files one by one take many seconds.
        File whole(made, O_RDONLY | O_DIRECTORY);
        if (::syncfs(whole.Handle()) != 0) Raise(path, errno);
        const bool exists = ::access(folder.c_str(), F_OK) == 0;
        if (::renameat2(AT_FDCWD, made.c_str(), AT_FDCWD, folder.c_str(), exists ? RENAME_EXCHANGE : 0) != 0) {
            Raise(path, errno);
        }
    } catch (const RunTimeError&) {
        RemoveFolder(made);
        throw;
    }
    File(FolderOf(folder), O_RDONLY | O_DIRECTORY).Flush();
    if (!RemoveFolder(made)) SetAside(made, folder);
}

// The lock belongs to the open file, so a second one in this program would wait for the first for ever: they share.
struct PosixFiles::HeldLock {
    explicit HeldLock(int of) : handle(of) {}
    ~HeldLock() { ::close(handle); }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;
    int handle;
};

struct PosixFiles::NestedLock : FileLock {
    explicit NestedLock(std::shared_ptr<HeldLock> of) : lock(std::move(of)) {}
    std::shared_ptr<HeldLock> lock;
};

std::unique_ptr<FileLock> PosixFiles::TakeLock(const fs::path& path, bool wait) {
    for (;;) {
        File file(path, O_RDWR | O_CREAT, 0666);
        const struct stat status = file.Status();
        std::weak_ptr<HeldLock>& known = held[{status.st_dev, status.st_ino}];
        if (auto lock = known.lock()) return std::make_unique<NestedLock>(std::move(lock));

        while (::flock(file.Handle(), wait ? LOCK_EX : LOCK_EX | LOCK_NB) != 0) {
            if (errno == EWOULDBLOCK) return nullptr;
            if (errno != EINTR) Raise(path, errno);
        }
        // Its last holder may have deleted the file while we waited; a lock on a nameless file keeps nobody out.
        struct stat now {};
        if (::stat(path.c_str(), &now) != 0 || now.st_ino != status.st_ino || now.st_dev != status.st_dev) continue;
        auto lock = std::make_shared<HeldLock>(file.Release());
        known = lock;
        return std::make_unique<NestedLock>(std::move(lock));
    }
}

std::unique_ptr<FileLock> PosixFiles::Lock(const fs::path& path) { return TakeLock(path, true); }

std::unique_ptr<FileLock> PosixFiles::TryLock(const fs::path& path) { return TakeLock(path, false); }

}  // namespace Quillon
