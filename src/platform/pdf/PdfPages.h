// Pages as one PDF file. The same pages make the same bytes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/PageTarget.h"
#include "platform/pdf/PdfPicture.h"

namespace Quillon {

class PdfPages : public PageFile {
public:
    PdfPages();

    Picture& BeginPage(const Sheet& sheet) override;
    void BeginChapter(std::string_view title) override;
    std::string Finish(const PageFileInfo& info) override;

private:
    void EndPage();
    int WriteOutline();

    PdfFile file;
    PdfResources shared;
    int pages, resources;  ///< objects that every page names
    std::vector<int> kids;
    std::vector<std::pair<std::string, std::size_t>> chapters;  ///< title, page from 0
    std::string box;                                            ///< of the page at hand
    std::unique_ptr<PdfPicture> picture;
};

}  // namespace Quillon
