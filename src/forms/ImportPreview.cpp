#include "forms/ImportPreview.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/mod_Language.h"
#include "core/mod_TabFileManipulation.h"
#include "forms/Text.h"
#include "forms/picPreview.h"

namespace Quillon::Forms {

namespace {

Drawing::ExcerptOf FirstNotes(const Core::TabFile& file, int firstTrack) {
    for (int track = firstTrack; track <= file.Tracks.UpperBound(); ++track) {
        for (int bar = 0; bar <= file.Tracks[track].Bars.UpperBound(); ++bar) {
            const auto& strums = file.Tracks[track].Bars[bar].Strums();
            if (std::any_of(strums.begin(), strums.end(), Core::HasNotes)) return {.Track = track, .Bar = bar};
        }
    }
    return {.Track = firstTrack};
}

QString CountsOf(const Exchange::ImportReport& report) {
    const auto count = [](std::string_view key, int number) {
        return ToQString(Core::LanguageText(key, {std::to_string(number)}));
    };
    QStringList lines;
    if (report.Systems > 0) lines << count("str_ReportSystems", report.Systems);
    lines << count("str_ReportTracks", report.Tracks) + "   " + count("str_ReportBars", report.Bars);
    lines << count("str_ReportNotesFound", report.NotesFound) + "   " + count("str_ReportNotesKept", report.NotesKept);
    lines << count("str_ReportNotesMoved", report.NotesMoved) + "   " + count("str_ReportNotesLost", report.NotesLost);
    return lines.join('\n');
}

}  // namespace

ImportPreview::ImportPreview(const char* name, std::string_view titleKey, std::string_view aboutKey, QWidget* parent)
    : QWidget(parent),
      button(new QRadioButton(Text(titleKey), this)),
      counts(new QLabel(this)),
      paper(new picPreview(this)) {
    button->setObjectName(name);
    button->setToolTip(Text(aboutKey));
    counts->setObjectName(QString(name) + "Counts");
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(button);
    auto* const about = new QLabel(Text(aboutKey), this);
    about->setWordWrap(true);
    rows->addWidget(about);
    rows->addWidget(paper, 1);
    rows->addWidget(counts);
}

void ImportPreview::Show(const Core::TabFile& file, const Exchange::ImportReport& report, int firstTrack,
                         const std::string& failure) {
    counts->setText(failure.empty() ? CountsOf(report) : ToQString(failure));
    paper->ShowExcerpt(Drawing::Excerpt(file, FirstNotes(file, firstTrack)));
}

}  // namespace Quillon::Forms
