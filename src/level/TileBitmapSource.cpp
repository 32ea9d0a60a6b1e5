#include "level/TileBitmapSource.h"

#include "level/PngRowReader.h"
#include "level/ReadOnlyFile.h"
#include "level/TileBitmapReader.h"
#include "level/TilePixelEncoder.h"

#include <QtEndian>

namespace {

constexpr int Side = TileBitmapReader::Side;
constexpr qint64 RowBytes = Side * 3; // 24 bits a pixel: no padding at 256 wide
constexpr qint64 BmpHeadSize = 54;

} // namespace

TileBitmapSource::TileBitmapSource(const QImage& decoded)
    : m_decoded(decoded)
    , m_tileCount(decoded.width() == Side ? decoded.height() / Side : 0)
{
}

TileBitmapSource::~TileBitmapSource() = default;

TileBitmapSource::TileBitmapSource(const QString& path, qint64 levelTiles)
{
    m_file.setFileName(path);
    if (!ReadOnlyFile::open(m_file, m_error))
        return;
    QString cause = TileBitmapReader::decodeRefusal(m_file, levelTiles);
    if (cause.isEmpty())
        cause = TileBitmapReader::cutCause(m_file);
    if (cause.isEmpty() && (openRows() || openPngRows()))
        return;
    m_png.reset();
    m_file.close();
    // Every other kind goes through the reader, which gives the one line
    // that says why it cannot be used.
    m_decoded = TileBitmapReader::read(path, &m_error, levelTiles);
    m_tileCount = m_decoded.isNull() ? 0 : m_decoded.height() / Side;
}

// An uncompressed 24-bit BMP 256 pixels wide with the 40-byte header or a
// later one: its rows lie at known places, each 768 bytes of blue, green
// and red.
bool TileBitmapSource::openRows()
{
    const QByteArray head = m_file.peek(BmpHeadSize);
    if (head.size() < BmpHeadSize || !head.startsWith("BM"))
        return false;
    const auto at32 = [&](int position) { return qFromLittleEndian<qint32>(head.constData() + position); };
    const qint64 height = at32(22);
    const bool plain = at32(14) >= 40 && at32(18) == Side && qFromLittleEndian<quint16>(head.constData() + 28) == 24
                       && at32(30) == 0;
    if (!plain || height == 0 || qAbs(height) % Side != 0)
        return false;
    m_pixelsAt = quint32(at32(10));
    m_bottomUp = height > 0;
    m_height = qAbs(height);
    m_tileCount = m_height / Side;
    m_fromRows = true;
    return true;
}

bool TileBitmapSource::openPngRows()
{
    if (!m_file.peek(8).startsWith("\x89PNG\r\n\x1a\n") || !m_file.seek(0))
        return false;
    m_png = std::make_unique<PngRowReader>(m_file);
    if (!m_png->isReadable() || m_png->width() != Side || m_png->height() % Side != 0)
        return false;
    m_tileCount = m_png->height() / Side;
    return true;
}

QImage TileBitmapSource::tile(qint64 index)
{
    if (index < 0 || index >= m_tileCount)
        return {};
    if (m_png)
        return readPngRows(index);
    if (!m_fromRows)
        return m_decoded.copy(0, int(index * Side), Side, Side);
    return readRows(index);
}

// The rows come as the file holds them: the tiles one after the other.
QImage TileBitmapSource::readPngRows(qint64 index)
{
    QImage image(Side, Side, QImage::Format_ARGB32);
    if (index != m_nextTile || !m_png->readRows(image)) {
        const QString why = index != m_nextTile ? QStringLiteral("tile %1 was asked for out of turn").arg(index)
                                                : m_png->error();
        m_error = FileError::reading(m_file.fileName(), QStringLiteral("cannot be decoded: %1").arg(why));
        return {};
    }
    ++m_nextTile;
    if (!m_png->hasAlpha())
        return image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < Side; ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < Side; ++x)
            row[x] = TilePixelEncoder::shownColour(row[x], true);
    }
    return image;
}

// The tile's 256 rows are one run of the file: the last row first when the
// bitmap stores its rows from the bottom up.
QImage TileBitmapSource::readRows(qint64 index)
{
    const qint64 firstFileRow = m_bottomUp ? m_height - (index + 1) * Side : index * Side;
    QByteArray rows(Side * RowBytes, Qt::Uninitialized);
    if (!m_file.seek(m_pixelsAt + firstFileRow * RowBytes) || m_file.read(rows.data(), rows.size()) != rows.size()) {
        m_error = FileError::reading(m_file.fileName(), QStringLiteral("was cut short while its tiles were read"));
        return {};
    }
    QImage image(Side, Side, QImage::Format_RGB32);
    for (int y = 0; y < Side; ++y) {
        const int fileRow = m_bottomUp ? Side - 1 - y : y;
        const uchar* bgr = reinterpret_cast<const uchar*>(rows.constData()) + fileRow * RowBytes;
        QRgb* pixels = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < Side; ++x, bgr += 3)
            pixels[x] = qRgb(bgr[2], bgr[1], bgr[0]);
    }
    return image;
}
