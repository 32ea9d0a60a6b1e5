// Reads the texture usage of arbitrary bytes as a level of either game.
// Besides crashes, hangs and sanitizer reports it aborts on a usage that
// breaks what its readers rely on: every list ascending without repeats,
// face textures within 15 bits, and no unused texture that something uses.

#include "level/TextureUsage.h"

#include <QBuffer>
#include <QByteArray>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void requireAscending(const QList<int>& indices, int limit)
{
    require(std::adjacent_find(indices.begin(), indices.end(), std::greater_equal<int>()) == indices.end());
    require(indices.isEmpty() || (indices.first() >= 0 && indices.last() <= limit));
}

bool disjoint(const QList<int>& a, const QList<int>& b)
{
    QList<int> both;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(both));
    return both.isEmpty();
}

void check(const TextureUsage& usage, qint64 size)
{
    requireAscending(usage.polygons, 0x7FFF);
    requireAscending(usage.objects, 0x7FFF);
    requireAscending(usage.sprites, 0xFFFF);
    requireAscending(usage.unused, int(size / 20)); // an object texture record is 20 bytes
    require(disjoint(usage.unused, usage.polygons) && disjoint(usage.unused, usage.objects));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::ReadOnly))
        return 0;
    for (LevelWalk::Game game : {LevelWalk::Game::TR2, LevelWalk::Game::TR3})
        check(TextureUsage::ofDevice(buffer, game), qint64(size));
    return 0;
}
