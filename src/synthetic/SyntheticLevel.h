#pragma once

#include "level/AnimatedTextureBlock.h"
#include "level/LevelVersion.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"
#include "synthetic/SyntheticField.h"
#include "synthetic/SyntheticLayout.h"
#include "synthetic/SyntheticRoom.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>
#include <optional>

class SyntheticSink;

// Writes a structurally valid TR2 or TR3 level from chosen tables and block
// sizes, so tests and benchmarks need no game data. Everything not chosen is
// zeros: the palettes, the 8-bit tiles (unless chosen), the bulk behind every count, the
// light map and the sound map. A level is laid out block by block in file
// order; the same pass either writes the bytes or only records where each
// block starts, which is what layout() returns.
class SyntheticLevel
{
public:
    using Field = SyntheticField;
    using Layout = SyntheticLayout;

    static constexpr qint64 Tile8Size = 256 * 256;
    static constexpr qint64 Tile16Size = 256 * 256 * 2;

    // TR3 is laid out as TR3, every other game as TR2. The version long is
    // the game's own; Unknown writes 0.
    explicit SyntheticLevel(LevelVersion::Game game = LevelVersion::Game::TR2);

    LevelVersion::Game game() const { return m_game; }

    // Any version long; the layout stays that of the game.
    void setVersion(quint32 version) { m_version = version; }
    quint32 version() const { return m_version; }

    // count tiles of zeros at 8 bits, and at 16 bits the given pixels: data
    // shorter than count * Tile16Size is padded with zeros, longer is cut.
    void setTileCount(quint32 count, const QByteArray& tiles16 = {});
    // The 8-bit tiles and the 8-bit palette (256 x 3 bytes of 6-bit red,
    // green and blue) instead of zeros; padded or cut as the 16-bit tiles are.
    void setTiles8(const QByteArray& tiles8) { m_tiles8 = tiles8; }
    void setPalette8(const QByteArray& palette) { m_palette8 = palette; }

    void setRooms(const QList<SyntheticRoom>& rooms) { m_rooms = rooms; }
    const QList<SyntheticRoom>& rooms() const { return m_rooms; }

    // The count of a block that holds nothing but zeros: every field except
    // TileCount, RoomCount and the four texture tables, which take theirs from
    // setTileCount, setRooms and the table setters. Any count may be
    // negative, as the level's signed counts can be; a negative count
    // announces no bytes. The bytes a count announces are written, so a huge
    // count wants overrideCount instead.
    void setCount(Field field, qint64 count);

    // What the field holds unless overridden: for the tile, room and texture
    // fields the number of tiles, rooms, records or animated texture words.
    qint64 count(Field field) const;

    // Writes raw into the count field instead of its count (its low 16 bits
    // for a 16-bit field) and leaves what follows the field as it was: with
    // nothing chosen for the block, nothing follows. This is how a level claims
    // 0xFFFFFFFF tiles or 0x8000 rooms.
    void overrideCount(Field field, quint32 raw);
    void clearOverride(Field field);

    // A block of a setCount field that holds bytes instead of zeros: its
    // count becomes the records bytes fill, the last padded with zeros. How
    // the mesh data and the mesh pointers are chosen (see SyntheticMeshSet).
    void setBlock(Field field, const QByteArray& bytes);

    void setObjectTextures(const QList<ObjectTexture>& records) { m_objectTextures = records; }
    void setSpriteTextures(const QList<SpriteTexture>& records) { m_spriteTextures = records; }
    void setSpriteSequences(const QList<SpriteSequence>& records) { m_spriteSequences = records; }
    void setAnimatedTextures(const AnimatedTextureBlock& block) { m_animatedWords = block.toWords(); }
    // The animated block as raw words after its count, the range count first.
    void setAnimatedTextureWords(const QList<quint16>& words) { m_animatedWords = words; }

    QByteArray build() const;

    // Streams the level to path block by block and replaces the file only once
    // it is complete.
    bool writeTo(const QString& path, QString* error = nullptr) const;

    Layout layout() const;

    // A level of exactly bytes bytes (or of its empty rooms, when that is
    // more) whose bulk is spread evenly over the data words of rooms rooms;
    // with no rooms it goes into the floor data.
    static SyntheticLevel ofSize(LevelVersion::Game game, qint64 bytes, int rooms);

private:
    void lay(SyntheticSink& sink) const;
    void layHeader(SyntheticSink& sink) const;
    void layTiles(SyntheticSink& sink) const;
    void layRooms(SyntheticSink& sink) const;
    void layRoom(SyntheticSink& sink, const SyntheticRoom& room) const;
    void layModels(SyntheticSink& sink) const;
    void layTextureTables(SyntheticSink& sink) const;
    void layBoxes(SyntheticSink& sink) const;
    void layTail(SyntheticSink& sink) const;
    void layZeroBlock(SyntheticSink& sink, Field field) const;
    void layRecords(SyntheticSink& sink, Field field, const QByteArray& records) const;
    void layCount(SyntheticSink& sink, Field field) const;

    QByteArray objectTextureBytes() const;
    QByteArray spriteTextureBytes() const;
    QByteArray spriteSequenceBytes() const;
    QByteArray animatedTextureBytes() const;

    bool isTR3() const { return m_game == LevelVersion::Game::TR3; }

    LevelVersion::Game m_game;
    quint32 m_version;
    quint32 m_tileCount = 0;
    QByteArray m_tiles16;
    QByteArray m_tiles8;
    QByteArray m_palette8;
    QList<SyntheticRoom> m_rooms;
    std::array<qint64, SyntheticFieldCount> m_counts{};
    std::array<std::optional<quint32>, SyntheticFieldCount> m_overrides{};
    std::array<QByteArray, SyntheticFieldCount> m_blocks{};
    QList<ObjectTexture> m_objectTextures;
    QList<SpriteTexture> m_spriteTextures;
    QList<SpriteSequence> m_spriteSequences;
    QList<quint16> m_animatedWords;
};
