#include "list/rows/IndexRows.h"
#include "list/m_IndexList.h"

#include <QTest>

class tst_IndexList : public QObject
{
    Q_OBJECT

private slots:
    void fill_data()
    {
        QTest::addColumn<qint64>("count");
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<bool>("withNoneAll");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("objects") << qint64(3) << "T" << true << QStringList{"None", "All", "T1", "T2", "T3"}
                                 << QStringList{"None", "All", "1", "2", "3"};
        QTest::newRow("available textures") << qint64(3) << "A" << false << QStringList{"A1", "A2", "A3"}
                                            << QStringList{"1", "2", "3"};
        QTest::newRow("no sprites") << qint64(0) << "S" << true << QStringList{"None", "All"}
                                    << QStringList{"None", "All"};
        QTest::newRow("negative count") << qint64(-2) << "A" << false << QStringList{} << QStringList{};
    }

    void fill()
    {
        QFETCH(qint64, count);
        QFETCH(QString, prefix);
        QFETCH(bool, withNoneAll);
        QFETCH(QStringList, keys);
        QFETCH(QStringList, texts);
        IndexRows view;
        m_IndexList::FillIndexList(2, view, QStringLiteral("Q"), !withNoneAll); // a list filled before
        m_IndexList::FillIndexList(count, view, prefix, withNoneAll);
        QStringList gotKeys, gotTexts;
        for (int i = 0; i < view.count(); ++i) {
            gotKeys.append(view.key(i));
            gotTexts.append(view.text(i));
            // Checklists start all ticked; the plain index lists unticked.
            QCOMPARE(view.checkState(i), withNoneAll ? Qt::Checked : Qt::Unchecked);
        }
        QCOMPARE(gotKeys, keys);
        QCOMPARE(gotTexts, texts);
    }

    // A resize ends where a fill to the new count would, with the rows kept
    // keeping their ticks.
    void resize_data()
    {
        QTest::addColumn<qint64>("from");
        QTest::addColumn<qint64>("to");
        QTest::addColumn<bool>("withNoneAll");
        QTest::newRow("one more") << qint64(5) << qint64(6) << true;
        QTest::newRow("two fewer") << qint64(5) << qint64(3) << true;
        QTest::newRow("to none") << qint64(2) << qint64(0) << true;
        QTest::newRow("plain list grows") << qint64(1) << qint64(4) << false;
        QTest::newRow("empty list filled") << qint64(-1) << qint64(3) << true;
    }

    void resize()
    {
        QFETCH(qint64, from);
        QFETCH(qint64, to);
        QFETCH(bool, withNoneAll);
        IndexRows view, filled;
        if (from >= 0)
            m_IndexList::FillIndexList(from, view, QStringLiteral("T"), withNoneAll);
        const int untickedRow = withNoneAll ? 2 : 0;
        if (from > 0)
            view.setCheckState(untickedRow, Qt::PartiallyChecked); // a mark of the user's
        m_IndexList::ResizeIndexList(to, view, QStringLiteral("T"), withNoneAll);
        m_IndexList::FillIndexList(to, filled, QStringLiteral("T"), withNoneAll);
        QCOMPARE(view.count(), filled.count());
        for (int i = 0; i < view.count(); ++i) {
            QCOMPARE(view.key(i), filled.key(i));
            QCOMPARE(view.text(i), filled.text(i));
            const bool marked = from > 0 && to > 0 && i == untickedRow;
            QCOMPARE(view.checkState(i), marked ? Qt::PartiallyChecked : filled.checkState(i));
        }
    }

    // The numbers ticked rows stand for: a checklist's "None" and "All" are
    // no numbers, and what is ticked is told in row order.
    void tickedNumbers_data()
    {
        QTest::addColumn<bool>("withNoneAll");
        QTest::addColumn<QList<int>>("untick"); // rows
        QTest::addColumn<QList<qint32>>("ticked");
        QTest::newRow("checklist, all ticked") << true << QList<int>{} << QList<qint32>{1, 2, 3, 4};
        QTest::newRow("markers unticked") << true << QList<int>{0, 1} << QList<qint32>{1, 2, 3, 4};
        QTest::newRow("first and last unticked") << true << QList<int>{2, 5} << QList<qint32>{2, 3};
        QTest::newRow("every number unticked") << true << QList<int>{2, 3, 4, 5} << QList<qint32>{};
        QTest::newRow("plain list, ticked by hand") << false << QList<int>{} << QList<qint32>{};
    }

    void tickedNumbers()
    {
        QFETCH(bool, withNoneAll);
        QFETCH(QList<int>, untick);
        QFETCH(QList<qint32>, ticked);
        IndexRows view;
        m_IndexList::FillIndexList(4, view, QStringLiteral("T"), withNoneAll);
        for (int row : untick)
            view.setCheckState(row, Qt::Unchecked);
        for (int row = 0; row < view.count(); ++row) {
            // A row's number is what its text and key spell.
            const qint32 number = view.number(row);
            QCOMPARE(number > 0 ? QString::number(number) : view.text(row), view.text(row));
            QCOMPARE(view.findKey(QStringLiteral("T%1").arg(number)), number > 0 ? row : -1);
        }
        QCOMPARE(view.number(view.count()), 0);
        const std::vector<qint32> got = view.tickedNumbers();
        QCOMPARE(QList<qint32>(got.begin(), got.end()), ticked);
        if (!withNoneAll) {
            view.setCheckState(3, Qt::Checked);
            view.setCheckState(0, Qt::PartiallyChecked); // not a tick
            QCOMPARE(view.tickedNumbers(), std::vector<qint32>{4});
        }
    }
};

QTEST_GUILESS_MAIN(tst_IndexList)
#include "tst_IndexList.moc"
