#include "synthetic/SyntheticLevel.h"

#include "common/ReplacingFile.h"

#include "synthetic/SyntheticSink.h"

#include <QBuffer>
#include <QtEndian>

namespace {

constexpr qint64 Palette8Size = 768;
constexpr qint64 Palette16Size = 1024;
constexpr qint64 ZoneSize = 20;
constexpr qint64 AmbientSize = 4;
constexpr qint64 LightModeSize = 2;          // TR2 rooms only
constexpr qint64 AlternateRoomSize = 4;      // alternate room and flags
constexpr qint64 WaterReverbFillerSize = 3;  // TR3 rooms only
constexpr qint64 LightMapSize = 8192;
constexpr qint64 SoundMapSize = 740;

// Bytes per record behind the count of a block of zeros; 0 for the fields
// whose count comes from somewhere else.
qint64 recordSize(SyntheticField field)
{
    switch (field) {
    case SyntheticField::FloorData:
    case SyntheticField::MeshData:
    case SyntheticField::AnimCommands:
    case SyntheticField::Frames:
    case SyntheticField::Overlaps:
        return 2;
    case SyntheticField::MeshPointers:
    case SyntheticField::MeshTrees:
    case SyntheticField::SampleIndices:
        return 4;
    case SyntheticField::StateChanges:
        return 6;
    case SyntheticField::AnimDispatches:
    case SyntheticField::Boxes:
    case SyntheticField::SoundDetails:
        return 8;
    case SyntheticField::Cameras:
    case SyntheticField::SoundSources:
    case SyntheticField::CinematicFrames:
        return 16;
    case SyntheticField::Moveables:
        return 18;
    case SyntheticField::Items:
        return 24;
    case SyntheticField::Animations:
    case SyntheticField::StaticMeshes:
        return 32;
    case SyntheticField::DemoData:
        return 1;
    case SyntheticField::TileCount:
    case SyntheticField::RoomCount:
    case SyntheticField::ObjectTextures:
    case SyntheticField::SpriteTextures:
    case SyntheticField::SpriteSequences:
    case SyntheticField::AnimatedTextures:
        break;
    }
    return 0;
}

bool isZeroBlock(SyntheticField field)
{
    return recordSize(field) > 0;
}

// The room count and two counts near the end are 16-bit; the sound detail
// count is a 32-bit field even though only its low half counts.
int fieldWidth(SyntheticField field)
{
    switch (field) {
    case SyntheticField::RoomCount:
    case SyntheticField::CinematicFrames:
    case SyntheticField::DemoData:
        return 2;
    default:
        return 4;
    }
}

// Bytes that count records of size bytes announce; a negative count none.
qint64 announced(qint64 count, qint64 size)
{
    return qMax<qint64>(0, count) * size;
}

quint32 versionOf(LevelVersion::Game game)
{
    switch (game) {
    case LevelVersion::Game::TR1:
        return LevelVersion::TR1;
    case LevelVersion::Game::TR2:
        return LevelVersion::TR2;
    case LevelVersion::Game::TR3:
        return LevelVersion::TR3;
    case LevelVersion::Game::Unknown:
        break;
    }
    return 0;
}

template <typename Record>
QByteArray recordBytes(const QList<Record>& records)
{
    QByteArray data(records.size() * Record::Size, '\0');
    for (qsizetype i = 0; i < records.size(); ++i)
        records[i].toBytes(data.data() + i * Record::Size);
    return data;
}

} // namespace

SyntheticLevel::SyntheticLevel(LevelVersion::Game game)
    : m_game(game)
    , m_version(versionOf(game))
{
}

void SyntheticLevel::setTileCount(quint32 count, const QByteArray& tiles16)
{
    m_tileCount = count;
    m_tiles16 = tiles16;
}

void SyntheticLevel::setCount(Field field, qint64 count)
{
    Q_ASSERT_X(isZeroBlock(field), "SyntheticLevel::setCount", "the field takes its count elsewhere");
    if (isZeroBlock(field))
        m_counts[size_t(field)] = count;
}

