#include "forms/PictureEncoder.h"

#include "platform/portable/SvgPicture.h"
#include "platform/qt/QtImageFile.h"

namespace Quillon::Forms {

using Exchange::PictureKind;

Exchange::PictureEncoder PictureEncoderOf(PictureKind kind, int dpi) {
    using Paint = std::function<void(Picture&)>;
    if (kind == PictureKind::Svg) {
        return [](const Sheet& sheet, const Paint& paint) {
            SvgPicture picture(static_cast<int>(sheet.Width), static_cast<int>(sheet.Height));
            paint(picture);
            return picture.Text();
        };
    }
    const ImageFormat format = kind == PictureKind::Png    ? ImageFormat::Png
                               : kind == PictureKind::Jpeg ? ImageFormat::Jpeg
                                                           : ImageFormat::Bmp;
    return [dpi, format](const Sheet& sheet, const Paint& paint) { return EncodeImage(sheet, dpi, format, paint); };
}

}  // namespace Quillon::Forms
