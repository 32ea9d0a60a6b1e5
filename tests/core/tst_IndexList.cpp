#include "common/ListViewModel.h"
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
        ListViewModel view;
        view.addRow(QStringLiteral("old"), QStringLiteral("stale row"));
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
};

QTEST_GUILESS_MAIN(tst_IndexList)
#include "tst_IndexList.moc"
