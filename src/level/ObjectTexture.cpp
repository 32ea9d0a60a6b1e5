#include "level/ObjectTexture.h"

#include <QtEndian>

#include <cstring>

namespace {

// Record offset of list column k (1-based, "Tile#" first), and its width.
struct ColumnField
{
    int offset;
    int width;
};

constexpr std::array<ColumnField, ObjectTexture::ColumnCount + 1> Fields{{
    {0, 0}, // "No" is not stored
    {2, 2}, // Tile#
    {0, 2}, // Trans
    {5, 1}, {7, 1}, {9, 1}, {11, 1}, {13, 1}, {15, 1}, {17, 1}, {19, 1}, // X1 .. Y4
    {4, 1}, {6, 1}, {8, 1}, {10, 1}, {12, 1}, {14, 1}, {16, 1}, {18, 1}, // X1Hi .. Y4Hi
}};

} // namespace

ObjectTexture ObjectTexture::fromBytes(const char* data)
{
    ObjectTexture record;
    std::memcpy(record.bytes.data(), data, Size);
    return record;
}

void ObjectTexture::toBytes(char* data) const
{
    std::memcpy(data, bytes.data(), Size);
}

quint16 ObjectTexture::attribute() const
{
    return qFromLittleEndian<quint16>(bytes.data());
}

quint16 ObjectTexture::tile() const
{
    return qFromLittleEndian<quint16>(bytes.data() + 2);
}

int ObjectTexture::column(int listColumn) const
{
    if (listColumn < 1 || listColumn > ColumnCount)
        return 0;
    const ColumnField field = Fields[listColumn];
    if (field.width == 2)
        return qFromLittleEndian<quint16>(bytes.data() + field.offset);
    return bytes[field.offset];
}

void ObjectTexture::setColumn(int listColumn, int value)
{
    if (listColumn < 1 || listColumn > ColumnCount)
        return;
    const ColumnField field = Fields[listColumn];
    if (field.width == 2)
        qToLittleEndian<quint16>(static_cast<quint16>(value), bytes.data() + field.offset);
    else
        bytes[field.offset] = static_cast<quint8>(value);
}

const QStringList& ObjectTexture::headers()
{
    static const QStringList names{
        QStringLiteral("No"),   QStringLiteral("Tile#"), QStringLiteral("Trans"),
        QStringLiteral("X1"),   QStringLiteral("Y1"),    QStringLiteral("X2"),
        QStringLiteral("Y2"),   QStringLiteral("X3"),    QStringLiteral("Y3"),
        QStringLiteral("X4"),   QStringLiteral("Y4"),    QStringLiteral("X1Hi"),
        QStringLiteral("Y1Hi"), QStringLiteral("X2Hi"),  QStringLiteral("Y2Hi"),
        QStringLiteral("X3Hi"), QStringLiteral("Y3Hi"),  QStringLiteral("X4Hi"),
        QStringLiteral("Y4Hi")};
    return names;
}
