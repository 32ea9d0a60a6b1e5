#pragma once

#include "level/C_LevelInfo.h"
#include "synthetic/SyntheticLevel.h"
#include "level/TablePosition.h"

#include <QList>
#include <QMetaType>

// The positions a walk should report for a level; everything 0 and the walk
// incomplete unless set.
struct ExpectedWalk
{
    TablePosition objectTexture;
    TablePosition spriteTexture;
    TablePosition spriteSequence;
    TablePosition animatedTexture;
    qint64 cameras = 0;
    qint64 items = 0;
    bool complete = false;

    // Every table where the level put it and the walk complete; the level's
    // counts must not be overridden.
    static ExpectedWalk of(const SyntheticLevel& level);

    // The same walk with every position moved by bytes, as when a block early
    // in the level grows.
    ExpectedWalk shiftedBy(qint64 bytes) const;

    // Offset, number and size of the object texture, sprite texture, sprite
    // sequence and animated texture tables, then the camera and item offsets
    // and 1 for a complete walk: as expected here, and as info tells them.
    QList<qint64> positions() const;
    static QList<qint64> walked(const C_LevelInfo& info);

    void verify(const C_LevelInfo& info) const;
};

Q_DECLARE_METATYPE(ExpectedWalk)