qint64 SyntheticLevel::count(Field field) const
{
    switch (field) {
    case Field::TileCount:
        return m_tileCount;
    case Field::RoomCount:
        return m_rooms.size();
    case Field::ObjectTextures:
        return m_objectTextures.size();
    case Field::SpriteTextures:
        return m_spriteTextures.size();
    case Field::SpriteSequences:
        return m_spriteSequences.size();
    case Field::AnimatedTextures:
        return m_animatedWords.size();
    default:
        return m_counts[size_t(field)];
    }
}

void SyntheticLevel::overrideCount(Field field, quint32 raw)
{
    m_overrides[size_t(field)] = raw;
}

void SyntheticLevel::clearOverride(Field field)
{
    m_overrides[size_t(field)].reset();
}

void SyntheticLevel::setBlock(Field field, const QByteArray& bytes)
{
    const qint64 size = recordSize(field);
    setCount(field, size > 0 ? (bytes.size() + size - 1) / size : 0);
    m_blocks[size_t(field)] = bytes;
}

QByteArray SyntheticLevel::build() const
{
    QByteArray data;
    data.reserve(layout().length);
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    SyntheticSink sink(&buffer);
    lay(sink);
    return data;
}

bool SyntheticLevel::writeTo(const QString& path, QString* error) const
{
    ReplacingFile file(path);
    const bool written = file.open() && file.write(build()) && file.commit();
    if (error)
        *error = file.errorString();
    return written;
}

SyntheticLevel::Layout SyntheticLevel::layout() const
{
    SyntheticSink sink;
    lay(sink);
    return sink.layout();
}

SyntheticLevel SyntheticLevel::ofSize(LevelVersion::Game game, qint64 bytes, int rooms)
{
    SyntheticLevel level(game);
    level.setRooms(QList<SyntheticRoom>(qMax(0, rooms)));
    const qint64 bulk = qMax<qint64>(0, bytes - level.layout().length);
    level.setCount(Field::DemoData, bulk % 2); // demo data is counted in bytes: it takes an odd one
    const qint64 words = bulk / 2;
    if (rooms <= 0) {
        level.setCount(Field::FloorData, words);
        return level;
    }
    QList<SyntheticRoom> filled = level.rooms();
    for (int i = 0; i < rooms; ++i)
        filled[i].dataWords = quint32(words / rooms + (i < words % rooms ? 1 : 0));
    level.setRooms(filled);
    return level;
}

void SyntheticLevel::lay(SyntheticSink& sink) const
{
    layHeader(sink);
    layTiles(sink);
    layRooms(sink);
    layModels(sink);
    layTextureTables(sink);
    layTail(sink);
}

void SyntheticLevel::layHeader(SyntheticSink& sink) const
{
    sink.u32(m_version);
    sink.padded(m_palette8, Palette8Size);
    sink.zeros(Palette16Size);
}

void SyntheticLevel::layTiles(SyntheticSink& sink) const
{
    layCount(sink, Field::TileCount);
    sink.padded(m_tiles8, m_tileCount * Tile8Size);
    sink.padded(m_tiles16, m_tileCount * Tile16Size);
    sink.u32(0); // the unused word after the tiles
}

void SyntheticLevel::layRooms(SyntheticSink& sink) const
{
    layCount(sink, Field::RoomCount);
    for (const SyntheticRoom& room : m_rooms)
        layRoom(sink, room);
}

