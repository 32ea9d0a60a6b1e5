#include "level/SpriteTexture.h"

#include <QtEndian>

SpriteTexture SpriteTexture::fromBytes(const char* data)
{
    SpriteTexture s;
    s.tile = qFromLittleEndian<quint16>(data);
    s.x = static_cast<quint8>(data[2]);
    s.y = static_cast<quint8>(data[3]);
    s.width = qFromLittleEndian<quint16>(data + 4);
    s.height = qFromLittleEndian<quint16>(data + 6);
    s.left = qFromLittleEndian<qint16>(data + 8);
    s.top = qFromLittleEndian<qint16>(data + 10);
    s.right = qFromLittleEndian<qint16>(data + 12);
    s.bottom = qFromLittleEndian<qint16>(data + 14);
    return s;
}

void SpriteTexture::toBytes(char* data) const
{
    qToLittleEndian(tile, data);
    data[2] = static_cast<char>(x);
    data[3] = static_cast<char>(y);
    qToLittleEndian(width, data + 4);
    qToLittleEndian(height, data + 6);
    qToLittleEndian(left, data + 8);
    qToLittleEndian(top, data + 10);
    qToLittleEndian(right, data + 12);
    qToLittleEndian(bottom, data + 14);
}

int SpriteTexture::column(int listColumn) const
{
    switch (listColumn) {
    case 1: return tile;
    case 2: return x;
    case 3: return y;
    case 4: return width;
    case 5: return height;
    case 6: return left;
    case 7: return top;
    case 8: return right;
    case 9: return bottom;
    default: return 0;
    }
}

void SpriteTexture::setColumn(int listColumn, int value)
{
    switch (listColumn) {
    case 1: tile = static_cast<quint16>(value); break;
    case 2: x = static_cast<quint8>(value); break;
    case 3: y = static_cast<quint8>(value); break;
    case 4: width = static_cast<quint16>(value); break;
    case 5: height = static_cast<quint16>(value); break;
    case 6: left = static_cast<qint16>(value); break;
    case 7: top = static_cast<qint16>(value); break;
    case 8: right = static_cast<qint16>(value); break;
    case 9: bottom = static_cast<qint16>(value); break;
    default: break;
    }
}

std::pair<int, int> SpriteTexture::columnRange(int listColumn)
{
    switch (listColumn) {
    case 2:
    case 3:
        return {0, 0xFF};
    case 1:
    case 4:
    case 5:
        return {0, 0xFFFF};
    case 6:
    case 7:
    case 8:
    case 9:
        return {-0x8000, 0x7FFF};
    default:
        return {0, 0};
    }
}

const QStringList& SpriteTexture::headers()
{
    static const QStringList names{
        QStringLiteral("No"),    QStringLiteral("Tile#"),  QStringLiteral("X"),
        QStringLiteral("Y"),     QStringLiteral("Width"),  QStringLiteral("Height"),
        QStringLiteral("Left"),  QStringLiteral("Top"),    QStringLiteral("Right"),
        QStringLiteral("Bottom")};
    return names;
}
