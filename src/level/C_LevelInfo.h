#pragma once

#include "common/FileError.h"
#include "level/LevelVersion.h"
#include "level/LevelWalk.h"
#include "level/TablePosition.h"

#include <QString>

class QIODevice;

// A level file's game version and where its four texture tables, its camera
// block and its item block lie. The level is only ever read: it is opened
// read-only for the walk and closed before Init returns.
class C_LevelInfo
{
public:
    // Walks the named level; an empty name does nothing, and a path that does
    // not exist or cannot be read leaves every position at 0.
    void Init(const QString& strFileName);

    // Walks the named file; callers read the properties, never the result,
    // which is always false.
    bool WalkTheLevel(const QString& sFileName);

    // The same walk over a device that is already open (tests, fuzzing, and
    // what reads a level further); reach can stop it after the tiles.
    void WalkDevice(QIODevice& device, LevelWalk::Reach reach = LevelWalk::Reach::End);

    // The positions, numbers and sizes are Longs, signed 32-bit as the walk
    // keeps them; a number and its size are negative where the level's count is.
    quint32 Version() const { return m_version; }
    QString VersionString() const;
    qint16 TypeLevel() const { return 0; }
    qint32 OffsetObjectTexture() const { return qint32(m_walk.objectTexture.offset); }
    qint32 NumberObjectTexture() const { return qint32(m_walk.objectTexture.number); }
    qint32 SizeObjectTexture() const { return qint32(m_walk.objectTexture.size); }
    qint32 OffsetSpriteTexture() const { return qint32(m_walk.spriteTexture.offset); }
    qint32 NumberSpriteTexture() const { return qint32(m_walk.spriteTexture.number); }
    qint32 SizeSpriteTexture() const { return qint32(m_walk.spriteTexture.size); }
    qint32 OffsetSpriteSequence() const { return qint32(m_walk.spriteSequence.offset); }
    qint32 NumberSpriteSequence() const { return qint32(m_walk.spriteSequence.number); }
    qint32 SizeSpriteSequence() const { return qint32(m_walk.spriteSequence.size); }
    qint32 OffsetAnimatedTexture() const { return qint32(m_walk.animatedTexture.offset); }
    qint32 NumberAnimatedTexture() const { return qint32(m_walk.animatedTexture.number); }
    qint32 SizeAnimatedTexture() const { return qint32(m_walk.animatedTexture.size); }
    qint32 OffsetCameras() const { return qint32(m_walk.offsetCameras); }
    qint32 OffsetItems() const { return qint32(m_walk.offsetItems); }

    LevelVersion::Game Game() const { return LevelVersion::gameOf(VersionString()); }
    QString FileName() const { return m_fileName; }
    qint64 FileLength() const { return m_fileLength; }
    bool IsOpened() const { return m_opened; }
    QString ErrorString() const { return m_error.why(); }
    FileError Error() const { return m_error; }

    // Every position from the walk, the private ones included.
    const LevelWalk::Result& Walk() const { return m_walk; }

    // True when a TR2 or TR3 level was walked through to its last block:
    // only then do its positions describe where its tables lie.
    bool IsWalkComplete() const { return m_walk.complete; }

    // Empty when a walked level's tables can be read and replaced: the walk
    // went through to the end, the blocks it found lie inside the file (a
    // truncated level also walks to its end, reading zeros) and no texture
    // table claims a negative count or more rows than a level can address.
    // Otherwise the cause, in one line.
    QString TablesUnusableCause() const;
    bool AreTablesInsideFile() const { return TablesUnusableCause().isEmpty(); }

private:
    QString ReadVersionString(QIODevice& device);
    void WalkOpenDevice(QIODevice& device, LevelWalk::Reach reach);

    QString m_fileName;
    quint32 m_version = 0;
    LevelWalk::Result m_walk;
    qint64 m_fileLength = 0;
    bool m_opened = false;
    FileError m_error;
};