void SyntheticLevel::layRoom(SyntheticSink& sink, const SyntheticRoom& room) const
{
    // What the counts announce, or nothing for a room that only claims it.
    const auto bulk = [&](qint64 count, qint64 size) {
        if (!room.countsOnly)
            sink.zeros(announced(count, size));
    };
    sink.markRoom();
    sink.padded(room.header, SyntheticRoom::HeaderSize);
    sink.u32(room.dataWords);
    if (!room.countsOnly)
        sink.padded(room.data, announced(room.dataWords, SyntheticRoom::DataWordSize));
    sink.u16(quint16(room.portals));
    bulk(room.portals, SyntheticRoom::PortalSize);
    sink.u16(quint16(room.sectorsZ));
    sink.u16(quint16(room.sectorsX));
    bulk(qint64(room.sectorsZ) * room.sectorsX, SyntheticRoom::SectorSize);
    sink.zeros(AmbientSize);
    if (!isTR3())
        sink.zeros(LightModeSize);
    sink.u16(quint16(room.lights));
    bulk(room.lights, SyntheticRoom::LightSize);
    sink.u16(quint16(room.staticMeshes));
    if (!room.countsOnly)
        sink.padded(room.placements, announced(room.staticMeshes, SyntheticRoom::StaticMeshSize));
    sink.zeros(AlternateRoomSize);
    if (isTR3())
        sink.zeros(WaterReverbFillerSize);
}

void SyntheticLevel::layModels(SyntheticSink& sink) const
{
    for (Field field : {Field::FloorData, Field::MeshData, Field::MeshPointers, Field::Animations,
                        Field::StateChanges, Field::AnimDispatches, Field::AnimCommands,
                        Field::MeshTrees, Field::Frames, Field::Moveables, Field::StaticMeshes})
        layZeroBlock(sink, field);
}

// TR2 keeps its object textures before the sprites; TR3 moved them behind the
// animated textures, just before the items.
void SyntheticLevel::layTextureTables(SyntheticSink& sink) const
{
    if (!isTR3())
        layRecords(sink, Field::ObjectTextures, objectTextureBytes());
    layRecords(sink, Field::SpriteTextures, spriteTextureBytes());
    layRecords(sink, Field::SpriteSequences, spriteSequenceBytes());
    layZeroBlock(sink, Field::Cameras);
    layZeroBlock(sink, Field::SoundSources);
    layBoxes(sink);
    layRecords(sink, Field::AnimatedTextures, animatedTextureBytes());
    if (isTR3())
        layRecords(sink, Field::ObjectTextures, objectTextureBytes());
}

// The zones behind the overlaps take their number from the box count.
void SyntheticLevel::layBoxes(SyntheticSink& sink) const
{
    layZeroBlock(sink, Field::Boxes);
    layZeroBlock(sink, Field::Overlaps);
    sink.zeros(announced(count(Field::Boxes), ZoneSize));
}

void SyntheticLevel::layTail(SyntheticSink& sink) const
{
    layZeroBlock(sink, Field::Items);
    sink.zeros(LightMapSize);
    layZeroBlock(sink, Field::CinematicFrames);
    layZeroBlock(sink, Field::DemoData);
    sink.zeros(SoundMapSize);
    layZeroBlock(sink, Field::SoundDetails);
    layZeroBlock(sink, Field::SampleIndices);
}

void SyntheticLevel::layZeroBlock(SyntheticSink& sink, Field field) const
{
    layCount(sink, field);
    sink.padded(m_blocks[size_t(field)], announced(count(field), recordSize(field)));
}

void SyntheticLevel::layRecords(SyntheticSink& sink, Field field, const QByteArray& records) const
{
    layCount(sink, field);
    sink.bytes(records);
}

void SyntheticLevel::layCount(SyntheticSink& sink, Field field) const
{
    const std::optional<quint32>& raw = m_overrides[size_t(field)];
    const quint32 value = raw ? *raw : static_cast<quint32>(count(field));
    sink.count(field, fieldWidth(field), value);
}

QByteArray SyntheticLevel::objectTextureBytes() const
{
    return recordBytes(m_objectTextures);
}

QByteArray SyntheticLevel::spriteTextureBytes() const
{
    return recordBytes(m_spriteTextures);
}

QByteArray SyntheticLevel::spriteSequenceBytes() const
{
    return recordBytes(m_spriteSequences);
}

QByteArray SyntheticLevel::animatedTextureBytes() const
{
    QByteArray data(m_animatedWords.size() * 2, '\0');
    for (qsizetype i = 0; i < m_animatedWords.size(); ++i)
        qToLittleEndian(m_animatedWords[i], data.data() + i * 2);
    return data;
}
