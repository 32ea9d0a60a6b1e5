#include "synthetic/SyntheticMeshSet.h"

#include "synthetic/SyntheticLevel.h"

#include <QtEndian>

quint32 SyntheticMeshSet::add(const QByteArray& mesh)
{
    const auto offset = quint32(m_data.size());
    m_data.append(mesh);
    if (m_data.size() % 2 != 0)
        m_data.append('\0');
    return offset;
}

void SyntheticMeshSet::point(quint32 offset)
{
    char data[4];
    qToLittleEndian(offset, data);
    m_pointers.append(data, 4);
}

quint32 SyntheticMeshSet::addPointed(const QByteArray& mesh)
{
    const quint32 offset = add(mesh);
    point(offset);
    return offset;
}

void SyntheticMeshSet::applyTo(SyntheticLevel& level) const
{
    level.setBlock(SyntheticField::MeshData, m_data);
    level.setBlock(SyntheticField::MeshPointers, m_pointers);
}
