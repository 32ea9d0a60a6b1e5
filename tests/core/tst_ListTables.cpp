#include "list/C_ListInfo.h"
#include "list/ListViewSet.h"
#include "list/tables/TableEditLog.h"
#include "support/ListFixture.h"
#include "support/ScratchDir.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QTest>

// The list's tables as records: what the file holds is what the records
// hold, whatever the views show or how they are sorted; the views follow
// every change to the records; keys are found only as the rows spell them.
class tst_ListTables : public QObject
{
    Q_OBJECT

private slots:
    void aSortedViewLeavesTheSavedBytesAlone();
    void viewsFollowEditsUndosAndRedos();
    void aNumberReachesTheRangesItsDigitsBegin_data();
    void aNumberReachesTheRangesItsDigitsBegin();
    void aRangeWithoutRowsBorrowsFromItsFirst();
    void keysFindRowsOnlyAsSpelt_data();
    void keysFindRowsOnlyAsSpelt();
    void detailKeysMatchOnlyWhenSpeltAlike_data();
    void detailKeysMatchOnlyWhenSpeltAlike();
    void aCornerPastItsTileShowsWhatWasStoredAndSavesItsLowByte();

private:
    QByteArray image(ListViewSet& views, const QString& name);
    ScratchDir m_dir;
};

QByteArray tst_ListTables::image(ListViewSet& views, const QString& name)
{
    C_ListInfo list;
    if (list.InitStandAlone(m_dir.filePath(name), QStringLiteral("C:\\a.bmp"), &views.tables(), 0x2D)
        != C_ListInfo::Success)
        return {};
    return list.ListFileImage();
}

void tst_ListTables::aSortedViewLeavesTheSavedBytesAlone()
{
    ListViewSet views;
    ListFixture::random(300, 4, 3, 20, 3, 5).fill(views);
    const QByteArray before = image(views, QStringLiteral("sorted.trt"));
    QSortFilterProxyModel shown;
    shown.setSourceModel(&views.lsvTextures);
    shown.sort(ObjectTexture::XColumn(1), Qt::DescendingOrder);
    QCOMPARE(shown.data(shown.index(0, 0)).toString(), views.lsvTextures.text(shown.mapToSource(shown.index(0, 0)).row()));
    QVERIFY(shown.mapToSource(shown.index(0, 0)).row() != 0 || shown.mapToSource(shown.index(1, 0)).row() != 1);
    QCOMPARE(image(views, QStringLiteral("sorted.trt")), before);
    QCOMPARE(views.lsvTextures.key(0), QStringLiteral("T0"));
}

void tst_ListTables::viewsFollowEditsUndosAndRedos()
{
    ListViewSet views;
    ListFixture::random(6, 1, 2, 0, 0, 3).fill(views);
    QAbstractItemModelTester tester(&views.lsvTextures, QAbstractItemModelTester::FailureReportingMode::QtTest);
    RecordTable<TextureEntry>& textures = views.tables().textures;
    const std::vector<TextureEntry> original = textures.rows();
    views.lsvTextures.setSelectedRow(4);

    TableEditLog log;
    TextureEntry added = textures.at(2);
    added.number = 40;
    QVERIFY(log.insert(textures, 1, added));
    QVERIFY(log.remove(textures, 3)); // T2, now at 3
    TextureEntry edited = textures.at(0);
    edited.setColumn(ObjectTexture::TileColumn, 9);
    QVERIFY(log.replace(textures, 0, edited));
    QVERIFY(!log.replace(textures, 0, edited)); // no change, no step
    QCOMPARE(views.lsvTextures.key(1), QStringLiteral("T40"));
    QCOMPARE(views.lsvTextures.subItem(0, ObjectTexture::TileColumn), QStringLiteral("9"));
    QCOMPARE(views.lsvTextures.findKey(QStringLiteral("T2")), -1);
    QCOMPARE(views.lsvTextures.selectedRow(), 4); // T4: one row in, one out before it
    const std::vector<TextureEntry> after = textures.rows();

    log.undo();
    QCOMPARE(textures.rows(), original);
    QCOMPARE(views.lsvTextures.selectedRow(), 4);
    log.redo();
    QCOMPARE(textures.rows(), after);
    textures.clear();
    QCOMPARE(views.lsvTextures.selectedRow(), -1);
}

void tst_ListTables::aNumberReachesTheRangesItsDigitsBegin_data()
{
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("other");
    QTest::addColumn<bool>("reaches");
    QTest::newRow("itself") << 10 << 10 << true;
    QTest::newRow("10 reaches 100") << 10 << 100 << true;
    QTest::newRow("10 reaches 109") << 10 << 109 << true;
    QTest::newRow("10 not 11") << 10 << 11 << false;
    QTest::newRow("05 not 50") << 5 << 50 << false;
    QTest::newRow("01 not 10") << 1 << 10 << false;
    QTest::newRow("111 reaches 1110") << 111 << 1110 << true;
    QTest::newRow("100 not 10") << 100 << 10 << false;
}

