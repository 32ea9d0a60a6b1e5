#include "list/C_ListInfo.h"

#include "level/AnimatedTextureBlock.h"
#include "level/BinaryReader.h"
#include "list/tables/ListTables.h"
#include "level/ObjectTexture.h"
#include "level/ReadOnlyFile.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"
#include "level/TableCountLimits.h"
#include "common/FileIdentity.h"
#include "common/ReplacingFile.h"
#include "level/m_AllBinTo.h"
#include "list/m_SpriteList.h"
#include "list/m_TextureList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

// The two characters that follow each name in the header.
constexpr char NameTerminator[] = "\\0";
constexpr int NameTerminatorLength = 2;
constexpr qint64 MaxNameBytes = 0xFFFF - NameTerminatorLength;

QByteArray storedName(const QString& name)
{
    return name.toLocal8Bit().left(MaxNameBytes);
}

// A name as a list stores it: a path, which holds no control character.
bool isText(const QByteArray& name)
{
    return std::none_of(name.cbegin(), name.cend(), [](char c) { return quint8(c) < 0x20 || quint8(c) == 0x7F; });
}

} // namespace

// The list file as positional writes leave it: a write may land anywhere,
// overlap an earlier one, and the file is as long as its furthest write.
class C_ListInfo::Image
{
public:
    void put(qint64 pos, const char* data, qint64 length)
    {
        if (pos + length > m_bytes.size())
            m_bytes.resize(pos + length, '\0');
        std::memcpy(m_bytes.data() + pos, data, size_t(length));
    }
    void put16(qint64 pos, quint16 value)
    {
        char b[2];
        qToLittleEndian(value, b);
        put(pos, b, 2);
    }
    void put32(qint64 pos, quint32 value)
    {
        char b[4];
        qToLittleEndian(value, b);
        put(pos, b, 4);
    }
    void reserve(qint64 size) { m_bytes.reserve(size); }

