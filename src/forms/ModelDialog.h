// The frame of the dialogs that edit a model of the shell: pages of labelled fields, each bound to a value of the
// model, and OK and Cancel. Nothing is written before OK; then a complaint of the model keeps the dialog open.
#pragma once

#include <QDialog>
#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/mod_Excerpt.h"
#include "platform/Picture.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class QTabWidget;
class QVBoxLayout;

namespace Quillon::Forms {

class picPreview;

class ModelDialog : public QDialog {
    Q_OBJECT

public:
    /// Writes the fields to the model; closes unless the model complains.
    void accept() override;

protected:
    /// `section` keeps the dialog's place in the settings store.
    ModelDialog(QWidget* parent, std::string_view titleKey, std::string section);
    ~ModelDialog() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// A page of its own tab; the first call without a title makes a dialog of one page.
    QFormLayout* AddPage(std::string_view titleKey = {});
    /// Runs at OK, before the model is asked for complaints.
    void OnStore(std::function<void()> store) { stores.push_back(std::move(store)); }
    /// Runs what OnStore was given: the model holds what the fields show, whether it makes sense or not.
    void Store();
    /// Adds the buttons. `complaint` gives a text key, "" when all is well.
    void Finish(std::function<std::string_view()> complaint);

    // Fields. `name` is the widget's name; a value is written only when the person changed what was shown, so that a
    // value that the field can't show stays as it is.
    QLineEdit* AddText(QFormLayout* page, const char* name, std::string_view labelKey, std::string& value);
    QPlainTextEdit* AddLines(QFormLayout* page, const char* name, std::string_view labelKey, std::string& value);
    QCheckBox* AddCheck(QFormLayout* page, const char* name, std::string_view labelKey, bool& value);
    QSpinBox* AddNumber(QFormLayout* page, const char* name, std::string_view labelKey, std::int16_t& value, int least,
                        int most, std::string_view unitKey = {});
    /// The value is the entry's index plus `first`.
    QComboBox* AddChoice(QFormLayout* page, const char* name, std::string_view labelKey, std::int16_t& value,
                         const QStringList& entries, int first = 0);
    void AddFont(QFormLayout* page, const char* name, std::string_view labelKey, const Font& shown,
                 std::function<void(const Font&)> store);
    void AddColor(QFormLayout* page, const char* name, std::string_view labelKey, std::int32_t& value);
    /// A picture of what OK would do, from the moment that the fields are there: it follows every change of theirs.
    /// `paint` reads the model, which holds what the fields say then.
    template <class Model>
    void AddPreview(QFormLayout* page, Model& model, std::function<Drawing::Excerpt()> paint) {
        AddPreview(
            page, [&model, before = model] { model = before; }, std::move(paint));
    }
    QTabWidget* Tabs() const { return tabs; }
    /// Shows a complaint by its text key, or hides the one before for "".
    void ShowComplaint(std::string_view textKey);
    static void AddNote(QFormLayout* page, std::string_view textKey);
    /// The sentence of a complaint. A window whose model knows more than the key gives its own.
    virtual QString ComplaintText(std::string_view textKey) const;

private:
    void AddPreview(QFormLayout* page, std::function<void()> restore, std::function<Drawing::Excerpt()> paint);
    void ShowPreview();
    void FollowFields();
    void FocusFirstField();

    QVBoxLayout* body;
    QTabWidget* tabs = nullptr;
    QLabel* lblComplaint = nullptr;
    std::string section;
    std::vector<std::function<void()>> stores;
    std::function<std::string_view()> validate;
    picPreview* preview = nullptr;
    std::function<void()> restoreModel;  // to what it was before any field was stored
    std::function<Drawing::Excerpt()> paintPreview;
};

}  // namespace Quillon::Forms
