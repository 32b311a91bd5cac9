// The percussion assistant: a small window beside the score with what each letter plays on the string at the cursor.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace Quillon::Forms {

class ntne_frmPercAssTAB : public QDialog {
    Q_OBJECT

public:
    explicit ntne_frmPercAssTAB(QWidget* parent);

    /// Shows the letters as they are now.
    void Fill();
    void SetTexts();
    /// Comes or goes; the place is kept.
    void ShowIf(bool shows);
    /// Its place goes to the store, when it is to be seen.
    void KeepItsPlace() const;

Q_SIGNALS:
    /// A letter was written, or the assignment edited: the score is what a person looks at next.
    void Done();

protected:
    void reject() override;
    void hideEvent(QHideEvent* event) override;

private:
    QLabel* lblString;
    QTreeWidget* lstLetters;
    QPushButton* cmdAssignment;
};

}  // namespace Quillon::Forms
