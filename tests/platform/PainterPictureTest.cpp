#include "platform/qt/PainterPicture.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <cmath>

#include "platform/ImageSize.h"
#include "platform/RunTimeError.h"
#include "platform/qt/QtImageFile.h"

namespace Quillon {
namespace {

class PainterPictureTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        if (QCoreApplication::instance()) return;
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        new QGuiApplication(argc, argv);
    }

    static QImage Paint(int width, int height, double scale, const std::function<void(Picture&)>& paint) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PainterPicture picture(painter, scale);
        paint(picture);
        return image;
    }
    /// The dark pixels as rows of '#' and '.', '+' for what is neither black nor white.
    static std::string Map(const QImage& image) {
        std::string map;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const int gray = qGray(image.pixel(x, y));
                map += gray == 0 ? '#' : gray == 255 ? '.' : '+';
            }
            map += '\n';
        }
        return map;
    }
    /// The box around all that is not white.
    static QRect Ink(const QImage& image) {
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qGray(image.pixel(x, y)) < 250) ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }
};

TEST_F(PainterPictureTest, AKeptShapeIsPaintedAsItsPolygons) {
    // Two parts that overlap and turn different ways; painted twice, so that the second comes from the cache.
    static const Shape shape{"test", {{{-4, -3}, {4, -2}, {5, 3}, {-3, 4}}, {{0, -6}, {-2, 5}, {2, 5}}}};
    for (const double scale : {1.0, 1.25, 3.0}) {
        // A quarter of a device pixel is the nearest that a kept shape is told apart.
        const double x = 12 - 0.5 + 0.25 / scale, y = 12 - 0.5 + 0.5 / scale;
        const auto paint = [&](bool kept) {
            return Paint(static_cast<int>(24 * scale), static_cast<int>(24 * scale), scale, [&](Picture& picture) {
                kept ? picture.Stamp(shape, x, y) : picture.Picture::Stamp(shape, x, y);
            });
        };
        const QImage drawn = paint(false), first = paint(true), second = paint(true);
        EXPECT_EQ(first, second);
        int differing = 0;
        for (int row = 0; row < drawn.height(); ++row) {
            for (int column = 0; column < drawn.width(); ++column) {
                // Where the parts' edges meet, an outline of both is a little lighter than one over the other.
                differing += std::abs(qGray(drawn.pixel(column, row)) - qGray(first.pixel(column, row))) > 70;
            }
        }
        EXPECT_EQ(differing, 0) << scale;
        EXPECT_FALSE(Ink(first).isEmpty());
    }
}

TEST_F(PainterPictureTest, LevelAndUprightLinesCoverWholePixelsWithBothEnds) {
    EXPECT_EQ(Map(Paint(6, 5, 1,
                        [](Picture& picture) {
                            picture.Line(1, 1, 4, 1);
                            picture.Line(1, 3, 1, 1);
                        })),
              "......\n"
              ".####.\n"
              ".#....\n"
              ".#....\n"
              "......\n");
}

TEST_F(PainterPictureTest, WideLineLiesAroundItsMiddle) {
    EXPECT_EQ(Map(Paint(5, 5, 1, [](Picture& picture) { picture.Line(0, 2, 4, 2, 3); })),
              ".....\n#####\n#####\n#####\n.....\n");
}

TEST_F(PainterPictureTest, BoxCoversItsWidthAndHeight) {
    EXPECT_EQ(Map(Paint(4, 4, 1, [](Picture& picture) { picture.Box(1, 1, 2, 2, Black); })),
              "....\n.##.\n.##.\n....\n");
}

TEST_F(PainterPictureTest, StaffStaysSharpAndClosedAtEveryScale) {
    for (const double scale : {0.5, 0.8, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 3.3, 4.0}) {
        const auto size = static_cast<int>(std::ceil(60 * scale));
        const QImage image = Paint(size, size, scale, [](Picture& picture) {
            for (int line = 0; line < 5; ++line) picture.Line(5, 10 + 7 * line, 50, 10 + 7 * line);
            picture.Line(5, 10, 5, 38);
            picture.Line(50, 10, 50, 38);
        });
        const std::string map = Map(image);
        EXPECT_EQ(map.find('+'), std::string::npos) << scale;
        // The outline is closed: the corners of its box are all inked.
        const QRect ink = Ink(image);
        for (const QPoint corner : {ink.topLeft(), ink.topRight(), ink.bottomLeft(), ink.bottomRight()}) {
            EXPECT_EQ(qGray(image.pixel(corner)), 0) << scale;
        }
    }
}

