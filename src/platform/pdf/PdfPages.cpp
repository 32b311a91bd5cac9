#include "platform/pdf/PdfPages.h"

#include <algorithm>

namespace Quillon {

namespace {

constexpr double PointsPerMillimetre = 72 / 25.4;

}  // namespace

PdfPages::PdfPages() : pages(file.Reserve()), resources(file.Reserve()) {}

void PdfPages::EndPage() {
    if (!picture) return;
    const int content = file.AddStream("", picture->TakeContent());
    kids.push_back(file.Add("<</Type/Page/Parent " + PdfReference(pages) + "/Resources " + PdfReference(resources) +
                            "/MediaBox[0 0 " + box + "]/Contents " + PdfReference(content) + ">>"));
    picture.reset();
}

Picture& PdfPages::BeginPage(const Sheet& sheet) {
    EndPage();
    const double points = sheet.PaperWidth * PointsPerMillimetre;
    box = PdfNumber(points) + " " + PdfNumber(sheet.PaperHeight * PointsPerMillimetre);
    picture = std::make_unique<PdfPicture>(shared, sheet.Width, sheet.Height, points / sheet.Width);
    return *picture;
}

void PdfPages::BeginChapter(std::string_view title) { chapters.emplace_back(title, kids.size() + (picture ? 1 : 0)); }

int PdfPages::WriteOutline() {
    const int outline = file.Reserve();
    const int first = outline + 1;
    const int last = outline + static_cast<int>(chapters.size());
    for (std::size_t i = 0; i < chapters.size(); ++i) file.Reserve();
    for (int item = first; item <= last; ++item) {
        const auto& [title, page] = chapters[static_cast<std::size_t>(item - first)];
        std::string body = "<</Title" + PdfText(title) + "/Parent " + PdfReference(outline);
        if (page < kids.size()) body += "/Dest[" + PdfReference(kids[page]) + "/Fit]";
        if (item > first) body += "/Prev " + PdfReference(item - 1);
        if (item < last) body += "/Next " + PdfReference(item + 1);
        file.Put(item, body + ">>");
    }
    file.Put(outline, "<</Type/Outlines/First " + PdfReference(first) + "/Last " + PdfReference(last) + "/Count " +
                          std::to_string(chapters.size()) + ">>");
    return outline;
}

std::string PdfPages::Finish(const PageFileInfo& info) {
    EndPage();
    std::vector<std::pair<const Shape*, int>> shapes(shared.Shapes.begin(), shared.Shapes.end());
    // By number: where in memory a shape stands differs from run to run.
    std::ranges::sort(shapes, {}, &std::pair<const Shape*, int>::second);
    std::string names;
    for (const auto& [shape, number] : shapes) {
        std::string bounds;
        const std::string content = PdfShapeContent(*shape, bounds);
        const int object = file.AddStream("/Type/XObject/Subtype/Form/BBox[" + bounds + "]", content);
        names += "/S" + std::to_string(number) + " " + PdfReference(object);
    }
    const std::string fonts = shared.Fonts.Write(file);
    file.Put(resources, "<</Font<<" + fonts + ">>/XObject<<" + names + ">>>>");
    std::string list;
    for (const int kid : kids) list += PdfReference(kid) + " ";
    file.Put(pages, "<</Type/Pages/Count " + std::to_string(kids.size()) + "/Kids[" + list + "]>>");
    std::string catalog = "<</Type/Catalog/Pages " + PdfReference(pages);
    if (chapters.size() > 1) catalog += "/Outlines " + PdfReference(WriteOutline()) + "/PageMode/UseOutlines";
    catalog += "/ViewerPreferences<</DisplayDocTitle true>>>>";
    std::string about = "<<";
    const auto tell = [&](const char* name, const std::string& text) {
        if (!text.empty()) about += name + PdfText(text);
    };
    tell("/Title", info.Title);
    tell("/Author", info.Author);
    tell("/Subject", info.Subject);
    tell("/Keywords", info.Keywords);
    tell("/Creator", info.Creator);
    tell("/Producer", info.Creator);
    if (!info.CreationDate.empty()) about += "/CreationDate(D:" + info.CreationDate + ")";
    const int root = file.Add(catalog);
    return file.Finish(root, file.Add(about + ">>"));
}

}  // namespace Quillon