    // A table at p: its entry count as 32 bits, then each entry's record.
    // Returns the position after it.
    template <class Entry>
    qint64 putTable(qint64 p, const RecordTable<Entry>& table)
    {
        using Record = decltype(Entry::record);
        const int n = table.count();
        put32(p, quint32(n));
        char record[Record::Size];
        for (int row = 0; row < n; ++row) {
            table.at(row).record.toBytes(record);
            put(p + 4 + qint64(Record::Size) * row, record, Record::Size);
        }
        return p + 4 + qint64(Record::Size) * n;
    }
    QByteArray bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

qint16 C_ListInfo::Init(const QString& sFileName, const QString& sLevelName, const QString& sBitMap,
                        ListTables* tables, quint32 /*lngVersion*/)
{
    m_fileName = sFileName;
    m_tables = tables;

    if (!sLevelName.isEmpty()) {
        SetNames(sBitMap, sLevelName);
        ReadLevelVersion(sLevelName);
        m_typeLevel = 0;
        return Success;
    }
    return ReadListStructure(sFileName);
}

qint16 C_ListInfo::InitStandAlone(const QString& sFileName, const QString& sBitMap, ListTables* tables,
                                  quint32 lngVersion)
{
    m_fileName = sFileName;
    m_tables = tables;
    SetNames(sBitMap, QString());
    m_version = lngVersion;
    m_typeLevel = 0;
    m_error = {};
    return m_tables ? Success : Failure;
}

qint16 C_ListInfo::InitForInsert(const QString& strFileName)
{
    m_fileName = strFileName;
    return ReadListStructure(strFileName);
}

void C_ListInfo::SetNames(const QString& bitmap, const QString& level)
{
    m_bitMapName = bitmap;
    m_levelFileName = level;
    m_bitMapNameLength = int(storedName(bitmap).size()) + NameTerminatorLength;
    m_levelFileNameLength = int(storedName(level).size()) + NameTerminatorLength;
}

void C_ListInfo::ReadLevelVersion(const QString& levelPath)
{
    QFile level(levelPath);
    if (!ReadOnlyFile::open(level, m_error))
        return;
    BinaryReader reader(level, 4);
    m_version = reader.u32(0);
}

QString C_ListInfo::VersionString() const
{
    return m_AllBinTo::ConvertToHex(m_version, 32, 0);
}

qint16 C_ListInfo::ReadListStructure(const QString& path)
{
    QFile file(path);
    if (!ReadOnlyFile::open(file, m_error))
        return Failure;
    return ReadTablePositions(file) ? Success : Failure;
}

bool C_ListInfo::ReadTablePositions(QFile& file)
{
    BinaryReader reader(file);
    m_version = reader.u32(0);
    m_typeLevel = reader.i16(4);

    QString damage;
    auto readName = [&reader, &damage](qint64 lengthAt, int& length, QString& name, const QString& which) {
        length = reader.u16(lengthAt);
        const QByteArray stored = reader.bytes(lengthAt + 2, qMax(0, length - NameTerminatorLength));
        name = QString::fromLocal8Bit(stored);
        if (damage.isEmpty() && length < NameTerminatorLength && lengthAt + 2 <= reader.size())
            damage = QStringLiteral("its %1 name's length field holds %2, less than the name's end mark takes")
                         .arg(which)
                         .arg(length);
        if (damage.isEmpty() && !isText(stored))
            damage = QStringLiteral("its %1 name is not text").arg(which);
        return lengthAt + 2 + length; // the "\0" is skipped, never checked
    };
    qint64 p = readName(6, m_bitMapNameLength, m_bitMapName, QStringLiteral("bitmap"));
    p = readName(p, m_levelFileNameLength, m_levelFileName, QStringLiteral("level"));
    if (p > reader.size()) {
        m_error = FileError::reading(file.fileName(), QStringLiteral("is cut short in its header: it holds %1 bytes, "
                                                                     "its header %2")
                                                          .arg(reader.size())
                                                          .arg(p));
        return false;
    }
    if (!damage.isEmpty()) {
        m_error = FileError::reading(file.fileName(), damage);
        return false;
    }

    auto readTable = [&reader, &p](TablePosition& table, qint64 number, int recordSize) {
        table.offset = p;
        table.number = number;
        table.size = number * recordSize;
        p += 4 + table.size;
    };
    readTable(m_objectTexture, reader.u32(p), ObjectTexture::Size);
    // The block's word count is taken from its low 16 bits.
    readTable(m_animatedTexture, reader.u16(p), 2);
    readTable(m_spriteTexture, reader.u32(p), SpriteTexture::Size);
    readTable(m_spriteSequence, reader.u32(p), SpriteSequence::Size);
    m_offsetEof = p;
    m_fileSize = reader.size();
    if (!AreCountsAddressable(reader, file.fileName()))
        return false;
    m_rangeBlockDamage = AnimatedTextureBlock::damage(AnimatedTextureBlock::wordsOfTable(reader, m_animatedTexture));
    return true;
}

// A list saved without animation ranges keeps one 0 word behind its word
// count of 0, so its sprite table starts 2 bytes after where the count puts
// it. Read where the count puts it, the sprite and sequence counts are those
// of other fields and run past the end of the file; read 2 bytes later, they
// fit it.
bool C_ListInfo::TablesFollowLoneWord(BinaryReader& reader) const
{
    if (m_animatedTexture.number != 0 || reader.u16(m_animatedTexture.offset + 4) != 0)
        return false;
    const qint64 sprites = m_animatedTexture.offset + 6;
    const qint64 spriteCount = reader.u32(sprites);
    const qint64 sequences = sprites + 4 + spriteCount * SpriteTexture::Size;
    const qint64 sequenceCount = reader.u32(sequences);
    const qint64 end = sequences + 4 + sequenceCount * SpriteSequence::Size;
    const bool countedFit = m_offsetEof <= reader.size() && m_spriteTexture.number <= TableCountLimits::SpriteTextures
                         && m_spriteSequence.number <= TableCountLimits::SpriteSequences;
    return !countedFit && end <= reader.size();
}

bool C_ListInfo::AreCountsAddressable(BinaryReader& reader, const QString& path)
{
    m_tablesFollowLoneWord = TablesFollowLoneWord(reader);
    TableCountLimits::Claims claims;
    claims.objectTextures = m_objectTexture.number;
    // Tables that are not read are not counted against the limits.
    if (!m_tablesFollowLoneWord) {
        claims.spriteTextures = m_spriteTexture.number;
        claims.spriteSequences = m_spriteSequence.number;
    }
    claims.animationWords = m_animatedTexture.number;
    claims.animationBytesPresent = reader.size() - (m_animatedTexture.offset + 4);
    const QString excess = TableCountLimits::excess(claims);
    if (excess.isEmpty())
        return true;
    m_error = FileError::reading(path, excess);
    return false;
}

QString C_ListInfo::CutShortNote() const
{
    if (m_offsetEof <= m_fileSize)
        return {};
    return QStringLiteral("the file is shorter than its tables say (%1 of the %2 bytes)").arg(m_fileSize).arg(m_offsetEof);
}

QString C_ListInfo::LoneWordNotice() const
{
    if (!m_tablesFollowLoneWord)
        return {};
    return QStringLiteral("it was saved without animation ranges: its sprite and sequence tables lie 2 bytes "
                          "past where its counts say and are not read");
}

qint16 C_ListInfo::GetAllListContents()
{
    if (!m_tables)
        return Failure;
    QFile file(m_fileName);
    if (!ReadOnlyFile::open(file, m_error) || !ReadTablePositions(file))
        return Failure;
    BinaryReader reader(file, 1 << 16);
    m_TextureList::FillObjectTextures(reader, m_objectTexture, m_tables->textures);
    m_TextureList::FillAnimations(reader, m_animatedTexture, *m_tables);
    // Where the sprite table is not where the counts place it, the list gets
    // no records made of other fields' bytes.
    const TablePosition none;
    m_SpriteList::FillSprites(reader, m_tablesFollowLoneWord ? none : m_spriteTexture, m_tables->sprites);
    m_SpriteList::FillSequences(reader, m_tablesFollowLoneWord ? none : m_spriteSequence, m_tables->sequences);
    return Success;
}

qint16 C_ListInfo::PutAllListContents()
{
    if (!m_tables)
        return Failure;
    // The list never takes the place of the level or the bitmap it names.
    m_error = FileIdentity::outputRefusal(
        m_fileName, {NamedPath(m_levelFileName, m_fileName), NamedPath(m_bitMapName, m_fileName)});
    if (m_error.failed())
        return Failure;
    // Files are rewritten in place from their first byte, never truncated:
    // an older, longer list keeps its bytes beyond the new end.
    ReplacingFile file(m_fileName, ReplacingFile::KeepOlderTail);
    if (!file.open() || !file.write(ListFileImage()) || !file.commit()) {
        m_error = file.error();
        return Failure;
    }
    return Success;
}

QString C_ListInfo::NamedPath(const QString& name, const QString& listPath)
{
    if (name.isEmpty() || QDir::isAbsolutePath(name))
        return name;
    return QFileInfo(listPath).dir().filePath(name);
}

QByteArray C_ListInfo::ListFileImage() const
{
    if (!m_tables)
        return {};
    Image image;
    image.reserve(64 + m_bitMapNameLength + m_levelFileNameLength
                  + qint64(m_tables->textures.count()) * ObjectTexture::Size
                  + qint64(m_tables->sprites.count()) * SpriteTexture::Size
                  + qint64(m_tables->sequences.count()) * SpriteSequence::Size
                  + qint64(m_tables->rangeTextures.count() + m_tables->ranges.count()) * 2);
    qint64 p = WriteListHeader(image);
    p = WriteObjectTextures(image, p);
    p = WriteAnimatedTextures(image, p);
    p = WriteSpriteTextures(image, p);
    WriteSpriteSequences(image, p);
    return image.bytes();
}

qint64 C_ListInfo::WriteListHeader(Image& image) const
{
    image.put32(0, m_version);
    image.put16(4, quint16(m_typeLevel));
    qint64 p = 6;
    for (const QString& name : {m_bitMapName, m_levelFileName}) {
        const QByteArray stored = storedName(name) + NameTerminator;
        image.put16(p, quint16(stored.size()));
        image.put(p + 2, stored.constData(), stored.size());
        p += 2 + stored.size();
    }
    return p;
}

qint64 C_ListInfo::WriteObjectTextures(Image& image, qint64 p) const
{
    return image.putTable(p, m_tables->textures);
}

qint64 C_ListInfo::WriteAnimatedTextures(Image& image, qint64 p) const
{
    // The range count goes out as a 32-bit value at p + 4 whose upper half the
    // first range's word then overwrites, so the block holds it as one word.
    // A list without ranges therefore keeps a lone 0 word behind a count of 0.
    const QList<quint16> words = m_tables->AnimatedTextureWords();
    const quint32 ranges = quint32(m_tables->ranges.count());
    image.put32(p + 4, ranges);
    qint64 counter = 1;
    for (qsizetype i = 1; i < words.size(); ++i, ++counter)
        image.put16(p + 4 + 2 * counter, words[i]);
    image.put32(p, ranges == 0 ? 0 : quint32(counter));
    return p + 4 + 2 * counter;
}

qint64 C_ListInfo::WriteSpriteTextures(Image& image, qint64 p) const
{
    return image.putTable(p, m_tables->sprites);
}

qint64 C_ListInfo::WriteSpriteSequences(Image& image, qint64 p) const
{
    return image.putTable(p, m_tables->sequences);
}
