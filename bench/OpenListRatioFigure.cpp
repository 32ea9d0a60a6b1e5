#include "OpenListRatioFigure.h"

#include "level/AnimatedTextureBlock.h"
#include "BenchList.h"
#include "level/BinaryReader.h"
#include "list/C_ListInfo.h"
#include "DurationSamples.h"
#include "list/ListViewSet.h"
#include "level/ObjectTexture.h"
#include "level/SpriteSequence.h"
#include "level/SpriteTexture.h"
#include "list/TableRecords.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstdio>

namespace {

QList<quint16> animatedWords(BinaryReader& reader, const C_ListInfo& list)
{
    const QByteArray bytes = reader.bytes(list.OffsetAnimatedTexture() + 4, list.SizeAnimatedTexture());
    QList<quint16> words(bytes.size() / 2);
    for (qsizetype i = 0; i < words.size(); ++i)
        words[i] = qFromLittleEndian<quint16>(bytes.constData() + 2 * i);
    return words;
}

} // namespace

std::optional<double> OpenListRatioFigure::measure()
{
    QTemporaryDir dir;
    if (!BenchList::write(dir, qint64(2) * 1024 * 1024, "open_list_ratio"))
        return std::nullopt;
    const QString path = BenchList::listPath(dir);

    ListViewSet views;
    C_ListInfo list;
    if (views.openList(list, path) != C_ListInfo::Success || views.lsvTextures.count() != BenchList::ObjectTextures
        || decodeRecords(path) != BenchList::ObjectTextures) {
        std::fprintf(stderr, "open_list_ratio: the list does not open whole\n");
        return std::nullopt;
    }

    DurationSamples opens;
    DurationSamples decodes;
    for (int i = 0; i < Repetitions; ++i) {
        opens.time([&] { views.openList(list, path); });
        decodes.time([&] { decodeRecords(path); });
    }
    std::fprintf(stderr, "open_list_ratio: open %.3f ms, decode %.3f ms (medians of %d)\n", opens.median() / 1e6,
                 decodes.median() / 1e6, Repetitions);
    return opens.median() / decodes.median();
}

qsizetype OpenListRatioFigure::decodeRecords(const QString& path)
{
    C_ListInfo list;
    QFile file(path);
    if (list.InitForInsert(path) != C_ListInfo::Success || !file.open(QIODevice::ReadOnly))
        return -1;
    BinaryReader reader(file, 1 << 16);
    const auto table = [](qint64 offset, qint64 number, qint64 size) { return TablePosition{offset, number, size}; };
    const QList<ObjectTexture> objects = ReadTableRecords<ObjectTexture>(
        reader, table(list.OffsetObjectTexture(), list.NumberObjectTexture(), list.SizeObjectTexture()));
    const QList<quint16> words = animatedWords(reader, list);
    const AnimatedTextureBlock animations = AnimatedTextureBlock::fromWords(words.constData(), words.size());
    const QList<SpriteTexture> sprites = ReadTableRecords<SpriteTexture>(
        reader, table(list.OffsetSpriteTexture(), list.NumberSpriteTexture(), list.SizeSpriteTexture()));
    const QList<SpriteSequence> sequences = ReadTableRecords<SpriteSequence>(
        reader, table(list.OffsetSpriteSequence(), list.NumberSpriteSequence(), list.SizeSpriteSequence()));
    const bool whole = animations.ranges.size() == BenchList::Ranges && sprites.size() == BenchList::Sprites
                    && sequences.size() == BenchList::Sequences;
    return whole ? objects.size() : -1;
}
