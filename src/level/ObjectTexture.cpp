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

// Corner i's four bytes start at 4 + 4 i: X sub-pixel, X, Y sub-pixel, Y.
constexpr std::array<ColumnField, ObjectTexture::ColumnCount + 1> MakeFields()
{
    std::array<ColumnField, ObjectTexture::ColumnCount + 1> fields{};
    fields[ObjectTexture::TileColumn] = {2, 2};
    fields[ObjectTexture::TransColumn] = {0, 2};
    for (int corner = 0; corner < 4; ++corner) {
        const int at = 4 + 4 * corner;
        fields[size_t(ObjectTexture::XHiColumn(corner))] = {at, 1};
        fields[size_t(ObjectTexture::XColumn(corner))] = {at + 1, 1};
        fields[size_t(ObjectTexture::YHiColumn(corner))] = {at + 2, 1};
        fields[size_t(ObjectTexture::YColumn(corner))] = {at + 3, 1};
    }
    return fields;
}

constexpr std::array<ColumnField, ObjectTexture::ColumnCount + 1> Fields = MakeFields();

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

std::pair<int, int> ObjectTexture::columnRange(int listColumn)
{
    if (listColumn < 1 || listColumn > ColumnCount)
        return {0, 0};
    return {0, Fields[listColumn].width == 2 ? 0xFFFF : 0xFF};
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
