#pragma once

#include "common/ListViewModel.h"

#include <QObject>

class C_ListInfo;

// The six content list views of an open list, with their columns:
// object textures, animation ranges and their textures, sprite textures,
// sprite sequences and the sequence details.
class ListViewSet : public QObject
{
    Q_OBJECT

public:
    explicit ListViewSet(QObject* parent = nullptr);

    ListViewModel lsvTextures;
    ListViewModel lsvAnims;
    ListViewModel lsvAnimDetails;
    ListViewModel lsvSprites;
    ListViewModel lsvSequences;
    ListViewModel lsvSequenceDetails;

    void clear();

    // Gives list these six views: with a level, for a new list made from it
    // (nothing is read or written yet); without one, the list file is read.
    qint16 initList(C_ListInfo& list, const QString& listPath, const QString& levelPath = {},
                    const QString& bitmapPath = {});
    // Opens an existing list file into these views.
    qint16 openList(C_ListInfo& list, const QString& listPath);

    // The views in the order the list document takes them.
    QList<ListViewModel*> all();

    static QStringList animColumns();       // "No", "Number", "First"
    static QStringList animDetailColumns(); // "No", "Texture #"
};
