#pragma once

#include "common/FileError.h"
#include "level/TablePosition.h"

#include <QByteArray>
#include <QList>
#include <QString>

class BinaryReader;
class ListTables;
class QFile;

// The open texture list: its file, the level and bitmap it belongs to, its
// game version and where each table lies in the list file. The list's
// records (ListTables) are its contents in memory; this class fills them
// from the file and writes them back.
//
// The list file, little-endian, positions from 0:
//   0 Version (4)   4 TypeLevel (2)
//   6 L1 = bitmap name length + 2, then the name and the two characters "\0"
//   then L2 = level name length + 2, the level name and "\0"
//   then the object texture table, the animated texture block, the sprite
//   texture table and the sprite sequence table, each after its 32-bit count.
class C_ListInfo
{
public:
    static constexpr qint16 Success = 0;
    static constexpr qint16 Failure = -99;

    // Remembers the list path and the records. With a level name the list
    // is new: names and version come from the arguments and the level, and
    // nothing is written yet. Without one the list file is read. lngVersion
    // is accepted and never used: a list made without a level gets its
    // version from its own file.
    qint16 Init(const QString& sFileName, const QString& sLevelName, const QString& sBitMap, ListTables* tables,
                quint32 lngVersion = 0);

    // A new list with no level: names and version from the arguments, the
    // records as they are. Nothing is read or written yet.
    qint16 InitStandAlone(const QString& sFileName, const QString& sBitMap, ListTables* tables, quint32 lngVersion);

    // Reads only the header and the table positions of a list file.
    qint16 InitForInsert(const QString& strFileName);

    // Reads the list file into the records; Failure when there are none to
    // fill or the file cannot be read (the records are then untouched).
    qint16 GetAllListContents();

    // Writes the records to the list file; Failure when there are none or
    // the file cannot be written (the old file is then untouched).
    qint16 PutAllListContents();

    // The bytes PutAllListContents writes from position 0.
    QByteArray ListFileImage() const;

    quint32 Version() const { return m_version; }
    QString VersionString() const;
    qint16 TypeLevel() const { return m_typeLevel; }
    qint64 Offset_EOF() const { return m_offsetEof; }
    QString LevelFileName() const { return m_levelFileName; }
    QString BitMapName() const { return m_bitMapName; }
    qint64 OffsetObjectTexture() const { return m_objectTexture.offset; }
    qint64 NumberObjectTexture() const { return m_objectTexture.number; }
    qint64 SizeObjectTexture() const { return m_objectTexture.size; }
    qint64 OffsetSpriteTexture() const { return m_spriteTexture.offset; }
    qint64 NumberSpriteTexture() const { return m_spriteTexture.number; }
    qint64 SizeSpriteTexture() const { return m_spriteTexture.size; }
    qint64 OffsetSpriteSequence() const { return m_spriteSequence.offset; }
    qint64 NumberSpriteSequence() const { return m_spriteSequence.number; }
    qint64 SizeSpriteSequence() const { return m_spriteSequence.size; }
    qint64 OffsetAnimatedTexture() const { return m_animatedTexture.offset; }
    qint64 NumberAnimatedTexture() const { return m_animatedTexture.number; }
    qint64 SizeAnimatedTexture() const { return m_animatedTexture.size; }
    // Reserved: no concordance table exists in a list or a level.
    qint64 OffsetConcordanceTextures() const { return 0; }
    qint64 NumberConcordanceTextures() const { return 0; }
    qint64 SizeConcordanceTextures() const { return 0; }

    // The length fields the file stores for the two names.
    int BitMapNameLength() const { return m_bitMapNameLength; }
    int LevelFileNameLength() const { return m_levelFileNameLength; }

    QString FileName() const { return m_fileName; }

    // A file a list names (its bitmap, its level): a relative name is taken
    // from the list's folder.
    static QString NamedPath(const QString& name, const QString& listPath);
    QString ErrorString() const { return m_error.why(); }
    FileError Error() const { return m_error; }

    // Set after a read when the list was saved without animation ranges and
    // its sprite table therefore lies 2 bytes after where its counts place
    // it (the format keeps a lone 0 word there); its sprites and sequences
    // are then not read. The notice says so in one clause, "" otherwise.
    bool AreTablesAfterLoneWord() const { return m_tablesFollowLoneWord; }
    QString LoneWordNotice() const;

    // After a read, when the file ends before its tables do: "the file is
    // shorter than its tables say (N of the M bytes)"; "" otherwise.
    QString CutShortNote() const;

    // Set after a read when the animated texture block's ranges claim more
    // words than it holds (AnimatedTextureBlock::damage): the rows read show
    // what the words hold, but no level may receive the block. "" otherwise.
    QString RangeBlockDamage() const { return m_rangeBlockDamage; }

private:
    class Image;

    qint16 ReadListStructure(const QString& path);
    bool ReadTablePositions(QFile& file);
    bool TablesFollowLoneWord(BinaryReader& reader) const;
    bool AreCountsAddressable(BinaryReader& reader, const QString& path);
    void ReadLevelVersion(const QString& levelPath);
    void SetNames(const QString& bitmap, const QString& level);

    qint64 WriteListHeader(Image& image) const;
    qint64 WriteObjectTextures(Image& image, qint64 p) const;
    qint64 WriteAnimatedTextures(Image& image, qint64 p) const;
    qint64 WriteSpriteTextures(Image& image, qint64 p) const;
    qint64 WriteSpriteSequences(Image& image, qint64 p) const;

    QString m_fileName;
    ListTables* m_tables = nullptr;

    quint32 m_version = 0;
    qint16 m_typeLevel = 0;
    QString m_bitMapName;
    QString m_levelFileName;
    int m_bitMapNameLength = 0;
    int m_levelFileNameLength = 0;
    TablePosition m_objectTexture;
    TablePosition m_animatedTexture;
    TablePosition m_spriteTexture;
    TablePosition m_spriteSequence;
    qint64 m_offsetEof = 0;
    bool m_tablesFollowLoneWord = false;
    QString m_rangeBlockDamage;
    qint64 m_fileSize = 0;
    FileError m_error;
};
