#include "render/ListTextures.h"

#include "list/ListDocument.h"

ListTextures ListTextures::of(const ListDocument& document)
{
    const ListTables& tables = document.tables();
    ListTextures read;
    read.textures.reserve(tables.textures.count());
    for (const TextureEntry& entry : tables.textures.rows())
        read.textures.append(entry.record);
    read.ranges = tables.TexturesOfRanges();
    return read;
}

QList<int> ListTextures::shownAt(qint64 frame) const
{
    QList<int> shown(textures.size());
    for (int t = 0; t < shown.size(); ++t)
        shown[t] = t;
    for (const AnimatedTextureBlock::Range& range : ranges) {
        const qsizetype n = range.size();
        for (qsizetype i = 0; i < n; ++i) {
            if (range[i] < shown.size())
                shown[range[i]] = range[(i + frame) % n];
        }
    }
    return shown;
}
