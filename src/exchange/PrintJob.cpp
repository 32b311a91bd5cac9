#include "exchange/PrintJob.h"

#include <charconv>

#include "core/mod_Language.h"
#include "core/mod_TabFileStructure.h"
#include "exchange/FileDate.h"
#include "platform/FileSystem.h"
#include "platform/RunTimeError.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"

namespace Quillon::Exchange {

using Core::Open;

namespace {

constexpr const char* Section = "Print";
constexpr std::array<const char*, RunningPlaceCount> Keys = {"HeaderLeft", "HeaderCenter", "HeaderRight",
                                                             "FooterLeft", "FooterCenter", "FooterRight"};

std::string Today() {
    const std::string date = FileDate();
    return date.substr(0, 4) + "-" + date.substr(4, 2) + "-" + date.substr(6, 2);
}

}  // namespace

RunningFields LoadRunningFields(const SettingsStore& store) {
    RunningFields fields = DefaultRunningFields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto text = store.Find(Section, Keys[i]);
        int value = -1;
        if (text) std::from_chars(text->data(), text->data() + text->size(), value);
        if (value >= 0 && value < RunningFieldCount) fields[i] = static_cast<RunningField>(value);
    }
    return fields;
}

void SaveRunningFields(SettingsStore& store, const RunningFields& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        store.Save(Section, Keys[i], std::to_string(static_cast<int>(fields[i])));
    }
}

PrintJob::PrintJob(const PrintOptions& options) : fields(options.Fields) {
    const int last = Open.TabFile.Tracks.UpperBound();
    if (!options.AllTracks && (options.Track < 0 || options.Track > last)) RaiseSubscriptOutOfRange();
    const int from = options.AllTracks ? 0 : options.Track;
    const int to = options.AllTracks ? last : options.Track;
    for (int track = from; track <= to; ++track) {
        tracks.emplace_back(track);
        for (int page = 0; page < tracks.back().Pages(); ++page) {
            places.push_back({track, page});
            ofTrack.push_back(tracks.size() - 1);
        }
    }
}

Sheet PrintJob::PageSheet() {
    const Drawing::PaperSize paper = Drawing::PaperMillimetres(Drawing::Page);
    return {static_cast<double>(Drawing::Page.PageWidth), static_cast<double>(Drawing::Page.PageHeight), paper.Width,
            paper.Height};
}

std::string PrintJob::TextOf(RunningField field, int page) const {
    const Core::TabFile& file = Open.TabFile;
    switch (field) {
        case RunningField::Nothing:
            return "";
        case RunningField::Title:
            return file.Title;
        case RunningField::Artist:
            return file.Artist;
        case RunningField::Album:
            return file.Album;
        case RunningField::Track:
            return file.Tracks.Count() > 1 ? file.Tracks[TrackOf(page)].Name : "";
        case RunningField::FileName:
            return std::filesystem::path(Open.FileName).filename().string();
        case RunningField::Date:
            return Today();
        case RunningField::Copyright:
            return file.Copyright;
        case RunningField::Page:
            return Core::LanguageText("str_PageNumber", {std::to_string(page + 1), std::to_string(Pages())});
    }
    return "";
}

void PrintJob::Draw(Picture& picture, int page) {
    const Place& place = places.at(static_cast<std::size_t>(page));
    Drawing::PrintedTrack& track = tracks[ofTrack[static_cast<std::size_t>(page)]];
    const auto line = [&](std::size_t first) {
        return Drawing::RunningLine{TextOf(fields[first], page), TextOf(fields[first + 1], page),
                                    TextOf(fields[first + 2], page)};
    };
    const Drawing::RunningTexts texts{line(0), line(3)};
    track.Draw(picture, place.Page, &texts);
}

bool PrintJob::Print(PageTarget& target, const std::vector<int>& pages, const std::function<bool(int)>& goOn) {
    int sheets = 0;
    for (int before = -1; const int page : pages) {
        if (goOn && !goOn(sheets++)) return false;
        const bool begins = before < 0 || page < before || TrackOf(page) != TrackOf(before);
        if (begins) target.BeginChapter(Open.TabFile.Tracks[TrackOf(page)].Name);
        Draw(target.BeginPage(PageSheet()), page);
        before = page;
    }
    return true;
}

std::vector<int> PagesInOrder(int first, int last, int copies, bool collated) {
    std::vector<int> pages;
    if (collated) {
        for (int copy = 0; copy < copies; ++copy) {
            for (int page = first; page <= last; ++page) pages.push_back(page);
        }
    } else {
        for (int page = first; page <= last; ++page) pages.insert(pages.end(), static_cast<std::size_t>(copies), page);
    }
    return pages;
}

void ExportEngravedPdf(const std::filesystem::path& path, const PrintOptions& options, int page, PageFile& file) {
    PrintJob job(options);
    if (page < 0 || page > job.Pages()) RaiseSubscriptOutOfRange();
    job.Print(file, page == 0 ? PagesInOrder(0, job.Pages() - 1) : std::vector{page - 1});
    const Core::TabFile& document = Open.TabFile;
    PageFileInfo info;
    info.Title = document.Title;
    info.Author = document.Artist.empty() ? document.Author : document.Artist;
    info.Subject = document.Album;
    info.Creator = "Quillon 4";
    info.CreationDate = FileDate();
    Services.Files->Replace(path, file.Finish(info));
}

}  // namespace Quillon::Exchange
