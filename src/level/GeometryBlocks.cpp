#include "level/GeometryBlocks.h"

#include "level/BinaryReader.h"
#include "level/GeometryCursor.h"

#include <QtEndian>

QByteArray GeometryBlocks::blockBytes(BinaryReader& reader, const TablePosition& block)
{
    if (block.offset <= 0 || block.size <= 0)
        return {};
    return reader.bytes(block.offset + 4, block.size);
}

QList<quint32> GeometryBlocks::meshPointers(const QByteArray& pointers)
{
    QList<quint32> offsets;
    offsets.reserve(pointers.size() / MeshPointerSize);
    for (qsizetype at = 0; at + MeshPointerSize <= pointers.size(); at += MeshPointerSize)
        offsets.append(qFromLittleEndian<quint32>(pointers.constData() + at));
    return offsets;
}

qint64 GeometryBlocks::meshFaceBudget(const QByteArray& meshData)
{
    return meshData.size() / GeometryCursor::TriangleSize + 1;
}
