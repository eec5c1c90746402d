// Pixels of windows and pictures, as 24 bits each.
#include "platform/printing/machine_printing.h"

#include "platform/controls/form.h"
#include "platform/controls/picture.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <cstring>
#include <new>

namespace platform {

namespace {

class ImageSource : public BitmapSource {
public:
    explicit ImageSource(const QImage &image)
        : m_image(image.convertToFormat(QImage::Format_BGR888))
    {
    }

    bool GivesBits() const override { return true; }
    int Planes() const override { return 1; }
    int BitsPerPixel() const override { return 24; }
    int Width() const override { return m_image.width(); }
    int Height() const override { return m_image.height(); }
    uint64_t Context() const override { return 1; }
    uint64_t Copy() const override { return m_image.isNull() ? 0 : 1; }
    int ReadRows(Bitmap &bitmap) override
    {
        if (!bitmap.Bits || bitmap.Bits->size() != m_image.sizeInBytes() || m_image.isNull())
            return 0;
        std::memcpy(bitmap.Bits->data(), m_image.constBits(),
                    static_cast<size_t>(m_image.sizeInBytes()));
        return m_image.height();
    }

private:
    QImage m_image;
};

} // namespace

qsizetype BytesOfBitmap(int bitsPerPixel, int width, int height)
{
    qsizetype row = 0;
    switch (bitsPerPixel) {
    case 1:
        row = (qsizetype{width} + 7) / 8;
        break;
    case 4:
        row = (qsizetype{width} + 1) / 2;
        break;
    case 8:
        row = width;
        break;
    case 16:
        row = qsizetype{width} * 2;
        break;
    case 24:
        row = qsizetype{width} * 3;
        break;
    default:
        break;
    }
    return (row + 3) / 4 * 4 * height;
}

std::unique_ptr<BitmapSource> MachinePrinting::SourceOfWindow(Form &form)
{
    return std::make_unique<ImageSource>(form.Window()->grab().toImage());
}

std::unique_ptr<BitmapSource> MachinePrinting::SourceOfClient(Form &form)
{
    return std::make_unique<ImageSource>(form.Client()->grab().toImage());
}

std::unique_ptr<BitmapSource> MachinePrinting::SourceOfPicture(PictureBox &box)
{
    return std::make_unique<ImageSource>(box.LoadedPicture().toImage());
}

std::shared_ptr<QByteArray> MachinePrinting::Allocate(qsizetype bytes)
{
    try {
        return std::make_shared<QByteArray>(bytes, '\0');
    } catch (const std::bad_alloc &) {
        return {};
    }
}

} // namespace platform
