#include "forms/picDocumentAccess.h"

#include <QAccessibleWidget>

#include "core/mod_Language.h"
#include "forms/picDocument.h"
#include "shell/CursorText.h"

namespace Quillon::Forms {

namespace {

class ScoreAccess : public QAccessibleWidget {
public:
    explicit ScoreAccess(QWidget* score) : QAccessibleWidget(score, QAccessible::Document) {}

    QString text(QAccessible::Text which) const override {
        switch (which) {
            case QAccessible::Name:
                return QString::fromStdString(Core::LanguageText("str_Score"));
            case QAccessible::Description:
            case QAccessible::Value:
                return QString::fromStdString(Shell::CursorText());
            default:
                return QAccessibleWidget::text(which);
        }
    }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object) {
    auto* const score = qobject_cast<picDocument*>(object);
    return score ? new ScoreAccess(score) : nullptr;
}

}  // namespace

void InstallScoreAccess() { QAccessible::installFactory(MakeAccess); }

}  // namespace Quillon::Forms
