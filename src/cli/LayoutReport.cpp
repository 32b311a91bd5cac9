#include "cli/LayoutReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/CursorReport.h"
#include "core/mod_Common.h"
#include "core/mod_TabFileStructure.h"
#include "drawing/mod_HighLevelDrawing.h"
#include "drawing/mod_NotationDrawing.h"
#include "drawing/mod_PageLayout.h"
#include "drawing/mod_TabDrawing.h"
#include "editing/mod_Cursor.h"
#include "platform/headless/NoPicture.h"

namespace Quillon::Cli {

using Core::Open;
using Json = nlohmann::ordered_json;

namespace {

void Draw() {
    NoPicture picture;
    Drawing::DrawDocument(picture);
}

Json TextsOf(const Core::Track& track, const Core::Strum& strum, int barY) {
    Json texts = Json::object();
    if (!track.ShowTab) return texts;
    for (int s = 0; s < std::clamp<int>(track.Strings, 0, Core::StringCount); ++s) {
        const Core::Note& note = strum.Notes[s];
        if (note.Fret.empty()) continue;
        const std::string text = track.IsDrum ? Drawing::PercussionText(track, s, note) : Drawing::FretText(note);
        texts[std::to_string(s)] = {{"Text", text}, {"Y", barY + Drawing::TabOffset(track) + 10 * s}};
    }
    return texts;
}

Json HeadsOf(const Core::Track& track, const Core::Strum& strum, bool useFlats) {
    Json heads = Json::object();
    for (const Drawing::Head& head : Drawing::StrumHeads(track, strum, useFlats)) {
        heads[std::to_string(head.String)] = {{"Y", head.Y}, {"DX", head.DX}};
    }
    return heads;
}

void AddDetail(Json& report, const Core::Track& track, int index) {
    const Core::Bar& bar = track.Bars[index];
    const Drawing::Label number = Drawing::BarNumberLabel(bar, index, bar.Place.BarX, bar.Place.BarY);
    report["BarNumber"] = {{"Text", number.Text}, {"X", number.X}, {"Y", number.Y}};
    Json texts = Json::array();
    for (const Core::Strum& strum : bar.Strums()) texts.push_back(TextsOf(track, strum, bar.Place.BarY));
    report["Texts"] = std::move(texts);
    if (!track.ShowTreble && !track.ShowBass) return;
    Json heads = Json::array();
    for (const Core::Strum& strum : bar.Strums()) {
        heads.push_back(HeadsOf(track, strum, Drawing::KeyUsesFlats(bar.Key)));
    }
    report["Heads"] = std::move(heads);
    Json groups = Json::array();
    for (const Drawing::BeamGroup& group : Drawing::BeamGroups(track, bar, Open.TabFile.BarInfos[index])) {
        groups.push_back(
            {{"First", group.First}, {"Last", group.Last}, {"StemUp", group.StemUp}, {"Drawn", group.Drawn}});
    }
    report["Groups"] = std::move(groups);
    Json tuplets = Json::array();
    for (const Drawing::TupletMark& mark : Drawing::Tuplets(bar)) {
        tuplets.push_back({{"First", mark.First}, {"Last", mark.Last}, {"Figure", mark.Figure}});
    }
    report["Tuplets"] = std::move(tuplets);
}

Json BarReport(const Core::Track& track, int index, bool detail) {
    const Core::BarPlace& place = track.Bars[index].Place;
    Json columns = Json::array();
    for (int s = 0; s < track.Bars[index].Strums().Count(); ++s) {
        columns.push_back(s < place.StrumX.Count() ? place.StrumX[s] : 0);  // 0 in a bar never placed
    }
    Json report = {{"Page", place.Page},
                   {"RowOnPage", place.RowOnPage},
                   {"BarX", place.BarX},
                   {"BarY", place.BarY},
                   {"BarWidth", place.BarWidth},
                   {"BarStep", place.BarStep},
                   {"ShowTimeSig", place.ShowTimeSig},
                   {"StrumX", columns}};
    if (detail) AddDetail(report, track, index);
    return report;
}

}  // namespace

std::string LayoutReport(const LayoutOptions& options) {
    if (options.Track < 0 || options.Track > Open.TabFile.Tracks.UpperBound()) RaiseSubscriptOutOfRange();
    if (options.Paper < 0 || options.Paper >= Drawing::PaperSizeCount) RaiseSubscriptOutOfRange();
    Open.CurTrack = Core::ToInt16(options.Track);
    Open.CurBar = Open.CurStrum = Open.CurString = Open.CurPitch = 0;
    Open.InputMode = Core::TabInput;
    Drawing::Page = {};
    Drawing::Page.PaperSizeIndex = Core::ToInt16(options.Paper);
    Drawing::Page.IsLandscape = options.Landscape;
    Drawing::Page.AutoPageStretch = options.Stretch;
    Drawing::View = {};
    Drawing::View.ScaleWidth = options.Width;
    Drawing::View.ScaleHeight = options.Height;
    Drawing::View.VScroll = options.VScroll;
    Drawing::View.HScroll = options.HScroll;
    Draw();
    Draw();
    const Core::Track& track = Open.TabFile.Tracks[options.Track];
    const int rowHeight = Drawing::RowHeight(track);
    Json bars = Json::array();
    for (int bar = 0; bar <= track.Bars.UpperBound(); ++bar) bars.push_back(BarReport(track, bar, options.Detail));
    Json report = {{"PageLeftX", Drawing::PageLeftX(Drawing::Page, Drawing::View)},
                   {"RowHeight", rowHeight},
                   {"RowsPerPage", Drawing::RowsPerPage(Drawing::Page, rowHeight, Open.TabFile.RowSpacing)},
                   {"NumberOfPages", Drawing::LastPage()},
                   {"Bars", std::move(bars)}};
    if (options.Click) {
        Editing::picDocument_MouseDown(options.Click->first, options.Click->second);
        Draw();
        report["Cursor"] = CursorReport();
    }
    return report.dump(2) + "\n";
}

}  // namespace Quillon::Cli
