#include "render/ListTextures.h"

#include "list/ListDocument.h"
#include "list/m_TextureList.h"

ListTextures ListTextures::of(const ListDocument& document)
{
    const ListViewSet& views = document.views();
    ListTextures read;
    read.textures.reserve(views.lsvTextures.count());
    for (int row = 0; row < views.lsvTextures.count(); ++row)
        read.textures.append(m_TextureList::ObjectTextureOfRow(views.lsvTextures, row));
    const QList<quint16> words = m_TextureList::AnimatedTextureWords(views.lsvAnims, views.lsvAnimDetails);
    read.ranges = AnimatedTextureBlock::fromWords(words.constData(), words.size()).ranges;
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
