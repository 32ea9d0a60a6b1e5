#include "list/CSmartArray.h"

#include <QSignalSpy>
#include <QTest>

namespace {
enum class Op { Get, Set, Remove };

bool run(CSmartArray& array, Op op, Currency index)
{
    return op == Op::Get   ? array.GetOneItemByIndex(index).isValid()
           : op == Op::Set ? array.SetOneItemByIndex(QStringLiteral("new"), index)
                           : array.RemoveOneItemByIndex(index);
}

QVariantList contents(CSmartArray& array)
{
    QVariantList items;
    for (qint64 index = 1; index <= array.NumberOfItemInArray().toWhole(); ++index)
        items << array.GetOneItemByIndex(index);
    return items;
}

qint64 lastResized(const QSignalSpy& spy) { return spy.last().at(0).value<Currency>().toWhole(); }
QList<QVariantList> emitted(const QSignalSpy& spy) { return spy; }

void fill(CSmartArray& array, const QVariantList& items)
{
    for (const QVariant& item : items)
        QVERIFY(array.AddOneItem(item));
}

const QVariantList abc{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
} // namespace

Q_DECLARE_METATYPE(Op)

class tst_CSmartArray : public QObject
{
    Q_OBJECT
    QObject m_first;
    QObject m_second;

private slots:
    void accepts_data()
    {
        QTest::addColumn<QVariant>("item");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("int") << QVariant(7) << true;
        QTest::newRow("double") << QVariant(2.5) << true;
        QTest::newRow("currency") << QVariant::fromValue(Currency(3)) << true;
        QTest::newRow("text") << QVariant(QStringLiteral("x")) << true;
        QTest::newRow("derived object") << QVariant::fromValue(this) << true;
        QTest::newRow("invalid") << QVariant() << false;
        QTest::newRow("empty text") << QVariant(QString("")) << false;
        QTest::newRow("null object") << QVariant::fromValue<QObject*>(nullptr) << false;
        QTest::newRow("bool") << QVariant(true) << false;
    }
    void accepts()
    {
        QFETCH(QVariant, item);
        QFETCH(bool, accepted);
        CSmartArray array;
        QCOMPARE(array.NumberOfItemInArray().toWhole(), qint64(0));
        fill(array, {QStringLiteral("first")});
        QSignalSpy resized(&array, &CSmartArray::Resized);
        QCOMPARE(array.AddOneItem(item), accepted);
        QCOMPARE(resized.size(), accepted ? 1 : 0);
        QCOMPARE(array.NumberOfItemInArray().toWhole(), qint64(accepted ? 2 : 1));
        QCOMPARE(array.IsValueThere(item), short(accepted ? 2 : -99));
        QCOMPARE(array.SetOneItemByIndex(item, 1), accepted);
        QCOMPARE(array.GetOneItemByIndex(1) == QVariant(QStringLiteral("first")), !accepted);
    }

    // An array holding a, b and c, or one with no items; the index names none.
    void refusedIndex_data()
    {
        QTest::addColumn<Op>("op");
        QTest::addColumn<QString>("setup"); // "abc", "cleared" (stale count 3) or "new"
        QTest::addColumn<Currency>("index");
        QTest::addColumn<int>("exceed"); // what Exceed reports; empty arrays emit Cleared instead
        const std::pair<Op, const char*> ops[]{{Op::Get, "get"}, {Op::Set, "set"}, {Op::Remove, "remove"}};
        for (const auto& [op, name] : ops) {
            QTest::addRow("%s 0", name) << op << "abc" << Currency(0) << 0;
            QTest::addRow("%s count+1", name) << op << "abc" << Currency(4) << 4;
            QTest::addRow("%s 0.5 to even", name) << op << "abc" << Currency::fromScaled(5000) << 0;
            QTest::addRow("%s 3.5 to even", name) << op << "abc" << Currency::fromScaled(35000) << 4;
            QTest::addRow("%s huge", name) << op << "abc" << Currency(70000) << 32767;
            QTest::addRow("%s cleared, stale count", name) << op << "cleared" << Currency(1) << 0;
            QTest::addRow("%s new", name) << op << "new" << Currency(1) << 0;
        }
    }
    void refusedIndex()
    {
        QFETCH(Op, op);
        QFETCH(QString, setup);
        QFETCH(Currency, index);
        QFETCH(int, exceed);
        CSmartArray array;
        if (setup != u"new")
            fill(array, abc);
        if (setup == u"cleared")
            array.ClearArray();
        const bool empty = setup != u"abc";
        QSignalSpy exceeded(&array, &CSmartArray::Exceed);
        QSignalSpy cleared(&array, &CSmartArray::Cleared);
        QVERIFY(!run(array, op, index));
        QCOMPARE(emitted(cleared), empty ? QList<QVariantList>{{true}} : QList<QVariantList>{});
        QCOMPARE(emitted(exceeded), empty ? QList<QVariantList>{} : QList<QVariantList>{{qint16(exceed)}});
        QCOMPARE(contents(array), empty ? QVariantList{} : abc);
    }

