// The pages of a print preview, beside and below each other on their ground.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <map>

namespace Quillon::Shell {
class PrintPreview;
}

namespace Quillon::Forms {

class picPages : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit picPages(Shell::PrintPreview& preview, QWidget* parent = nullptr);

    /// The pages, or their size, are other ones. Stays at the page that it stands at.
    void Refresh();
    void GoTo(int page);
    int CurrentPage() const;

Q_SIGNALS:
    /// Another zoom, by the wheel or the window's size, or another page.
    void Moved();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int x, int y) override;

private:
    const QImage& Painted(int page, QSize size);
    void SetRanges();

    Shell::PrintPreview& model;
    std::map<int, QImage> painted;  ///< of the pages in view, in the screen's pixels
    int wheelRest = 0;
    /// The page that was gone to, and the scroll value behind that: where several pages show, it need not stand at the
    /// top.
    static constexpr int Nowhere = -1;
    int asked = 0, askedAt = Nowhere;
};

}  // namespace Quillon::Forms
