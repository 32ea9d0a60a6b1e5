#pragma once

#include <QByteArray>
#include <QtGlobal>

class SyntheticLevel;

// The mesh data and mesh pointers of a synthetic level: meshes laid one after
// another (each padded to a whole word), pointers that are byte offsets into
// them. A pointer may name any offset, inside a mesh or past them all.
class SyntheticMeshSet
{
public:
    // Appends mesh and returns its offset in the mesh data.
    quint32 add(const QByteArray& mesh);
    void point(quint32 offset);

    // Adds mesh and one pointer to it.
    quint32 addPointed(const QByteArray& mesh);

    const QByteArray& data() const { return m_data; }
    const QByteArray& pointers() const { return m_pointers; }

    // Puts the meshes and pointers into level's mesh data and pointer blocks.
    void applyTo(SyntheticLevel& level) const;

private:
    QByteArray m_data;
    QByteArray m_pointers;
};
