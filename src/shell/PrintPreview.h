// The pages of a print job as the preview shows them: how large, how many beside each other, and which are in view.
#pragma once

#include <memory>
#include <vector>

#include "shell/PrintModel.h"

namespace Quillon::Shell {

/// Pixels of the window, whatever the zoom.
struct PreviewPage {
    int Page = 0;  ///< from 0
    int X = 0, Y = 0, Width = 0, Height = 0;
};

class PrintPreview {
public:
    enum class Fit { None, Width, Page };
    static constexpr int LeastZoom = 10;
    static constexpr int MostZoom = 400;
    static constexpr int Gap = 18;  ///< around and between the pages

    /// As it was left last.
    PrintPreview();
    void Keep() const;

    PrintModel Model;
    /// Makes the pages anew: after the model, or the page setup, changed.
    void Rebuild();
    int Pages() const { return job->Pages(); }
    int TrackOf(int page) const { return job->TrackOf(page); }
    void Draw(Picture& picture, int page) { job->Draw(picture, page); }

    void SetView(int width, int height);
    int Zoom() const { return zoom; }
    Fit Fitted() const { return fit; }
    void SetZoom(int percent);
    /// That many steps up or down the list of zooms.
    void ZoomBy(int steps);
    void SetFit(Fit wanted);
    /// Screen pixels of a document pixel.
    double Scale() const { return zoom / 100.0; }

    int Columns() const { return columns; }
    /// Size of all pages together with what is around them.
    int Width() const;
    int Height() const;
    /// The pages that reach into the view when it is scrolled to this point.
    std::vector<PreviewPage> InView(int scrollX, int scrollY) const;
    /// The page that the view stands at: the first whose upper half is in view.
    int PageAt(int scrollY) const;
    /// Where to scroll for a page to stand at the top.
    int ScrollFor(int page) const;
    /// "Page 2 of 7", with the track's name where there are several.
    std::string PageText(int page) const;

private:
    void Arrange();
    int PageWidth() const;
    int PageHeight() const;
    int Rows() const { return (Pages() + columns - 1) / columns; }

    std::unique_ptr<Exchange::PrintJob> job;
    Fit fit = Fit::Page;
    int zoom = 100;
    int columns = 1;
    int viewWidth = 800, viewHeight = 600;
};

}  // namespace Quillon::Shell
