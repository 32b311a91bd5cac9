// A folder of small files, one a thing, whose names are the things' names.
//
// Names come from the folder, which is cheap to look at and so is looked at again each time: what another program
// changed is seen. A file is read when it is asked for, once as long as it stays as it is.
#pragma once

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"

namespace Quillon::Library {

/// Writes default files into a folder of the base folder: all at once where it is missing, else one by one over those
/// of the same names, so that a person's own stay.
void WriteDefaults(const std::filesystem::path& folder, const std::vector<NamedBytes>& files);

/// A text as searches compare it: in capital letters, also those beyond ASCII that the system's files can hold.
std::string Searchable(std::string_view utf8);

template <class Rec>
class FolderLibrary {
public:
    using Reader = std::optional<Rec> (*)(std::string_view bytes);

    /// `folder` stands below the base folder.
    FolderLibrary(std::filesystem::path below, Reader reader) : folder(std::move(below)), read(reader) {}

    std::filesystem::path Folder() const { return Services.BaseFolder / folder; }
    std::filesystem::path FileOf(const std::string& name) const { return Folder() / name; }

    /// Looks at the folder; true when a name came or went, or a file changed. Names that begin with a "." are what file
    /// managers and editors leave there.
    bool Refresh() {
        auto now = Services.Files->StampsIn(Folder());
        std::erase_if(now, [](const FileStamp& stamp) { return stamp.Name.starts_with('.'); });
        if (now == stamps) return false;
        stamps = std::move(now);
        names.clear();
        for (const FileStamp& stamp : stamps) names.push_back(stamp.Name);
        return true;
    }
    /// As of the last Refresh, in file name order.
    const std::vector<std::string>& Names() const { return names; }

    /// Nothing for a file that is not there, or is none of this library.
    const Rec* Find(const std::string& name) {
        const auto at = std::ranges::lower_bound(stamps, name, {}, &FileStamp::Name);
        if (at == stamps.end() || at->Name != name) return nullptr;
        const auto [known, isNew] = kept.try_emplace(name);
        if (isNew || known->second.Stamp != *at) known->second = {*at, ReadFile(name)};
        return known->second.What ? &*known->second.What : nullptr;
    }
    /// How many of the names are of files that can't be read as this library's. Reads them all.
    int Unreadable() {
        int count = 0;
        for (const std::string& name : names) count += Find(name) ? 0 : 1;
        return count;
    }
    /// Which they are, of those that were read so far.
    std::vector<std::string> KnownUnreadable() const {
        std::vector<std::string> found;
        for (const FileStamp& stamp : stamps) {
            const auto known = kept.find(stamp.Name);
            const bool isBad = known != kept.end() && known->second.Stamp == stamp && !known->second.What;
            if (isBad) found.push_back(stamp.Name);
        }
        return found;
    }

private:
    struct Kept {
        FileStamp Stamp;
        std::optional<Rec> What;
    };

    std::optional<Rec> ReadFile(const std::string& name) const {
        try {
            return read(Services.Files->Read(FileOf(name)));
        } catch (const RunTimeError&) {
            return std::nullopt;
        }
    }

    std::filesystem::path folder;
    Reader read;
    std::vector<FileStamp> stamps;
    std::vector<std::string> names;
    std::unordered_map<std::string, Kept> kept;
};

}  // namespace Quillon::Library
