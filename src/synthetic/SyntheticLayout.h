#pragma once

#include "synthetic/SyntheticField.h"

#include <QList>
#include <QtGlobal>

#include <array>

// Where a synthetic level put its blocks: the position of every count field,
// the start of every room and the length of the whole file. The positions are
// counted while the blocks are laid out, not derived from the counts, so they
// hold even where an overridden count lies about what follows it.
struct SyntheticLayout
{
    std::array<qint64, SyntheticFieldCount> fields{};
    QList<qint64> rooms;
    qint64 length = 0;

    qint64 at(SyntheticField field) const { return fields[size_t(field)]; }

    qint64 objectTexture() const { return at(SyntheticField::ObjectTextures); }
    qint64 spriteTexture() const { return at(SyntheticField::SpriteTextures); }
    qint64 spriteSequence() const { return at(SyntheticField::SpriteSequences); }
    qint64 animatedTexture() const { return at(SyntheticField::AnimatedTextures); }
    qint64 cameras() const { return at(SyntheticField::Cameras); }
    qint64 items() const { return at(SyntheticField::Items); }

    friend bool operator==(const SyntheticLayout&, const SyntheticLayout&) = default;
};
