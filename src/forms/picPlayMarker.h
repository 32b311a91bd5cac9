// The marker that walks over the paper with the music: a light strip of its own, so that moving it paints no page.
#pragma once

#include <QWidget>
#include <optional>

namespace Quillon::Shell {
struct MarkerPlace;
}

namespace Quillon::Forms {

class picPlayMarker : public QWidget {
    Q_OBJECT

public:
    /// Hidden at first; `paper` is the widget whose pixels it stands in.
    explicit picPlayMarker(QWidget* paper);
    /// Moves to a place given in document pixels, or hides.
    void Show(const std::optional<Shell::MarkerPlace>& place, double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double scale = 1;
};

}  // namespace Quillon::Forms
