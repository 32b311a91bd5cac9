#include "forms/PictureEncoder.h"

#include "platform/portable/SvgPicture.h"
#include "platform/qt/QtImageFile.h"

namespace Quillon::Forms {

using Exchange::PictureKind;

Exchange::PictureEncoder PictureEncoderOf(PictureKind kind, int dpi) {
    using Paint = std::function<void(Picture&)>;
    if (kind == PictureKind::Svg) {
        return [](int width, int height, const Paint& paint) {
            SvgPicture picture(width, height);
            paint(picture);
            return picture.Text();
        };
    }
    const ImageFormat format = kind == PictureKind::Png    ? ImageFormat::Png
                               : kind == PictureKind::Jpeg ? ImageFormat::Jpeg
                                                           : ImageFormat::Bmp;
    return [dpi, format](int width, int height, const Paint& paint) {
        return EncodeImage(width, height, dpi, format, paint);
    };
}

}  // namespace Quillon::Forms
