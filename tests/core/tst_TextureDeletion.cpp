#include "list/ListDocument.h"
#include "list/m_TextureList.h"
#include "support/ListFixture.h"

#include <QTest>
#include <QUndoStack>

using Ranges = QList<QList<quint16>>;

// Deleting an object texture moves every later texture down one place in the
// level: the animation ranges follow their textures in the same undoable
// step, and lose, or are removed with, the texture that went.
class tst_TextureDeletion : public QObject
{
    Q_OBJECT

private slots:
    void rangesFollowTheirTextures_data();
    void rangesFollowTheirTextures();
    void rangesPastTheListRefuseTheDelete_data();
    void rangesPastTheListRefuseTheDelete();

private:
    // A document of count textures and the given ranges.
    static void Fill(ListDocument& document, int count, const Ranges& ranges);
    // The ranges as the list saves them.
    static Ranges SavedRanges(const ListDocument& document);
};

void tst_TextureDeletion::Fill(ListDocument& document, int count, const Ranges& ranges)
{
    ListFixture fixture = ListFixture::random(count, 0, 0, 4, 1, 7);
    for (const QList<quint16>& range : ranges)
        fixture.animations.ranges.append(range);
    fixture.fill(document.views());
}

Ranges tst_TextureDeletion::SavedRanges(const ListDocument& document)
{
    const QList<quint16> words = document.tables().AnimatedTextureWords();
    return AnimatedTextureBlock::fromWords(words.constData(), words.size()).ranges;
}

void tst_TextureDeletion::rangesFollowTheirTextures_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<Ranges>("ranges");
    QTest::addColumn<int>("deleted");
    QTest::addColumn<Ranges>("after");
    QTest::addColumn<QStringList>("shortened");
    QTest::addColumn<QStringList>("removed");
    QTest::newRow("before every range") << 10 << Ranges{{3, 4, 5}, {7, 8}} << 1 << Ranges{{2, 3, 4}, {6, 7}}
                                        << QStringList{} << QStringList{};
    QTest::newRow("in the middle, ranges on both sides")
        << 12 << Ranges{{0, 1}, {5, 6, 7}, {2, 9}} << 3 << Ranges{{0, 1}, {4, 5, 6}, {2, 8}} << QStringList{}
        << QStringList{};
    QTest::newRow("after every range") << 10 << Ranges{{0, 1}} << 9 << Ranges{{0, 1}} << QStringList{}
                                       << QStringList{};
    QTest::newRow("a frame inside a range") << 10 << Ranges{{2, 5, 9}, {6, 7}} << 5 << Ranges{{2, 8}, {5, 6}}
                                            << QStringList{"00"} << QStringList{};
    QTest::newRow("the first frame of a range") << 10 << Ranges{{4, 6, 8}} << 4 << Ranges{{5, 7}}
                                                << QStringList{"00"} << QStringList{};
    QTest::newRow("a range left with one frame goes")
        << 10 << Ranges{{1, 2}, {6, 7}, {0, 3}} << 2 << Ranges{{5, 6}, {0, 2}} << QStringList{}
        << QStringList{"00"};
    QTest::newRow("a range of one texture repeated goes") << 10 << Ranges{{4, 4, 4}, {5, 6}} << 4
                                                          << Ranges{{4, 5}} << QStringList{} << QStringList{"00"};
    QTest::newRow("several ranges lose it") << 10 << Ranges{{1, 3, 5}, {2, 3}, {4, 3, 9}} << 3
                                            << Ranges{{1, 4}, {3, 8}} << QStringList{"00", "02"}
                                            << QStringList{"01"};
}

void tst_TextureDeletion::rangesFollowTheirTextures()
{
    QFETCH(int, count);
    QFETCH(Ranges, ranges);
    QFETCH(int, deleted);
    QFETCH(Ranges, after);
    QFETCH(QStringList, shortened);
    QFETCH(QStringList, removed);
    ListDocument document;
    Fill(document, count, ranges);
    QCOMPARE(SavedRanges(document), ranges);
    const QList<QStringList> before = ListFixture::viewRows(document.views());
    ListRows& textures = document.views().lsvTextures;
    const QString key = textures.key(deleted);

    DeleteTextureCommand::Outcome outcome;
    QVERIFY(document.DeleteTexture(document.views().lsvTextures.entry(deleted).number, &outcome));
    QCOMPARE(textures.count(), count - 1);
    QCOMPARE(textures.findKey(key), -1);
    QCOMPARE(SavedRanges(document), after);
    QCOMPARE(outcome.shortened, shortened);
    QCOMPARE(outcome.removed, removed);
    QVERIFY(outcome.refusal.isEmpty());
    QCOMPARE(document.undoStack()->count(), 1);

    // One step back restores rows, ranges and numbers exactly; one forward
    // makes the same edit again.
    const QList<QStringList> edited = ListFixture::viewRows(document.views());
    document.undoStack()->undo();
    QCOMPARE(ListFixture::viewRows(document.views()), before);
    document.undoStack()->redo();
    QCOMPARE(ListFixture::viewRows(document.views()), edited);
}

void tst_TextureDeletion::rangesPastTheListRefuseTheDelete_data()
{
    QTest::addColumn<Ranges>("ranges");
    QTest::addColumn<QString>("said");
    QTest::newRow("one frame past the end") << Ranges{{1, 2}, {3, 40}} << "range 01 names texture 40";
    QTest::newRow("the count itself") << Ranges{{10, 2}} << "range 00 names texture 10";
}

void tst_TextureDeletion::rangesPastTheListRefuseTheDelete()
{
    QFETCH(Ranges, ranges);
    QFETCH(QString, said);
    ListDocument document;
    Fill(document, 10, ranges);
    const QList<QStringList> before = ListFixture::viewRows(document.views());
    DeleteTextureCommand::Outcome outcome;
    QVERIFY(!document.DeleteTexture(0, &outcome));
    QVERIFY2(outcome.refusal.startsWith(QLatin1String("Nothing was deleted: ")) && outcome.refusal.contains(said),
             qPrintable(outcome.refusal));
    QCOMPARE(ListFixture::viewRows(document.views()), before);
    QCOMPARE(document.undoStack()->count(), 0);
}

QTEST_MAIN(tst_TextureDeletion)
#include "tst_TextureDeletion.moc"
