// The pages of one or all tracks of the open document, on their way to a printer, a preview or a file.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "drawing/mod_PrintedPages.h"
#include "platform/PageTarget.h"

namespace Quillon {
struct SettingsStore;
}

namespace Quillon::Exchange {

/// What may stand in a corner of a printed page. Kept by its number.
enum class RunningField : std::int16_t { Nothing, Title, Artist, Album, Track, FileName, Date, Copyright, Page };
constexpr int RunningFieldCount = 9;

/// Header left, middle, right; footer left, middle, right.
constexpr int RunningPlaceCount = 6;
using RunningFields = std::array<RunningField, RunningPlaceCount>;
/// The header is for the pages that show none of the document's own. A document of one track does not name it.
constexpr RunningFields DefaultRunningFields = {RunningField::Title, RunningField::Nothing,   RunningField::Artist,
                                                RunningField::Track, RunningField::Copyright, RunningField::Page};

/// As the person chose them last; a damaged value is the default one.
RunningFields LoadRunningFields(const SettingsStore& store);
void SaveRunningFields(SettingsStore& store, const RunningFields& fields);

struct PrintOptions {
    bool AllTracks = false;
    int Track = 0;  ///< when not all
    RunningFields Fields = DefaultRunningFields;
};

class PrintJob {
public:
    /// Raises "Subscript out of range" for a track that is not there.
    explicit PrintJob(const PrintOptions& options);

    int Pages() const { return static_cast<int>(places.size()); }
    /// Size of every page.
    static Sheet PageSheet();
    /// Which track's page it is; pages count from 0, here and below.
    int TrackOf(int page) const { return places.at(static_cast<std::size_t>(page)).Track; }
    /// True for the first page of a track.
    bool BeginsTrack(int page) const { return places.at(static_cast<std::size_t>(page)).Page == 0; }
    void Draw(Picture& picture, int page);
    /// Hands pages to a target in this order, tracks as chapters. `goOn` is asked before each sheet, with how many went
    /// before; false when it stopped the work.
    bool Print(PageTarget& target, const std::vector<int>& pages, const std::function<bool(int sheets)>& goOn = {});

private:
    struct Place {
        int Track;
        int Page;
    };
    std::string TextOf(RunningField field, int page) const;

    RunningFields fields;
    std::vector<Drawing::PrintedTrack> tracks;
    std::vector<std::size_t> ofTrack;  ///< into `tracks`, by page
    std::vector<Place> places;
};

/// The pages `first` to `last` as often as they are asked for: one set after the other, or `collated` false, each page
/// several times.
std::vector<int> PagesInOrder(int first, int last, int copies = 1, bool collated = true);

/// Writes pages as a drawn PDF, all or nothing; `page` is from 1, 0 for all of them. Raises as PrintJob does, also for
/// a page that is not there, and what the file system raises.
void ExportEngravedPdf(const std::filesystem::path& path, const PrintOptions& options, int page, PageFile& file);

}  // namespace Quillon::Exchange
