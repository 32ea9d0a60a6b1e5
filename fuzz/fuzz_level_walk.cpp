// Walks arbitrary bytes as a level. Besides crashes and sanitizer reports it
// aborts on a walk that breaks what the editor relies on: numbers and sizes
// within Long range, positions never negative, a number's sign its size's,
// tables back to back after a complete walk, the same answer whatever the
// reader's window size, and a walk to the tiles finding the tiles the whole
// walk finds.

#include "level/BinaryReader.h"
#include "level/C_LevelInfo.h"
#include "level/LevelWalk.h"

#include <QBuffer>
#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

bool fitsLong(qint64 value)
{
    return value >= std::numeric_limits<qint32>::min() && value <= std::numeric_limits<qint32>::max();
}

// A position is recorded only where its count was read, never below 0.
bool isPosition(qint64 value)
{
    return value >= 0 && fitsLong(value);
}

void requireTableInRange(const TablePosition& table)
{
    require(isPosition(table.offset) && fitsLong(table.number) && fitsLong(table.size));
    require((table.number < 0) == (table.size < 0));
}

void requireInRange(const LevelWalk::Result& walk)
{
    requireTableInRange(walk.objectTexture);
    requireTableInRange(walk.spriteTexture);
    requireTableInRange(walk.spriteSequence);
    requireTableInRange(walk.animatedTexture);
    require(isPosition(walk.offsetCameras) && isPosition(walk.offsetItems));
}

void requireBackToBack(const LevelWalk::Result& walk, LevelWalk::Game game)
{
    if (!walk.complete)
        return;
    require(walk.spriteSequence.offset == walk.spriteTexture.end());
    require(walk.offsetCameras == walk.spriteSequence.end());
    if (game == LevelWalk::Game::TR2) {
        require(walk.spriteTexture.offset == walk.objectTexture.end());
        require(walk.offsetItems == walk.animatedTexture.end());
    } else {
        require(walk.objectTexture.offset == walk.animatedTexture.end());
        require(walk.offsetItems == walk.objectTexture.end());
    }
}

bool sameWalk(const LevelWalk::Result& a, const LevelWalk::Result& b)
{
    return a.objectTexture == b.objectTexture && a.spriteTexture == b.spriteTexture
        && a.spriteSequence == b.spriteSequence && a.animatedTexture == b.animatedTexture
        && a.offsetCameras == b.offsetCameras && a.offsetItems == b.offsetItems
        && a.tileCount == b.tileCount && a.roomCount == b.roomCount
        && a.stateChangePosition == b.stateChangePosition && a.complete == b.complete;
}

LevelWalk::Result walkWithWindow(QBuffer& buffer, LevelWalk::Game game, qint64 window,
                                 LevelWalk::Reach reach = LevelWalk::Reach::End)
{
    BinaryReader reader(buffer, window);
    return LevelWalk::walk(reader, game, 4, reach);
}

bool sameTiles(const LevelWalk::Result& toTiles, const LevelWalk::Result& whole)
{
    return toTiles.tileCountPosition == whole.tileCountPosition && toTiles.tileCount == whole.tileCount
        && toTiles.tiles8Size == whole.tiles8Size && toTiles.tiles16Size == whole.tiles16Size
        && toTiles.roomCountPosition == 0 && !toTiles.complete;
}

// Both games whatever the version says, so the walk itself is explored
// without the fuzzer first having to find a version long.
void walkAsEitherGame(QBuffer& buffer)
{
    for (LevelWalk::Game game : {LevelWalk::Game::TR2, LevelWalk::Game::TR3}) {
        const LevelWalk::Result small = walkWithWindow(buffer, game, 16);
        const LevelWalk::Result large = walkWithWindow(buffer, game, 1 << 16);
        require(sameWalk(small, large));
        require(sameTiles(walkWithWindow(buffer, game, 1 << 16, LevelWalk::Reach::Tiles), large));
        requireInRange(small);
        requireBackToBack(small, game);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return 0;

    C_LevelInfo info;
    info.WalkDevice(buffer);
    requireInRange(info.Walk());
    require(info.FileLength() == qint64(size));

    walkAsEitherGame(buffer);
    return 0;
}
