#pragma once

#include "list/tables/ListTables.h"

#include <QStringList>

// Rows put straight into a list's records, as a hand-made or damaged list
// would hold them, and read back by the numbers tests speak of.
struct TableRows
{
    // Appends the texture (sprite) numbered number whose list columns hold
    // the cells' numbers, an empty cell 0; returns its row.
    static int addTexture(ListTables& tables, qint32 number, const QStringList& cells = {});
    static int addSprite(ListTables& tables, qint32 number, const QStringList& cells = {});
    static int addSequence(ListTables& tables, qint32 number, const SpriteSequence& record = {});

    // The number a key such as "T12" or "S00003" names; -1 for none.
    static qint32 numberOf(const QString& key);

    // The textures range number saves, as texts.
    static QStringList texturesOf(const ListTables& tables, qint32 range);
};