void tst_ListTables::aNumberReachesTheRangesItsDigitsBegin()
{
    QFETCH(int, asked);
    QFETCH(int, other);
    QFETCH(bool, reaches);
    QCOMPARE(RangeRowFormat::Reaches(asked, other), reaches);
}

void tst_ListTables::aRangeWithoutRowsBorrowsFromItsFirst()
{
    // A range whose texture rows went takes "Number" rows from the first
    // row holding its "First", and a place past the rows saves as 0.
    ListTables tables;
    tables.ranges.assign({{0, 2, 7, true}, {1, 3, 8, true}, {2, 1, 0, false}});
    tables.rangeTextures.assign({{0, 0, 7, true}, {0, 1, 8, true}});
    QCOMPARE(tables.TexturesOfRange(0), (QList<quint16>{7, 8}));
    QCOMPARE(tables.TexturesOfRange(1), (QList<quint16>{8, 0, 0}));
    QCOMPARE(tables.TexturesOfRange(2), (QList<quint16>{0}));
    QCOMPARE(tables.AnimatedTextureWords(), (QList<quint16>{3, 1, 7, 8, 2, 8, 0, 0, 0, 0}));
}

void tst_ListTables::keysFindRowsOnlyAsSpelt_data()
{
    QTest::addColumn<int>("view"); // in the order of ListViewSet::all
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("row");
    QTest::newRow("texture") << 0 << "T12" << 12;
    QTest::newRow("texture, padded") << 0 << "T012" << -1;
    QTest::newRow("texture, lower case") << 0 << "t12" << -1;
    QTest::newRow("texture past the list") << 0 << "T99999999999" << -1;
    QTest::newRow("range") << 1 << "A02" << 2;
    QTest::newRow("range, unpadded") << 1 << "A2" << -1;
    QTest::newRow("sprite") << 3 << "S7" << 7;
    QTest::newRow("sequence") << 4 << "S00002" << 2;
    QTest::newRow("sequence, unpadded") << 4 << "S2" << -1;
    QTest::newRow("no key") << 0 << "" << -1;
}

void tst_ListTables::keysFindRowsOnlyAsSpelt()
{
    QFETCH(int, view);
    QFETCH(QString, key);
    QFETCH(int, row);
    ListViewSet views;
    ListFixture::random(20, 3, 2, 10, 3, 4).fill(views);
    const ListRows& rows = *views.all()[view];
    QCOMPARE(rows.findKey(key), row);
    if (row >= 0)
        QCOMPARE(rows.key(row), key);
}

void tst_ListTables::detailKeysMatchOnlyWhenSpeltAlike_data()
{
    QTest::addColumn<int>("range");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("found");
    QTest::newRow("its own") << 7 << 12 << "A0712" << true;
    QTest::newRow("another range spelt alike") << 101 << 2 << "A1012" << true; // also range 10's place 12
    QTest::newRow("a zero more") << 5 << 3 << "A0053" << false;
    QTest::newRow("a zero less") << 0 << 53 << "A053" << false;
    QTest::newRow("not digits") << 7 << 1 << "A07-1" << false;
    QTest::newRow("lower case") << 7 << 1 << "a071" << false;
    QTest::newRow("no key") << 7 << 1 << "" << false;
}

void tst_ListTables::detailKeysMatchOnlyWhenSpeltAlike()
{
    QFETCH(int, range);
    QFETCH(int, place);
    QFETCH(QString, key);
    QFETCH(bool, found);
    RecordTable<RangeTextureEntry> details;
    details.assign({{range, place, 9, true}});
    QCOMPARE(RangeTextureFormat::Find(details, key) == 0, found);
    QCOMPARE(RangeTextureFormat::Find(details, RangeTextureFormat::Key(range, place)), 0);
}

void tst_ListTables::aCornerPastItsTileShowsWhatWasStoredAndSavesItsLowByte()
{
    ListViewSet views;
    ListFixture::random(2, 0, 0, 0, 0, 1).fill(views);
    TextureEntry kept = views.tables().textures.at(1);
    kept.setColumn(ObjectTexture::YColumn(2), 319);
    views.tables().textures.replace(1, kept);
    QCOMPARE(views.lsvTextures.subItem(1, ObjectTexture::YColumn(2)), QStringLiteral("319"));
    QCOMPARE(views.lsvTextures.subItemNumber(1, ObjectTexture::YColumn(2)), 319);
    const QByteArray saved = image(views, QStringLiteral("edge.trt"));
    ListViewSet reread;
    const QString path = m_dir.write(QStringLiteral("edge.trt"), saved);
    C_ListInfo list;
    QCOMPARE(reread.openList(list, path), C_ListInfo::Success);
    QCOMPARE(reread.lsvTextures.subItem(1, ObjectTexture::YColumn(2)), QStringLiteral("63"));
    QCOMPARE(reread.tables().textures.at(1).record, kept.record);
}

QTEST_GUILESS_MAIN(tst_ListTables)
#include "tst_ListTables.moc"
