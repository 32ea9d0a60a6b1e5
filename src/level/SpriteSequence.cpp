#include "level/SpriteSequence.h"

#include <QtEndian>

SpriteSequence SpriteSequence::fromBytes(const char* data)
{
    SpriteSequence s;
    s.objectId = qFromLittleEndian<qint32>(data);
    s.negativeLength = qFromLittleEndian<qint16>(data + 4);
    s.first = qFromLittleEndian<qint16>(data + 6);
    return s;
}

void SpriteSequence::toBytes(char* data) const
{
    qToLittleEndian(objectId, data);
    qToLittleEndian(negativeLength, data + 4);
    qToLittleEndian(first, data + 6);
}

const QStringList& SpriteSequence::headers()
{
    static const QStringList names{QStringLiteral("No"), QStringLiteral("Number"),
                                   QStringLiteral("First"), QStringLiteral("ObjectID")};
    return names;
}
