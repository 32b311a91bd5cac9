#include "forms/frmFileProperties.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>

#include "forms/Text.h"
#include "shell/DialogModels.h"

namespace Quillon::Forms {

namespace {

/// Shows no more decimals than there are.
class TempoBox : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;
    QString textFromValue(double value) const override { return locale().toString(value, 'g', 6); }
};

}  // namespace

frmFileProperties::frmFileProperties(Shell::FilePropertiesModel& model, QWidget* parent)
    : ModelDialog(parent, "str_FilePropertiesTitle", "FilePropertiesWindowDetails") {
    setObjectName("frmFileProperties");
    Core::TabFile& file = model.File;

    QFormLayout* page = AddPage("str_PageSong");
    AddText(page, "txtTitle", "str_SongTitle", file.Title);
    AddText(page, "txtSubTitle", "str_SongSubTitle", file.SubTitle);
    AddText(page, "txtArtist", "str_SongArtist", file.Artist);
    AddText(page, "txtAlbum", "str_SongAlbum", file.Album);
    AddText(page, "txtAuthor", "str_SongAuthor", file.Author);
    AddText(page, "txtTabbedBy", "str_SongTabbedBy", file.TabbedBy);
    AddText(page, "txtCopyright", "str_SongCopyright", file.Copyright);

    page = AddPage("str_PageRemarks");
    AddLines(page, "txtInstructions", "str_SongInstructions", file.Instructions);
    AddLines(page, "txtNotice", "str_SongNotice", file.Notice);
    AddLines(page, "txtNotes", "str_SongNotes", file.Notes);

    page = AddPage("str_PageMusic");
    auto* const tempo = new TempoBox(this);
    tempo->setObjectName("vbTempo");
    tempo->setRange(0.01, 1000);
    tempo->setDecimals(2);
    tempo->setValue(static_cast<double>(file.Tempo));
    tempo->setSuffix(" " + Text("str_UnitTempo"));
    page->addRow(Text("str_SongTempo"), tempo);
    OnStore([tempo, &file, shown = tempo->value()] {
        if (tempo->value() != shown) file.Tempo = static_cast<float>(tempo->value());
    });
    AddCheck(page, "chkShuffle", "str_SongShuffle", file.Shuffle);
    AddNumber(page, "vbRowSpacing", "str_SongRowSpacing", file.RowSpacing, 0, 500, "str_UnitPixels");
    AddCheck(page, "chkAlwaysCharts", "str_SongAlwaysCharts", file.AlwaysCharts);
    AddCheck(page, "chkShowHeader", "str_SongShowHeader", file.ShowHeader);
    QCheckBox* const locked = AddCheck(page, "chkPassword", "str_SongHasPassword", file.HasPassword);
    QLineEdit* const password = AddText(page, "txtPassword", "str_SongPassword", file.Password);
    password->setEchoMode(QLineEdit::PasswordEchoOnEdit);
    password->setEnabled(locked->isChecked());
    connect(locked, &QCheckBox::toggled, password, &QWidget::setEnabled);

    page = AddPage("str_PageFonts");
    AddFont(page, "fntTitle", "str_FontOfTitle", model.TitleFont(),
            [&model](const Font& font) { model.SetTitleFont(font); });
    AddColor(page, "colTitle", "str_ColorOfTitle", file.FontColor);
    AddFont(page, "fntNotes", "str_FontOfNotes", model.NoteFont(),
            [&model](const Font& font) { model.SetNoteFont(font); });
    AddColor(page, "colNotes", "str_ColorOfNotes", file.NoteFontColor);
    AddColor(page, "colLines", "str_ColorOfLines", file.LineColor);
    AddCheck(page, "chkDefaults", "str_UseAsDefaults", model.UseAsDefaults);

    Finish([&model] { return model.Validate(); });
}

}  // namespace Quillon::Forms
