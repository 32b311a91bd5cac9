// A little paper in a dialog: what the change would look like on the page.
#pragma once

#include <QWidget>

#include "drawing/mod_Excerpt.h"

namespace Quillon::Forms {

class picPreview : public QWidget {
    Q_OBJECT

public:
    explicit picPreview(QWidget* parent = nullptr);

    /// Paints an excerpt from now on.
    void ShowExcerpt(Drawing::Excerpt shown);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing::Excerpt excerpt;
};

}  // namespace Quillon::Forms
