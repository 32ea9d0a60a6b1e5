#include "level/LevelWalk.h"

#include "level/BinaryReader.h"

#include <limits>

namespace {

// Thrown where the format's arithmetic or a read fails; it ends the walk with
// whatever positions were recorded before it.
struct WalkStopped
{
};

constexpr qint64 LongMin = std::numeric_limits<qint32>::min();
constexpr qint64 LongMax = std::numeric_limits<qint32>::max();

constexpr qint64 Palette8Size = 768;
constexpr qint64 Palette16Size = 1024;
constexpr qint64 Tile8Size = 256 * 256;
constexpr qint64 Tile16Size = 256 * 256 * 2;
constexpr qint64 RoomHeaderSize = 16;
constexpr qint64 LightMapSize = 8192;
constexpr qint64 SoundMapSize = 740;
constexpr int ZoneSize = 20;

bool fitsLong(qint64 value)
{
    return value >= LongMin && value <= LongMax;
}

} // namespace

LevelWalk::LevelWalk(BinaryReader& reader, Game game, qint64 start)
    : m_reader(reader)
    , m_game(game)
    , m_p(start)
{
}

LevelWalk::Result LevelWalk::walk(BinaryReader& reader, Game game, qint64 start, Reach reach)
{
    LevelWalk walk(reader, game, start);
    try {
        walk.walkToTiles();
        if (reach == Reach::End) {
            walk.walkPastTiles();
            walk.m_result.complete = true;
            walk.m_result.end = walk.m_p;
        }
    } catch (const WalkStopped&) {
    }
    return walk.m_result;
}

qint32 LevelWalk::readLong(qint64 pos)
{
    if (pos < 0)
        throw WalkStopped{};
    return m_reader.i32(pos);
}

qint16 LevelWalk::readShort(qint64 pos)
{
    if (pos < 0)
        throw WalkStopped{};
    return m_reader.i16(pos);
}

void LevelWalk::advance(qint64 delta)
{
    const qint64 next = m_p + delta; // both within Long range: no 64-bit overflow
    if (!fitsLong(next))
        throw WalkStopped{};
    m_p = next;
}

qint64 LevelWalk::longProduct(qint64 count, qint64 recordSize)
{
    const qint64 product = count * recordSize; // a Long times a record size: no 64-bit overflow
    if (!fitsLong(product))
        throw WalkStopped{};
    return product;
}

int LevelWalk::shortProduct(int a, int b)
{
    const int product = a * b;
    if (product < std::numeric_limits<qint16>::min() || product > std::numeric_limits<qint16>::max())
        throw WalkStopped{};
    return product;
}

// The Long count at the current position and the bytes of its records. The
// walk ends here, before anything of the table is recorded, when those bytes
// overflow a Long.
TablePosition LevelWalk::longTableHere(int recordSize)
{
    const qint32 count = readLong(m_p);
    return {m_p, count, longProduct(count, recordSize)};
}

// From the table's count past its records, one addition at a time as the
// format's tools add them: the count's 4 bytes, then the records.
void LevelWalk::pass(const TablePosition& table)
{
    advance(4);
    advance(table.size);
}

void LevelWalk::readLongTable(int recordSize, TablePosition& table)
{
    table = longTableHere(recordSize);
    pass(table);
}

void LevelWalk::skipLongTable(int recordSize, qint64* position)
{
    const TablePosition table = longTableHere(recordSize);
    if (position)
        *position = table.offset;
    pass(table);
}

// Both tile blocks hang off one count. Where the count stands is known once
// it is read; either product overflowing ends the walk before the count is
// recorded.
void LevelWalk::walkTiles()
{
    const qint32 tiles = readLong(m_p);
    m_result.tileCountPosition = m_p;
    const qint64 tiles8Size = longProduct(tiles, Tile8Size);
    const qint64 tiles16Size = longProduct(tiles, Tile16Size);
    m_result.tileCount = tiles;
    m_result.tiles8Size = tiles8Size;
    m_result.tiles16Size = tiles16Size;
    advance(4);
    advance(tiles8Size);
    advance(tiles16Size);
}

void LevelWalk::walkToTiles()
{
    m_result.palette8Position = m_p;
    advance(Palette8Size);
    m_result.palette16Position = m_p;
    advance(Palette16Size);
    walkTiles();
}

void LevelWalk::walkPastTiles()
{
    advance(4); // unused 32-bit word

    const qint16 rooms = readShort(m_p);
    m_result.roomCountPosition = m_p;
    m_result.roomCount = rooms;
    advance(2);
    for (int room = 1; room <= rooms; ++room)
        walkRoom();

    skipLongTable(2);  // floor data
    readLongTable(2, m_result.meshData);
    readLongTable(4, m_result.meshPointers);
    skipLongTable(32); // animations
    skipLongTable(6, &m_result.stateChangePosition); // state changes
    skipLongTable(8);  // animation dispatches
    skipLongTable(2);  // animation commands
    skipLongTable(4);  // mesh trees
    skipLongTable(2);  // frames
    skipLongTable(18); // moveables
    readLongTable(32, m_result.staticMeshes);

    if (m_game == Game::TR2)
        readLongTable(20, m_result.objectTexture);
    readLongTable(16, m_result.spriteTexture);
    readLongTable(8, m_result.spriteSequence);

    skipLongTable(16, &m_result.offsetCameras); // cameras
    skipLongTable(16); // sound sources

    const TablePosition boxes = longTableHere(8);
    pass(boxes);
    skipLongTable(2); // overlaps
    advance(longProduct(boxes.number, ZoneSize));

    readLongTable(2, m_result.animatedTexture);
    if (m_game == Game::TR3)
        readLongTable(20, m_result.objectTexture);

    skipLongTable(24, &m_result.offsetItems); // items

    advance(LightMapSize);
    const qint16 cinematicFrames = readShort(m_p);
    advance(2 + shortProduct(16, cinematicFrames));
    const qint16 demoData = readShort(m_p);
    advance(2 + demoData);
    advance(SoundMapSize);
    const qint16 soundDetails = readShort(m_p); // only the low 16 bits count
    advance(4 + shortProduct(8, soundDetails));
    skipLongTable(4); // sample indices
}

void LevelWalk::walkRoom()
{
    m_result.roomHeaders.append(m_p);
    advance(RoomHeaderSize);
    readLongTable(2, m_result.roomData.emplaceBack());

    const qint16 portals = readShort(m_p);
    advance(2 + shortProduct(32, portals));

    const qint16 sectorsZ = readShort(m_p);
    const qint16 sectorsX = readShort(m_p + 2);
    advance(4 + shortProduct(8, shortProduct(sectorsZ, sectorsX)));

    readShort(m_p); // first ambient intensity, unused
    advance(4);
    if (m_game == Game::TR2)
        advance(2); // light mode

    const qint16 lights = readShort(m_p);
    advance(2 + shortProduct(24, lights));
    const qint16 staticMeshes = readShort(m_p);
    const int staticMeshBytes = shortProduct(20, staticMeshes);
    m_result.roomStaticMeshes.append({m_p, staticMeshes, staticMeshBytes});
    advance(2 + staticMeshBytes);

    advance(4); // alternate room and flags
    if (m_game == Game::TR3)
        advance(3); // water scheme, reverb, filler
}