    void remove_data()
    {
        QTest::addColumn<QVariantList>("items");
        QTest::addColumn<Currency>("index");
        QTest::addColumn<QVariantList>("remaining");
        QTest::newRow("only item") << QVariantList{1} << Currency(1) << QVariantList{};
        QTest::newRow("first of two") << QVariantList{1, 2} << Currency(1) << QVariantList{2};
        QTest::newRow("middle") << abc << Currency(2) << QVariantList{abc[0], abc[2]};
        QTest::newRow("last") << abc << Currency(3) << QVariantList{abc[0], abc[1]};
        QTest::newRow("2.5 to even") << abc << Currency::fromScaled(25000) << QVariantList{abc[0], abc[2]};
        QTest::newRow("1.5 to even") << abc << Currency::fromScaled(15000) << QVariantList{abc[0], abc[2]};
        QTest::newRow("1.5001 rounds up") << abc << Currency::fromScaled(15001) << QVariantList{abc[0], abc[2]};
    }
    void remove()
    {
        QFETCH(QVariantList, items);
        QFETCH(Currency, index);
        QFETCH(QVariantList, remaining);
        CSmartArray array;
        fill(array, items);
        QSignalSpy resized(&array, &CSmartArray::Resized);
        QVERIFY(array.RemoveOneItemByIndex(index));
        QCOMPARE(lastResized(resized), qint64(remaining.size() - 1));
        QCOMPARE(contents(array), remaining);
        QCOMPARE(array.IsValueThere(items.at(index.toWhole() - 1)), short(-99));
    }

    void isValueThere_data()
    {
        QTest::addColumn<QVariant>("probe");
        QTest::addColumn<short>("expected");
        QTest::newRow("first of duplicates") << QVariant(QStringLiteral("a")) << short(1);
        QTest::newRow("number") << QVariant(2) << short(2);
        QTest::newRow("other case") << QVariant(QStringLiteral("A")) << short(-99);
        QTest::newRow("object") << QVariant::fromValue(&m_second) << short(5);
        QTest::newRow("other object") << QVariant::fromValue(&m_first) << short(-99);
        QTest::newRow("invalid vs spare slot") << QVariant() << short(-99);
    }
    void isValueThere()
    {
        QFETCH(QVariant, probe);
        QFETCH(short, expected);
        CSmartArray array;
        fill(array, {QStringLiteral("a"), 2, 2.5, QStringLiteral("a"), QVariant::fromValue(&m_second)});
        QCOMPARE(array.IsValueThere(probe), expected);
        QCOMPARE(array.GetOneItemByIndex(5).value<QObject*>(), &m_second);
    }

    void staleCountAfterClear()
    {
        CSmartArray array;
        fill(array, abc);
        QSignalSpy cleared(&array, &CSmartArray::Cleared);
        QVERIFY(array.ClearArray());
        QCOMPARE(emitted(cleared), QList<QVariantList>{{true}});
        QSignalSpy exceed(&array, &CSmartArray::Exceed);
        QSignalSpy resized(&array, &CSmartArray::Resized);
        QVERIFY(array.AddOneItem(QStringLiteral("x"))); // lands after the old items
        QCOMPARE(lastResized(resized), qint64(3));
        QCOMPARE(contents(array), (QVariantList{{}, {}, {}, QStringLiteral("x")}));
        QCOMPARE(array.IsValueThere(QStringLiteral("x")), short(4));
        QCOMPARE(exceed.size(), 0);
        array.ClearArray();
        QCOMPARE(array.NumberOfItemInArray().toWhole(), qint64(0));
        QVERIFY(array.AddOneItem(QStringLiteral("y")));
        QCOMPARE(array.IsValueThere(QStringLiteral("y")), short(1));
    }

    void scanStopsAtSixteenBits()
    {
        CSmartArray array;
        for (int value = 1; value <= 40000; ++value)
            array.AddOneItem(value);
        QCOMPARE(array.IsValueThere(32767), short(32767));
        QCOMPARE(array.IsValueThere(32768), short(-99));
    }
};

QTEST_GUILESS_MAIN(tst_CSmartArray)
#include "tst_CSmartArray.moc"
