#pragma once

#include "ListViewModel.h"

#include <QObject>

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

    // The views in the order the list document takes them.
    QList<ListViewModel*> all();

    static QStringList animColumns();       // "No", "Number", "First"
    static QStringList animDetailColumns(); // "No", "Texture #"
};
