#include "level/TableCountLimits.h"

namespace {

QString claimBeyond(qint64 claimed, const char* what, qint64 limit)
{
    return QStringLiteral("it claims %1 %2, more than the %3 a level can address")
        .arg(claimed)
        .arg(QLatin1String(what))
        .arg(limit);
}

} // namespace

QString TableCountLimits::excess(const Claims& claims)
{
    if (claims.objectTextures > ObjectTextures)
        return claimBeyond(claims.objectTextures, "object textures", ObjectTextures);
    if (claims.spriteTextures > SpriteTextures)
        return claimBeyond(claims.spriteTextures, "sprite textures", SpriteTextures);
    if (claims.spriteSequences > SpriteSequences)
        return claimBeyond(claims.spriteSequences, "sprite sequences", SpriteSequences);
    const qint64 wordsPresent = qMax<qint64>(0, claims.animationBytesPresent) / 2;
    if (claims.animationWords > wordsPresent) {
        return QStringLiteral("it claims %1 animation words, more than the %2 its bytes can hold")
            .arg(claims.animationWords)
            .arg(wordsPresent);
    }
    return {};
}
