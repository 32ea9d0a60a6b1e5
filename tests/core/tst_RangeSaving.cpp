#include "list/C_ListInfo.h"
#include "list/ListDocument.h"
#include "list/m_TextureList.h"
#include "support/ListFixture.h"
#include "support/ScratchDir.h"

#include <QTest>

using Ranges = QList<QList<quint16>>;

// What a list saves of its animation ranges is what the ranges hold, read
// back from the file: an edited range keeps its "Number" and "First" cells
// while other ranges exist, yet saves the textures it was given.
class tst_RangeSaving : public QObject
{
    Q_OBJECT

private slots:
    void savedRangesAreTheEditedOnes_data();
    void savedRangesAreTheEditedOnes();

private:
    // The ranges of the list saved from document and opened again.
    Ranges SavedAndReopened(ListDocument& document);

    ScratchDir m_dir;
    int m_saves = 0;
};

Ranges tst_RangeSaving::SavedAndReopened(ListDocument& document)
{
    const QString path = m_dir.filePath(QStringLiteral("ranges%1.trt").arg(++m_saves));
    C_ListInfo saved;
    if (saved.InitStandAlone(path, QStringLiteral("C:\\a.bmp"), &document.tables(), 0x2D) != C_ListInfo::Success
        || saved.PutAllListContents() != C_ListInfo::Success)
        return {};
    ListViewSet reopened;
    C_ListInfo read;
    if (reopened.openList(read, path) != C_ListInfo::Success)
        return {};
    Ranges ranges;
    for (int row = 0; row < reopened.tables().ranges.count(); ++row)
        ranges.append(reopened.tables().TexturesOfRange(row));
    return ranges;
}

void tst_RangeSaving::savedRangesAreTheEditedOnes_data()
{
    QTest::addColumn<Ranges>("ranges");
    QTest::addColumn<QString>("edited"); // "" for none
    QTest::addColumn<QList<quint16>>("textures");
    QTest::addColumn<Ranges>("saved");
    QTest::newRow("first of two, a new first texture")
        << Ranges{{3, 4, 5}, {7, 8}} << "00" << QList<quint16>{9, 4, 5, 6} << Ranges{{9, 4, 5, 6}, {7, 8}};
    QTest::newRow("last of three, shorter")
        << Ranges{{1, 2}, {3, 4}, {5, 6, 7}} << "02" << QList<quint16>{6, 7} << Ranges{{1, 2}, {3, 4}, {6, 7}};
    QTest::newRow("same first, longer")
        << Ranges{{1, 2}, {3, 4}} << "01" << QList<quint16>{3, 4, 0} << Ranges{{1, 2}, {3, 4, 0}};
    QTest::newRow("the only one") << Ranges{{1, 2}} << "00" << QList<quint16>{8, 9, 2} << Ranges{{8, 9, 2}};
    QTest::newRow("unedited ranges sharing a first texture")
        << Ranges{{5, 6, 7}, {5, 8}} << "" << QList<quint16>{} << Ranges{{5, 6, 7}, {5, 8}};
    QTest::newRow("edited to start as another range does")
        << Ranges{{2, 3}, {5, 6}} << "01" << QList<quint16>{2, 9, 9} << Ranges{{2, 3}, {2, 9, 9}};
}

void tst_RangeSaving::savedRangesAreTheEditedOnes()
{
    QFETCH(Ranges, ranges);
    QFETCH(QString, edited);
    QFETCH(QList<quint16>, textures);
    QFETCH(Ranges, saved);
    ListDocument document;
    ListFixture fixture = ListFixture::random(12, 0, 0, 2, 1, 5);
    fixture.animations.ranges = ranges;
    fixture.fill(document.views());
    ListRows& anims = document.views().lsvAnims;
    const QList<QStringList> before = ListFixture::viewRows(document.views());

    if (!edited.isEmpty()) {
        const int row = anims.findKey(u'A' + edited);
        const QStringList summary = anims.row(row).subItems;
        QVERIFY(document.EditAnimation(edited.toInt(), textures));
        // The summary row shows the new range only when it is the list's one.
        const QStringList refreshed{QString::number(textures.size()), QString::number(textures.first())};
        QCOMPARE(anims.row(row).subItems, anims.count() == 1 ? refreshed : summary);
    }
    QCOMPARE(SavedAndReopened(document), saved);

    // Undone, the list saves what it was opened with.
    document.undoStack()->undo();
    QCOMPARE(ListFixture::viewRows(document.views()), before);
    QCOMPARE(SavedAndReopened(document), ranges);
}

QTEST_MAIN(tst_RangeSaving)
#include "tst_RangeSaving.moc"
