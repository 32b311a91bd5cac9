// The frame of the dialogs for the note, or the strum, under the cursor: fields beside a little paper that follows
// them, and buttons to listen and to remove the effect.
#pragma once

#include "forms/ModelDialog.h"

class QFormLayout;
class QPushButton;
class QVBoxLayout;

namespace Quillon::Shell {
struct StrumModel;
}

namespace Quillon::Forms {

class picPreview;

class StrumDialog : public ModelDialog {
    Q_OBJECT

public:
    void accept() override;

protected:
    StrumDialog(Shell::StrumModel& edited, QWidget* parent, std::string_view titleKey, std::string placeSection);
    ~StrumDialog() override;

    /// The fields beside the preview.
    QFormLayout* Fields() const { return fields; }
    /// A row of the whole width under both.
    void AddBelow(QWidget* widget, int stretch = 0);
    /// `stored` runs when a field was changed, its value in the model already.
    void OnChange(std::function<void()> stored) { changed = std::move(stored); }
    /// Adds the buttons; without a text key there is none of its kind.
    void FinishStrum(std::string_view removeKey, bool listen = true);
    /// Takes the fields into the model and shows what comes of it.
    void Refresh();
    /// Fields may be set without a refresh of their own.
    void Settle(const std::function<void()>& set);

private:
    void FollowFields();

    Shell::StrumModel& strumModel;
    QVBoxLayout* rows;
    QFormLayout* fields;
    picPreview* preview;
    QPushButton* cmdListen = nullptr;
    std::function<void()> changed;
    bool settling = false;
};

}  // namespace Quillon::Forms
