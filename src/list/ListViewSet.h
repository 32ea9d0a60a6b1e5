#pragma once

#include "list/tables/ListTables.h"
#include "list/tables/RangeRowFormat.h"
#include "list/tables/RangeTextureFormat.h"
#include "list/tables/RecordRowsModel.h"
#include "list/tables/SequenceRowFormat.h"
#include "list/tables/SpriteRowFormat.h"
#include "list/tables/TextureRowFormat.h"

#include <QObject>

#include <memory>

class C_ListInfo;

// The six content list views of an open list, each a window onto the list's
// records: object textures, animation ranges and their textures, sprite
// textures, sprite sequences and the sequence details (the sequences again).
// The records belong to the list document; a set made without one keeps
// records of its own, to read a list outside the editor.
class ListViewSet : public QObject
{
    Q_OBJECT

public:
    explicit ListViewSet(QObject* parent = nullptr);
    explicit ListViewSet(ListTables& tables, QObject* parent = nullptr);
    ~ListViewSet() override;

private:
    ListViewSet(std::unique_ptr<ListTables> own, QObject* parent);

    std::unique_ptr<ListTables> m_ownTables;
    ListTables& m_tables;

public:
    RecordRowsModel<TextureRowFormat> lsvTextures;
    RecordRowsModel<RangeRowFormat> lsvAnims;
    RecordRowsModel<RangeTextureFormat> lsvAnimDetails;
    RecordRowsModel<SpriteRowFormat> lsvSprites;
    RecordRowsModel<SequenceRowFormat> lsvSequences;
    RecordRowsModel<SequenceRowFormat> lsvSequenceDetails;

    ListTables& tables() { return m_tables; }
    const ListTables& tables() const { return m_tables; }

    void clear();

    // Gives list these views' records: with a level, for a new list made
    // from it (nothing is read or written yet); without one, the list file
    // is read.
    qint16 initList(C_ListInfo& list, const QString& listPath, const QString& levelPath = {},
                    const QString& bitmapPath = {});
    // Opens an existing list file into these views' records.
    qint16 openList(C_ListInfo& list, const QString& listPath);

    // The views in the order the list document takes them.
    QList<ListRows*> all();

    static QStringList animColumns();       // "No", "Number", "First"
    static QStringList animDetailColumns(); // "No", "Texture #"
};
