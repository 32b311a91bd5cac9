#include "exchange/ImportReport.h"

#include <utility>

#include "core/mod_Language.h"

namespace Quillon::Exchange {

using Core::LanguageText;

namespace {

std::string PlaceOf(const ImportRemark& remark) {
    std::string place;
    const auto add = [&](std::string_view key, int number) {
        place += (place.empty() ? "" : ", ") + LanguageText(key, {std::to_string(number)});
    };
    if (remark.Track >= 0) add("str_ReportTrack", remark.Track + 1);
    if (remark.Bar >= 0) add("str_ReportBar", remark.Bar + 1);
    if (remark.Line > 0) add("str_ReportLine", remark.Line);
    return place.empty() ? place : place + ": ";
}

}  // namespace

void ImportReport::Add(ImportRemark remark) {
    (remark.Fate == ImportFate::Moved ? NotesMoved : NotesLost) += remark.Notes;
    Remarks.push_back(std::move(remark));
}

std::string ReportText(const ImportReport& report) {
    std::string text;
    const auto count = [&](std::string_view key, int number) {
        text += LanguageText(key, {std::to_string(number)}) + "\n";
    };
    if (report.Systems > 0) count("str_ReportSystems", report.Systems);
    count("str_ReportTracks", report.Tracks);
    count("str_ReportBars", report.Bars);
    count("str_ReportNotesFound", report.NotesFound);
    count("str_ReportNotesKept", report.NotesKept);
    count("str_ReportNotesMoved", report.NotesMoved);
    count("str_ReportNotesLost", report.NotesLost);
    if (!report.Remarks.empty()) text += "\n";
    return text + RemarksText(report);
}

std::string RemarksText(const ImportReport& report) {
    std::string text;
    for (const ImportRemark& remark : report.Remarks) {
        text += PlaceOf(remark) + LanguageText(remark.Key, remark.Fields) + "\n";
    }
    return text;
}

}  // namespace Quillon::Exchange
