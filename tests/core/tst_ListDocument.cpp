#include "list/C_ListInfo.h"
#include "list/ListDocument.h"
#include "list/RowKeyNumber.h"
#include "list/m_TextureList.h"
#include "support/ListFixture.h"
#include "support/ScratchDir.h"

#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QUndoStack>

// The list document's edits as entries of its undo stack: whatever run of
// edits is made, taking all of it back gives the list that was opened, byte
// for byte once saved, and making it again gives the edited list.
class tst_ListDocument : public QObject
{
    Q_OBJECT

private slots:
    void randomEditsUndoToTheOriginalAndRedoToTheEdit_data();
    void randomEditsUndoToTheOriginalAndRedoToTheEdit();
    void failedEditsPushNothing_data();
    void failedEditsPushNothing();
    void commandTextsNameTheRow_data();
    void commandTextsNameTheRow();
    void modifiedFollowsTheCleanState();
    void undoingADeletionPutsTheRowBackInItsPlace();

private:
    ScratchDir m_dir;
    int m_saves = 0;
    QByteArray save(ListDocument& document);
};

namespace {

// One random edit through the document; false when the document refused it.
class RandomEditor
{
public:
    RandomEditor(ListDocument& document, quint32 seed) : m_document(document), m_random(seed) {}

    bool edit()
    {
        ListTables& t = m_document.tables();
        switch (m_random.bounded(12)) {
        case 0: return m_document.AddTexture(newEntry<TextureEntry>(t.textures));
        case 1: return m_document.EditTexture(anyNumber(t.textures), changed(t.textures));
        case 2: return m_document.DeleteTexture(anyNumber(t.textures));
        case 3: return m_document.AddSprite(newEntry<SpriteTextureEntry>(t.sprites));
        case 4: return m_document.EditSprite(anyNumber(t.sprites), changed(t.sprites));
        case 5: return m_document.DeleteSprite(anyNumber(t.sprites));
        case 6: return m_document.AddSequence({someSequence(), qint32(RowKeyNumber::FirstFree(t.sequences, t.sequences.count()))});
        case 7: return m_document.EditSequence(anyNumber(t.sequences), someSequence());
        case 8: return m_document.DeleteSequence(anyNumber(t.sequences));
        case 9: return m_document.AddAnimation(qint32(RowKeyNumber::FirstFree(t.ranges, t.ranges.count())), someTextures());
        case 10: return m_document.EditAnimation(anyNumber(t.ranges), someTextures());
        default: return m_document.DeleteAnimation(anyNumber(t.ranges));
        }
    }

private:
    template <class Entry>
    int anyRow(const RecordTable<Entry>& table) { return table.count() ? int(m_random.bounded(table.count())) : -1; }
    template <class Entry>
    qint32 anyNumber(const RecordTable<Entry>& table)
    {
        const int row = anyRow(table);
        return row < 0 ? -1 : table.at(row).number;
    }
    int number() { return int(m_random.bounded(256)); }

    template <class Entry>
    Entry newEntry(const RecordTable<Entry>& table)
    {
        const qint64 n = RowKeyNumber::FirstFree(table, table.count());
        Entry entry{{}, qint32(n), RowKeyNumber::Width(n, table.count())};
        for (int column = 1; column <= decltype(entry.record)::ColumnCount; ++column)
            entry.record.setColumn(column, number());
        return entry;
    }
    template <class Entry>
    decltype(Entry::record) changed(const RecordTable<Entry>& table)
    {
        const int row = anyRow(table);
        auto record = row < 0 ? decltype(Entry::record){} : table.at(row).record;
        record.setColumn(1 + int(m_random.bounded(decltype(Entry::record)::ColumnCount)), number());
        return record;
    }
    SpriteSequence someSequence()
    {
        SpriteSequence sequence;
        sequence.setNumber(1 + number() % 20);
        sequence.first = qint16(number());
        sequence.objectId = number();
        return sequence;
    }
    QList<quint16> someTextures()
    {
        QList<quint16> textures;
        for (int i = 0, n = 2 + int(m_random.bounded(3)); i < n; ++i)
            textures << quint16(number());
        return textures;
    }

    ListDocument& m_document;
    QRandomGenerator m_random;
};

} // namespace

QByteArray tst_ListDocument::save(ListDocument& document)
{
    // Each save is a new file: a list file keeps an older, longer tail.
    const QString path = m_dir.filePath(QStringLiteral("save%1.trt").arg(++m_saves));
    C_ListInfo list;
    if (list.InitStandAlone(path, QStringLiteral("C:\\a.bmp"), &document.tables(), 0x2D) != C_ListInfo::Success
        || list.PutAllListContents() != C_ListInfo::Success)
        return {};
    return ScratchDir::read(path);
}

void tst_ListDocument::randomEditsUndoToTheOriginalAndRedoToTheEdit_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("edits");
    QTest::newRow("a few") << 1u << 5;
    QTest::newRow("many") << 2u << 200;
    QTest::newRow("many more") << 3u << 400;
    QTest::newRow("emptied tables") << 4u << 600;
}

