#pragma once

#include <QByteArray>
#include <QtGlobal>

// One room of a synthetic level: only the counts the walk reads, its header
// and its static mesh placements are chosen; the two ambient intensities, the TR2 light mode, the alternate
// room and flags and the TR3 water scheme, reverb and filler are zeros.
//
// The bytes a count announces are zeros too. A negative count announces no
// bytes. With countsOnly set the room writes its count fields and nothing
// they announce, so a count can claim what the file does not hold: a data
// word count of 0xFFFFFFFF, or 64 x 64 sectors, costs six bytes.
//
// The data words begin with data (its vertices, faces and sprites; see
// SyntheticGeometry): cut to the words counted, the rest zeros.
struct SyntheticRoom
{
    quint32 dataWords = 0;
    qint16 portals = 0;
    qint16 sectorsZ = 0;
    qint16 sectorsX = 0;
    qint16 lights = 0;
    qint16 staticMeshes = 0;
    bool countsOnly = false;
    QByteArray data = {};
    // The header (x, z, lowest and highest y, each 32-bit) and the static
    // mesh placements, cut or padded as the data words are.
    QByteArray header = {};
    QByteArray placements = {};

    // A room whose data words are data, padded to a whole word.
    static SyntheticRoom holding(const QByteArray& data)
    {
        SyntheticRoom room;
        room.dataWords = quint32((data.size() + 1) / DataWordSize);
        room.data = data;
        return room;
    }

    static constexpr qint64 HeaderSize = 16;
    static constexpr qint64 DataWordSize = 2;
    static constexpr qint64 PortalSize = 32;
    static constexpr qint64 SectorSize = 8;
    static constexpr qint64 LightSize = 24;
    static constexpr qint64 StaticMeshSize = 20;

    friend bool operator==(const SyntheticRoom&, const SyntheticRoom&) = default;
};
