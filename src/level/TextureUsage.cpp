#include "level/TextureUsage.h"

#include "level/AnimatedTextureBlock.h"
#include "level/BinaryReader.h"
#include "level/GeometryBlocks.h"
#include "level/GeometryCursor.h"
#include "level/ObjectTexture.h"
#include "level/ReadTableRecords.h"
#include "level/SpriteSequence.h"
#include "level/TextureIndexSet.h"
#include "level/WalkedLevelFile.h"

#include <QtEndian>

#include <algorithm>
#include <vector>

namespace {

void readRooms(BinaryReader& reader, const QList<TablePosition>& rooms, TextureIndexSet& polygons,
               TextureIndexSet& sprites, TextureUsage& usage)
{
    for (const TablePosition& room : rooms) {
        const QByteArray data = GeometryBlocks::blockBytes(reader, room);
        GeometryCursor cursor(data);
        cursor.skipList(GeometryCursor::RoomVertexSize);
        cursor.readTextures(GeometryCursor::RectangleSize, GeometryCursor::FaceTextureMask, polygons,
                            usage.roomFaces);
        cursor.readTextures(GeometryCursor::TriangleSize, GeometryCursor::FaceTextureMask, polygons,
                            usage.roomFaces);
        cursor.readTextures(GeometryCursor::SpriteSize, GeometryCursor::SpriteTextureMask, sprites,
                            usage.roomSprites);
    }
}

// The distinct offsets the pointers name inside the mesh data, ascending.
std::vector<quint32> meshOffsets(const QByteArray& pointers, qint64 meshBytes)
{
    std::vector<quint32> offsets;
    for (quint32 offset : GeometryBlocks::meshPointers(pointers)) {
        if (offset < meshBytes)
            offsets.push_back(offset);
    }
    std::sort(offsets.begin(), offsets.end());
    offsets.erase(std::unique(offsets.begin(), offsets.end()), offsets.end());
    return offsets;
}

// One mesh's textured faces, at most limit of them; returns how many it read.
qint64 readMesh(const QByteArray& meshData, quint32 offset, TextureIndexSet& objects, TextureUseCounts& counts,
                qint64 limit)
{
    GeometryCursor cursor(meshData, offset);
    cursor.skip(GeometryCursor::MeshHeaderSize);
    cursor.skipList(GeometryCursor::MeshVertexSize);
    cursor.skipNormals();
    const qint64 rectangles =
        cursor.readTextures(GeometryCursor::RectangleSize, GeometryCursor::FaceTextureMask, objects, counts, limit);
    return rectangles
         + cursor.readTextures(GeometryCursor::TriangleSize, GeometryCursor::FaceTextureMask, objects, counts,
                               limit - rectangles);
}

// Meshes lie side by side in a real level, so their faces together cannot
// outnumber what the mesh data holds at the smallest face size. Pointers into
// the middle of other meshes could make every face be read again and again;
// the reading stops at that bound instead.
void readMeshes(BinaryReader& reader, const LevelWalk::Result& walk, TextureIndexSet& objects,
                TextureUseCounts& counts)
{
    const QByteArray meshData = GeometryBlocks::blockBytes(reader, walk.meshData);
    if (meshData.isEmpty())
        return;
    qint64 faceBudget = GeometryBlocks::meshFaceBudget(meshData);
    for (quint32 offset : meshOffsets(GeometryBlocks::blockBytes(reader, walk.meshPointers), meshData.size())) {
        faceBudget -= readMesh(meshData, offset, objects, counts, faceBudget);
        if (faceBudget <= 0)
            return;
    }
}

// Each sequence covers First .. First + Number - 1, cut to the sprite
// indices. The ranges are merged before they are inserted, so a table of long
// overlapping ranges costs a sort, not one insertion per sprite of every range.
void readSequences(BinaryReader& reader, const TablePosition& table, TextureIndexSet& sprites,
                   TextureUseCounts& ends)
{
    std::vector<std::pair<qint64, qint64>> ranges;
    for (const SpriteSequence& sequence : ReadTableRecords<SpriteSequence>(reader, table)) {
        const qint64 first = qBound<qint64>(0, qint64(sequence.first), TextureIndexSet::Size);
        const qint64 end = qBound<qint64>(0, qint64(sequence.first) + sequence.number(), TextureIndexSet::Size);
        if (first < end) {
            ranges.emplace_back(first, end);
            ends.add(quint16(end - 1));
        }
    }
    std::sort(ranges.begin(), ranges.end());
    qint64 insertedTo = 0;
    for (const auto& [first, end] : ranges) {
        if (end > insertedTo)
            sprites.insertRange(qMax(first, insertedTo), end);
        insertedTo = qMax(insertedTo, end);
    }
}

TextureIndexSet animatedTextures(BinaryReader& reader, const TablePosition& table)
{
    TextureIndexSet animated;
    for (const AnimatedTextureBlock::Range& range : AnimatedTextureBlock::fromTable(reader, table).ranges) {
        for (quint16 texture : range)
            animated.insert(texture);
    }
    return animated;
}

QList<int> unusedTextures(BinaryReader& reader, const TablePosition& table,
                          std::initializer_list<const TextureIndexSet*> used)
{
    const qint64 count = PresentRecordCount(reader, table, ObjectTexture::Size);
    QList<int> unused;
    for (qint64 i = 0; i < count; ++i) {
        if (std::none_of(used.begin(), used.end(), [i](const TextureIndexSet* set) { return set->contains(i); }))
            unused.append(int(i));
    }
    return unused;
}

} // namespace

QString TextureUsage::partialNote() const
{
    if (complete)
        return {};
    if (blocksEnd == 0)
        return QStringLiteral("its blocks could not be followed to their end (it holds %1 bytes)").arg(levelLength);
    return QStringLiteral("the level is cut short: it ends at byte %1 of %2").arg(levelLength).arg(blocksEnd);
}

std::optional<TextureUsage> TextureUsage::ofLevel(const QString& levelPath, FileError* error)
{
    return WalkedLevelFile::read<TextureUsage>(levelPath, error, &TextureUsage::ofWalk);
}

TextureUsage TextureUsage::ofDevice(QIODevice& device, LevelWalk::Game game)
{
    BinaryReader reader(device, 512);
    return ofWalk(device, LevelWalk::walk(reader, game));
}

TextureUsage TextureUsage::ofWalk(QIODevice& device, const LevelWalk::Result& walk)
{
    BinaryReader reader(device, GeometryBlocks::ReadWindow);
    TextureUsage usage;
    TextureIndexSet polygons;
    TextureIndexSet objects;
    TextureIndexSet sprites;
    readRooms(reader, walk.roomData, polygons, sprites, usage);
    readMeshes(reader, walk, objects, usage.meshFaces);
    readSequences(reader, walk.spriteSequence, sprites, usage.sequenceEnds);
    const TextureIndexSet animated = animatedTextures(reader, walk.animatedTexture);

    usage.polygons = polygons.toList();
    usage.objects = objects.toList();
    usage.sprites = sprites.toList();
    usage.unused = unusedTextures(reader, walk.objectTexture, {&polygons, &objects, &animated});
    usage.levelLength = reader.size();
    usage.blocksEnd = walk.complete ? walk.end : 0;
    usage.complete = walk.complete && walk.end <= reader.size();
    return usage;
}