TEST_F(PainterPictureTest, TextStandsOnItsBaselineByItsAnchor) {
    const auto ink = [](Anchor anchor) {
        return Ink(Paint(100, 40, 1, [&](Picture& picture) {
            picture.SetFont({"Arial", 12});
            picture.Print(50, 30, "HHH", anchor);
        }));
    };
    EXPECT_GE(ink(Anchor::Left).left(), 50);
    EXPECT_LE(ink(Anchor::Right).right(), 50);
    const QRect centered = ink(Anchor::Center);
    EXPECT_NEAR(centered.left() + centered.right(), 100, 1);
    EXPECT_EQ(centered.bottom(), 29) << "the pixel row above the baseline";
}

TEST_F(PainterPictureTest, TextWidthGrowsEvenlyWithTheSizeAndAgreesWithTheInk) {
    QImage image(1, 1, QImage::Format_RGB32);
    QPainter painter(&image);
    PainterPicture picture(painter, 2);  // measures in document pixels at every scale
    const auto width = [&](double size, std::string_view text) {
        picture.SetFont({"Arial", size});
        return picture.TextWidth(text);
    };
    EXPECT_NEAR(width(8, "12") / width(16, "12"), 0.5, 0.01);
    EXPECT_NEAR(width(8, "12"), 2 * width(8, "1"), 0.1);
    EXPECT_EQ(width(8, ""), 0);
    // Ten digits in a row of these fonts are 5.56 ems wide.
    EXPECT_NEAR(width(7.5, "0123456789"), 55.6, 0.5);
}

TEST_F(PainterPictureTest, SmallFontsAndTahomaAreFoundAndUnknownFontsStillPrint) {
    for (const char* name : {"Small Fonts", "Tahoma", "Times New Roman", "No Such Font At All", ""}) {
        const QRect ink = Ink(Paint(60, 30, 1, [&](Picture& picture) {
            picture.SetFont({name, 8});
            picture.Print(5, 20, "12");
        }));
        EXPECT_GT(ink.width(), 4) << name;
        EXPECT_LT(ink.width(), 30) << name;
    }
}

TEST_F(PainterPictureTest, DamagedFontsAndNumbersDoNotStopIt) {
    Paint(20, 20, 1, [](Picture& picture) {
        picture.SetFont({"Arial", -5});
        picture.Print(0, 10, "\xff\xfe x");
        picture.SetFont({"Arial", 30000});
        picture.TextWidth("M");
        picture.Polygon({});
        picture.Polyline({});
        picture.Disc(5, 5, 0);
    });
}

Sheet SheetOf(double width, double height) { return {width, height, width * 25.4 / 96, height * 25.4 / 96}; }

TEST(ImageFileTest, AnA4PageHasThePixelsOfItsPaper) {
    const Sheet sheet{795, 1124, 210, 297};
    const struct {
        int Dpi;
        double Width, Height, Scale;
    } rows[] = {
        {96, 794, 1123, 1}, {192, 1587, 2245, 2}, {300, 2480, 3508, 2480.0 / 795}, {600, 4961, 7016, 4961.0 / 795}};
    for (const auto& row : rows) {
        const ImageSize size = SizeOfImage(sheet, row.Dpi);
        EXPECT_EQ(size.Width, row.Width) << row.Dpi;
        EXPECT_EQ(size.Height, row.Height) << row.Dpi;
        EXPECT_DOUBLE_EQ(ScaleOfImage(size, sheet), row.Scale) << row.Dpi;
    }
}

TEST(ImageFileTest, EachFormatReadsBackInItsSize) {
    const std::pair<ImageFormat, const char*> formats[] = {
        {ImageFormat::Png, "PNG"}, {ImageFormat::Jpeg, "JPG"}, {ImageFormat::Bmp, "BMP"}};
    for (const auto& [format, name] : formats) {
        const std::string bytes =
            EncodeImage(SheetOf(80, 40), 192, format, [](Picture& picture) { picture.Box(0, 0, 40, 40, Black); });
        const QImage image = QImage::fromData(QByteArray::fromStdString(bytes), name);
        EXPECT_EQ(image.size(), QSize(160, 80)) << name;
        EXPECT_LT(qGray(image.pixel(20, 40)), 20) << name;
        EXPECT_GT(qGray(image.pixel(120, 40)), 235) << name;
        EXPECT_NEAR(image.dotsPerMeterX() * 0.0254, 192, 1) << name;
    }
}

TEST(ImageFileTest, RefusesSizesThatCannotBe) {
    const auto nothing = [](Picture&) {};
    EXPECT_THROW(EncodeImage(SheetOf(0, 10), 96, ImageFormat::Png, nothing), RunTimeError);
    EXPECT_THROW(EncodeImage(SheetOf(10, 10), 0, ImageFormat::Png, nothing), RunTimeError);
    EXPECT_THROW(EncodeImage(SheetOf(30000, 30000), 600, ImageFormat::Png, nothing), RunTimeError);
}

}  // namespace
}  // namespace Quillon
