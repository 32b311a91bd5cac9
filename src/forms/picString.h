// A string of the tuner: a click, or Space, plays it alone.
#pragma once

#include <QAbstractButton>

#include "library/TunerView.h"

namespace Quillon::Forms {

class picString : public QAbstractButton {
    Q_OBJECT

public:
    picString(int string, QWidget* parent);
    void Show(bool checked, bool sounding);
    const Library::TunerStringLook& Look() const { return look; }
    QSize sizeHint() const override { return {140, 26}; }
    QSize minimumSizeHint() const override { return {60, 16}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Library::TunerStringLook look;
};

}  // namespace Quillon::Forms
