#pragma once

#include <QList>
#include <QPair>
#include <QString>

// The twelve table position properties, under their names, of anything that
// has them: a walked level or a list document.
template <class Info>
QList<QPair<QString, qint64>> TablePositionFields(const Info& info)
{
    return {
        {QStringLiteral("OffsetObjectTexture"), info.OffsetObjectTexture()},
        {QStringLiteral("NumberObjectTexture"), info.NumberObjectTexture()},
        {QStringLiteral("SizeObjectTexture"), info.SizeObjectTexture()},
        {QStringLiteral("OffsetSpriteTexture"), info.OffsetSpriteTexture()},
        {QStringLiteral("NumberSpriteTexture"), info.NumberSpriteTexture()},
        {QStringLiteral("SizeSpriteTexture"), info.SizeSpriteTexture()},
        {QStringLiteral("OffsetSpriteSequence"), info.OffsetSpriteSequence()},
        {QStringLiteral("NumberSpriteSequence"), info.NumberSpriteSequence()},
        {QStringLiteral("SizeSpriteSequence"), info.SizeSpriteSequence()},
        {QStringLiteral("OffsetAnimatedTexture"), info.OffsetAnimatedTexture()},
        {QStringLiteral("NumberAnimatedTexture"), info.NumberAnimatedTexture()},
        {QStringLiteral("SizeAnimatedTexture"), info.SizeAnimatedTexture()},
    };
}