void tst_ListDocument::randomEditsUndoToTheOriginalAndRedoToTheEdit()
{
    QFETCH(quint32, seed);
    QFETCH(int, edits);
    ListDocument document;
    ListFixture::random(40, 6, 3, 25, 5, seed).fill(document.views());
    const QByteArray original = save(document);
    QVERIFY(!original.isEmpty());

    RandomEditor editor(document, seed);
    int made = 0;
    for (int i = 0; i < edits; ++i)
        made += editor.edit();
    QCOMPARE(document.undoStack()->count(), made);
    QVERIFY(made > edits / 2);
    const QByteArray edited = save(document);
    QVERIFY(made == 0 || edited != original);

    while (document.undoStack()->canUndo())
        document.undoStack()->undo();
    QCOMPARE(save(document), original);
    QVERIFY(!document.isModified());

    while (document.undoStack()->canRedo())
        document.undoStack()->redo();
    QCOMPARE(save(document), edited);
}

void tst_ListDocument::failedEditsPushNothing_data()
{
    QTest::addColumn<QString>("edit");
    QTest::newRow("edit of a missing texture") << "edit T99";
    QTest::newRow("delete of a missing sprite") << "delete S99";
    QTest::newRow("add with a taken key") << "add T1";
    QTest::newRow("edit that changes nothing") << "edit T1 same";
    QTest::newRow("delete of a missing range") << "delete range 77";
    QTest::newRow("a range of no textures") << "add range";
}

void tst_ListDocument::failedEditsPushNothing()
{
    QFETCH(QString, edit);
    ListDocument document;
    ListFixture::random(3, 1, 2, 2, 1, 9).fill(document.views());
    ListViewSet& v = document.views();
    // One edit undone: a refused edit must leave it to redo.
    QVERIFY(document.DeleteTexture(0));
    document.undoStack()->undo();
    const QList<QStringList> before = ListFixture::viewRows(v);

    bool made = true;
    if (edit == "edit T99")
        made = document.EditTexture(99, ObjectTexture{});
    else if (edit == "delete S99")
        made = document.DeleteSprite(99);
    else if (edit == "add T1")
        made = document.AddTexture(TextureEntry{{}, 1, 1});
    else if (edit == "edit T1 same")
        made = document.EditTexture(1, document.tables().textures.at(1).record);
    else if (edit == "delete range 77")
        made = document.DeleteAnimation(77);
    else
        made = document.AddAnimation(5, {});

    QVERIFY(!made);
    QCOMPARE(ListFixture::viewRows(v), before);
    QCOMPARE(document.undoStack()->count(), 1);
    QVERIFY(document.undoStack()->canRedo());
    QVERIFY(!document.isModified());
}

void tst_ListDocument::commandTextsNameTheRow_data()
{
    QTest::addColumn<QString>("edit");
    QTest::addColumn<QString>("text");
    QTest::newRow("texture deleted") << "delete T12" << "Delete Texture 0012";
    QTest::newRow("texture edited") << "edit T7" << "Edit Texture 0007";
    QTest::newRow("range built") << "add range" << "Add Animation 02";
    QTest::newRow("range deleted") << "delete range" << "Delete Animation 01";
}

void tst_ListDocument::commandTextsNameTheRow()
{
    QFETCH(QString, edit);
    QFETCH(QString, text);
    ListDocument document;
    ListFixture::random(1200, 2, 2, 4, 1, 5).fill(document.views());
    if (edit == "delete T12") {
        QVERIFY(document.DeleteTexture(12));
    } else if (edit == "edit T7") {
        ObjectTexture changed = document.tables().textures.at(7).record;
        changed.setColumn(ObjectTexture::TileColumn, changed.tile() + 1);
        QVERIFY(document.EditTexture(7, changed));
    } else if (edit == "add range") {
        QVERIFY(document.AddAnimation(2, {4, 5}));
    } else {
        QVERIFY(document.DeleteAnimation(1));
    }
    QCOMPARE(document.undoStack()->undoText(), text);
}

void tst_ListDocument::modifiedFollowsTheCleanState()
{
    ListDocument document;
    ListFixture::random(5, 0, 0, 0, 0, 3).fill(document.views());
    QSignalSpy modified(&document, &ListDocument::modifiedChanged);
    QVERIFY(document.DeleteTexture(1));
    QVERIFY(document.DeleteTexture(2));
    document.markSaved();
    document.undoStack()->undo();
    document.undoStack()->redo();
    QCOMPARE(modified.size(), 4);
    QCOMPARE(modified.takeFirst().at(0).toBool(), true);
    QCOMPARE(modified.takeFirst().at(0).toBool(), false);
    QCOMPARE(modified.takeFirst().at(0).toBool(), true);
    QCOMPARE(modified.takeFirst().at(0).toBool(), false);
    // Back past the saved state and on to a new edit: the saved state is gone.
    document.undoStack()->undo();
    QVERIFY(document.AddTexture(TextureEntry{{}, 9, 1}));
    document.undoStack()->undo();
    QVERIFY(document.isModified());
}

void tst_ListDocument::undoingADeletionPutsTheRowBackInItsPlace()
{
    ListDocument document;
    ListFixture::random(6, 0, 0, 0, 0, 8).fill(document.views());
    ListRows& textures = document.views().lsvTextures;
    textures.setSelectedRow(4);
    const ListRows::Row third = textures.row(2);
    QVERIFY(document.DeleteTexture(2));
    QCOMPARE(textures.selectedRow(), 3);
    document.undoStack()->undo();
    QCOMPARE(textures.key(2), QStringLiteral("T2"));
    QCOMPARE(textures.row(2).subItems, third.subItems);
    QCOMPARE(textures.findKey(QStringLiteral("T5")), 5);
    QCOMPARE(textures.selectedRow(), 4);
}

QTEST_GUILESS_MAIN(tst_ListDocument)
#include "tst_ListDocument.moc"
