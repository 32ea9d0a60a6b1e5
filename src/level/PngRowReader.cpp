#include "level/PngRowReader.h"

#include <QIODevice>
#include <QImage>

#include <png.h>

#include <csetjmp>
#include <cstring>

// libpng reports a failure by a long jump out of its own calls: the calls
// below that can fail hold nothing that needs destroying between the jump's
// target and the jump.
struct PngRowReader::Png
{
    png_structp read = nullptr;
    png_infop info = nullptr;
    bool readable = false;
    bool alpha = false;
    png_uint_32 width = 0;
    png_uint_32 height = 0;
    png_uint_32 rowsRead = 0;
    char message[200] = {};
};

namespace {

void readFromDevice(png_structp read, png_bytep into, size_t length)
{
    auto* device = static_cast<QIODevice*>(png_get_io_ptr(read));
    if (device->read(reinterpret_cast<char*>(into), qint64(length)) != qint64(length))
        png_error(read, "the file ends inside the image data");
}

void keepError(png_structp read, png_const_charp message)
{
    auto* png = static_cast<char*>(png_get_error_ptr(read));
    std::strncpy(png, message, 199);
    png_longjmp(read, 1);
}

void ignoreWarning(png_structp, png_const_charp)
{
}

} // namespace

PngRowReader::PngRowReader(QIODevice& device)
    : m_png(std::make_unique<Png>())
{
    Png& png = *m_png;
    png.read = png_create_read_struct(PNG_LIBPNG_VER_STRING, png.message, keepError, ignoreWarning);
    if (!png.read)
        return;
    png.info = png_create_info_struct(png.read);
    if (!png.info)
        return;
    if (setjmp(png_jmpbuf(png.read)))
        return;
    // The bitmap's claimed size was weighed against its file before.
    png_set_user_limits(png.read, 0x7FFFFFFF, 0x7FFFFFFF);
    png_set_read_fn(png.read, &device, readFromDevice);
    png_read_info(png.read, png.info);
    const int colourType = png_get_color_type(png.read, png.info);
    png.alpha = (colourType & PNG_COLOR_MASK_ALPHA) || png_get_valid(png.read, png.info, PNG_INFO_tRNS);
    png_set_expand(png.read);
    png_set_scale_16(png.read);
    png_set_gray_to_rgb(png.read);
    png_set_bgr(png.read);
    png_set_filler(png.read, 0xFF, PNG_FILLER_AFTER);
    png.width = png_get_image_width(png.read, png.info);
    png.height = png_get_image_height(png.read, png.info);
    const bool interlaced = png_get_interlace_type(png.read, png.info) != PNG_INTERLACE_NONE;
    png_read_update_info(png.read, png.info);
    png.readable = !interlaced && png_get_rowbytes(png.read, png.info) == size_t(png.width) * 4;
}

PngRowReader::~PngRowReader()
{
    if (m_png->read)
        png_destroy_read_struct(&m_png->read, m_png->info ? &m_png->info : nullptr, nullptr);
}

bool PngRowReader::isReadable() const
{
    return m_png->readable;
}

bool PngRowReader::hasAlpha() const
{
    return m_png->alpha;
}

int PngRowReader::width() const
{
    return int(m_png->width);
}

qint64 PngRowReader::height() const
{
    return m_png->height;
}

bool PngRowReader::readRows(QImage& image)
{
    Png& png = *m_png;
    if (!png.readable || image.format() != QImage::Format_ARGB32 || image.width() != int(png.width)
        || png.rowsRead + png_uint_32(image.height()) > png.height)
        return false;
    uchar* first = image.bits();
    const qsizetype stride = image.bytesPerLine();
    const int rows = image.height();
    if (setjmp(png_jmpbuf(png.read))) {
        png.readable = false;
        return false;
    }
    for (int y = 0; y < rows; ++y)
        png_read_row(png.read, first + y * stride, nullptr);
    png.rowsRead += png_uint_32(rows);
    return true;
}

QString PngRowReader::error() const
{
    return QString::fromLatin1(m_png->message);
}
