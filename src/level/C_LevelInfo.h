#pragma once

#include "LevelVersion.h"
#include "LevelWalk.h"
#include "TablePosition.h"

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

    // The same walk over a device that is already open (tests, fuzzing).
    void WalkDevice(QIODevice& device);

    quint32 Version() const { return m_version; }
    QString VersionString() const;
    qint16 TypeLevel() const { return 0; }
    qint64 OffsetObjectTexture() const { return m_walk.objectTexture.offset; }
    qint64 NumberObjectTexture() const { return m_walk.objectTexture.number; }
    qint64 SizeObjectTexture() const { return m_walk.objectTexture.size; }
    qint64 OffsetSpriteTexture() const { return m_walk.spriteTexture.offset; }
    qint64 NumberSpriteTexture() const { return m_walk.spriteTexture.number; }
    qint64 SizeSpriteTexture() const { return m_walk.spriteTexture.size; }
    qint64 OffsetSpriteSequence() const { return m_walk.spriteSequence.offset; }
    qint64 NumberSpriteSequence() const { return m_walk.spriteSequence.number; }
    qint64 SizeSpriteSequence() const { return m_walk.spriteSequence.size; }
    qint64 OffsetAnimatedTexture() const { return m_walk.animatedTexture.offset; }
    qint64 NumberAnimatedTexture() const { return m_walk.animatedTexture.number; }
    qint64 SizeAnimatedTexture() const { return m_walk.animatedTexture.size; }
    qint64 OffsetCameras() const { return m_walk.offsetCameras; }
    qint64 OffsetItems() const { return m_walk.offsetItems; }

    LevelVersion::Game Game() const { return LevelVersion::gameOf(VersionString()); }
    QString FileName() const { return m_fileName; }
    qint64 FileLength() const { return m_fileLength; }
    bool IsOpened() const { return m_opened; }
    QString ErrorString() const { return m_errorString; }

    // Every position from the walk, the private ones included.
    const LevelWalk::Result& Walk() const { return m_walk; }

    // True when a TR2 or TR3 level was walked through to its last block:
    // only then do its positions describe where its tables lie.
    bool IsWalkComplete() const { return m_walk.complete; }

    // True when the walk reached the end and the blocks it found lie inside
    // the file: a truncated level also walks to its end, reading zeros.
    bool AreTablesInsideFile() const { return m_walk.complete && m_walk.offsetItems <= m_fileLength; }

private:
    QString ReadVersionString(QIODevice& device);
    void WalkOpenDevice(QIODevice& device);

    QString m_fileName;
    quint32 m_version = 0;
    LevelWalk::Result m_walk;
    qint64 m_fileLength = 0;
    bool m_opened = false;
    QString m_errorString;
};
