// The lyrics of a track: five lines of running text, the syllable under each strum, and what the rows show.
#pragma once

#include <array>

#include "core/mod_TabFileStructure.h"
#include "forms/ModelDialog.h"

class QPlainTextEdit;
class QPushButton;
class QTableView;

namespace Quillon::Shell {
struct LyricsModel;
}

namespace Quillon::Forms {

class SyllableTable;

class ntne_frmLyrics : public ModelDialog {
    Q_OBJECT

public:
    ntne_frmLyrics(Shell::LyricsModel& model, QWidget* parent);

protected:
    QString ComplaintText(std::string_view textKey) const override;

private:
    void AddTextPage();
    void AddShownPage();
    void ShowLine(int line);
    void ShowAll();
    void Move(int by);
    void ShowRest();

    Shell::LyricsModel& model;
    std::array<QPlainTextEdit*, Core::LyricLines> texts{};
    SyllableTable* table = nullptr;
    QTableView* tblSyllables = nullptr;
    QTabWidget* lines = nullptr;
    bool filling = false;
};

}  // namespace Quillon::Forms
