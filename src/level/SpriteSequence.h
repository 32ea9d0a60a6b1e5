#pragma once

#include <QStringList>
#include <QtGlobal>

// One sprite sequence record, 8 bytes:
//   0 ObjectID (s32)  4 minus the number of sprite textures (s16)  6 First (s16)
// The views show the length positive in their "Number" column.
struct SpriteSequence
{
    static constexpr int Size = 8;

    qint32 objectId = 0;
    qint16 negativeLength = 0;
    qint16 first = 0;

    int number() const { return -int(negativeLength); }
    void setNumber(int n) { negativeLength = static_cast<qint16>(-n); }

    static SpriteSequence fromBytes(const char* data);
    void toBytes(char* data) const;

    // "No", "Number", "First", "ObjectID".
    static const QStringList& headers();

    friend bool operator==(const SpriteSequence&, const SpriteSequence&) = default;
};
