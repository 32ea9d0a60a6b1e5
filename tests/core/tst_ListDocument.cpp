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
        ListViewSet& v = m_document.views();
        switch (m_random.bounded(12)) {
        case 0: return m_document.AddTexture(newRow(v.lsvTextures, u'T', 18));
        case 1: return m_document.EditTexture(anyKey(v.lsvTextures), changed(v.lsvTextures));
        case 2: return m_document.DeleteTexture(anyKey(v.lsvTextures));
        case 3: return m_document.AddSprite(newRow(v.lsvSprites, u'S', 9));
        case 4: return m_document.EditSprite(anyKey(v.lsvSprites), changed(v.lsvSprites));
        case 5: return m_document.DeleteSprite(anyKey(v.lsvSprites));
        case 6: return m_document.AddSequence(newRow(v.lsvSequences, u'S', 3));
        case 7: return m_document.EditSequence(anyKey(v.lsvSequences), changed(v.lsvSequences));
        case 8: return m_document.DeleteSequence(anyKey(v.lsvSequences));
        case 9: return m_document.AddAnimation(freeRangeNumber(), someTextures());
        case 10: return m_document.EditAnimation(v.lsvAnims.text(anyRow(v.lsvAnims)), someTextures());
        default: return m_document.DeleteAnimation(v.lsvAnims.text(anyRow(v.lsvAnims)));
        }
    }

private:
    int anyRow(const ListViewModel& view) { return view.count() ? int(m_random.bounded(view.count())) : -1; }
    QString anyKey(const ListViewModel& view) { return view.key(anyRow(view)); }
    QString number() { return QString::number(m_random.bounded(256)); }

    ListViewModel::Row newRow(const ListViewModel& view, char16_t prefix, int cells)
    {
        const qint64 n = RowKeyNumber::FirstFree(view, QChar(prefix), view.count());
        ListViewModel::Row row{RowKeyNumber::Key(QChar(prefix), n), RowKeyNumber::RowText(n, view.count()), {}};
        for (int i = 0; i < cells; ++i)
            row.subItems << number();
        return row;
    }
    QStringList changed(const ListViewModel& view)
    {
        const int row = anyRow(view);
        QStringList cells = row < 0 ? QStringList() : view.row(row).subItems;
        if (!cells.isEmpty())
            cells[int(m_random.bounded(cells.size()))] = number();
        return cells;
    }
    QString freeRangeNumber()
    {
        int n = m_document.views().lsvAnims.count();
        while (m_document.views().lsvAnims.findKey(u'A' + m_TextureList::AnimationNumberText(n)) >= 0)
            ++n;
        return m_TextureList::AnimationNumberText(n);
    }
    QStringList someTextures()
    {
        QStringList textures;
        for (int i = 0, n = 2 + int(m_random.bounded(3)); i < n; ++i)
            textures << number();
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
    if (list.InitStandAlone(path, QStringLiteral("C:\\a.bmp"), document.views().all(), 0x2D) != C_ListInfo::Success
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
    QTest::newRow("add without a key") << "add";
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
    QVERIFY(document.DeleteTexture(QStringLiteral("T0")));
    document.undoStack()->undo();
    const QList<QStringList> before = ListFixture::viewRows(v);

    bool made = true;
    if (edit == "edit T99")
        made = document.EditTexture(QStringLiteral("T99"), {QStringLiteral("1")});
    else if (edit == "delete S99")
        made = document.DeleteSprite(QStringLiteral("S99"));
    else if (edit == "add T1")
        made = document.AddTexture({QStringLiteral("T1"), QStringLiteral("1"), {QStringLiteral("5")}});
    else if (edit == "add")
        made = document.AddTexture({QString(), QStringLiteral("7"), {QStringLiteral("5")}});
    else if (edit == "edit T1 same")
        made = document.EditTexture(QStringLiteral("T1"), v.lsvTextures.row(1).subItems);
    else if (edit == "delete range 77")
        made = document.DeleteAnimation(QStringLiteral("77"));
    else
        made = document.AddAnimation(QStringLiteral("05"), {});

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
    if (edit == "delete T12")
        QVERIFY(document.DeleteTexture(QStringLiteral("T12")));
    else if (edit == "edit T7")
        QVERIFY(document.EditTexture(QStringLiteral("T7"), {QStringLiteral("3")}));
    else if (edit == "add range")
        QVERIFY(document.AddAnimation(QStringLiteral("02"), {QStringLiteral("4"), QStringLiteral("5")}));
    else
        QVERIFY(document.DeleteAnimation(QStringLiteral("01")));
    QCOMPARE(document.undoStack()->undoText(), text);
}

void tst_ListDocument::modifiedFollowsTheCleanState()
{
    ListDocument document;
    ListFixture::random(5, 0, 0, 0, 0, 3).fill(document.views());
    QSignalSpy modified(&document, &ListDocument::modifiedChanged);
    QVERIFY(document.DeleteTexture(QStringLiteral("T1")));
    QVERIFY(document.DeleteTexture(QStringLiteral("T2")));
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
    QVERIFY(document.AddTexture({QStringLiteral("T9"), QStringLiteral("9"), {}}));
    document.undoStack()->undo();
    QVERIFY(document.isModified());
}

void tst_ListDocument::undoingADeletionPutsTheRowBackInItsPlace()
{
    ListDocument document;
    ListFixture::random(6, 0, 0, 0, 0, 8).fill(document.views());
    ListViewModel& textures = document.views().lsvTextures;
    textures.setSelectedRow(4);
    const ListViewModel::Row third = textures.row(2);
    QVERIFY(document.DeleteTexture(QStringLiteral("T2")));
    QCOMPARE(textures.selectedRow(), 3);
    document.undoStack()->undo();
    QCOMPARE(textures.key(2), QStringLiteral("T2"));
    QCOMPARE(textures.row(2).subItems, third.subItems);
    QCOMPARE(textures.findKey(QStringLiteral("T5")), 5);
    QCOMPARE(textures.selectedRow(), 4);
}

QTEST_GUILESS_MAIN(tst_ListDocument)
#include "tst_ListDocument.moc"
