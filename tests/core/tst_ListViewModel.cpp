#include "ListViewModel.h"
#include "m_Code.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>
#include <QTest>

class tst_ListViewModel : public QObject
{
    Q_OBJECT

private:
    static ListViewModel* filled(QObject* parent, const QStringList& texts)
    {
        auto* model = new ListViewModel({QStringLiteral("No"), QStringLiteral("Value")}, parent);
        new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::QtTest, parent);
        for (const QString& text : texts)
            model->addRow(QLatin1Char('K') + text, text, {text + QLatin1Char('v')});
        return model;
    }

    static QStringList texts(const ListViewModel& model)
    {
        QStringList all;
        for (int i = 0; i < model.count(); ++i)
            all.append(model.text(i));
        return all;
    }

private slots:
    // Keys are unique among the rows that have one and stay findable as rows
    // come and go; rows without a key never collide.
    void keys()
    {
        ListViewModel* model = filled(this, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                             QStringLiteral("d")});
        QVERIFY(model->removeAt(1));
        QCOMPARE(model->findKey(QStringLiteral("Kb")), -1);
        QCOMPARE(model->findKey(QStringLiteral("Kc")), 1);
        QCOMPARE(model->findKey(QStringLiteral("Kd")), 2);
        QCOMPARE(model->addRow(QStringLiteral("Ka"), QStringLiteral("again")), -1);
        QCOMPARE(model->addRow(QStringLiteral("Kb"), QStringLiteral("b2")), 3);
        QCOMPARE(model->findKey(QStringLiteral("Kb")), 3);
        QCOMPARE(model->addRow(QString(), QStringLiteral("x")), 4);
        QCOMPARE(model->addRow(QString(), QStringLiteral("y")), 5);
        std::vector<ListViewModel::Row> bulk{{QStringLiteral("Ka"), QStringLiteral("dup"), {}, Qt::Unchecked},
                                             {QStringLiteral("Kn"), QStringLiteral("new"), {}, Qt::Unchecked},
                                             {QStringLiteral("Kn"), QStringLiteral("dup2"), {}, Qt::Unchecked}};
        QCOMPARE(model->appendRows(std::move(bulk)), 1);
        QCOMPARE(model->text(model->findKey(QStringLiteral("Kn"))), QStringLiteral("new"));
        model->clear();
        QCOMPARE(model->count(), 0);
        QCOMPARE(model->findKey(QStringLiteral("Ka")), -1);
    }

    void cellsHeadersAndChecksReachTheView()
    {
        ListViewModel* model = filled(this, {QStringLiteral("a")});
        QCOMPARE(model->columnCount(), 2);
        QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Value"));
        QCOMPARE(model->data(model->index(0, 1)).toString(), QStringLiteral("av"));
        QCOMPARE(model->data(model->index(0, 0), ListViewModel::KeyRole).toString(), QStringLiteral("Ka"));
        model->setSubItem(0, 3, QStringLiteral("far"));
        QCOMPARE(model->subItem(0, 3), QStringLiteral("far"));
        QCOMPARE(model->subItem(0, 2), QString());
        QCOMPARE(model->subItem(5, 1), QString());
        QVERIFY(!model->data(model->index(0, 0), Qt::CheckStateRole).isValid());
        model->setCheckable(true);
        QVERIFY(model->setData(model->index(0, 0), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(model->checkState(0), Qt::Checked);
        QVERIFY(model->flags(model->index(0, 0)) & Qt::ItemIsUserCheckable);
    }

    void selectionFollowsItsRow()
    {
        ListViewModel* model = filled(this, {QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("b")});
        model->setSelectedRow(2);
        model->removeAt(0);
        QCOMPARE(model->text(model->selectedRow()), QStringLiteral("b"));
        m_Code::SortListView(*model, 1, true);
        QCOMPARE(model->text(model->selectedRow()), QStringLiteral("b"));
        model->removeAt(model->selectedRow());
        QCOMPARE(model->selectedRow(), -1);
        model->setSelectedRow(9);
        QCOMPARE(model->selectedRow(), -1);
    }

    void sorting_data()
    {
        QTest::addColumn<int>("header");
        QTest::addColumn<bool>("ascending");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("first column up") << 1 << true << QStringList{"a", "B", "c"};
        QTest::newRow("first column down") << 1 << false << QStringList{"c", "B", "a"};
        // Sub-items "cv", "av", "Bv": the second header sorts by them.
        QTest::newRow("second column") << 2 << true << QStringList{"a", "B", "c"};
    }

    void sorting()
    {
        QFETCH(int, header);
        QFETCH(bool, ascending);
        QFETCH(QStringList, expected);
        ListViewModel* model = filled(this, {QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("B")});
        QPersistentModelIndex tracked(model->index(0, 0)); // "c"
        m_Code::SortListView(*model, header, ascending);
        QCOMPARE(model->sortKey(), header - 1);
        QVERIFY(model->isSorted());
        QCOMPARE(texts(*model), expected);
        QCOMPARE(tracked.data().toString(), QStringLiteral("c"));
        QCOMPARE(model->findKey(QStringLiteral("Kc")), tracked.row());
    }

    void rowsAddedWhileSortedTakeTheirPlace()
    {
        ListViewModel* model = filled(this, {QStringLiteral("0003"), QStringLiteral("0001")});
        m_Code::SortListView(*model, 1, true);
        model->addRow(QStringLiteral("K2"), QStringLiteral("0002"));
        QCOMPARE(texts(*model), (QStringList{"0001", "0002", "0003"}));
        // Resorting after an edit moves the edited row.
        model->setText(0, QStringLiteral("0004"));
        model->setSorted(true);
        QCOMPARE(texts(*model), (QStringList{"0002", "0003", "0004"}));
    }

    void patterns_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("matches");
        QTest::newRow("prefix") << "07-3" << "07*" << true;
        QTest::newRow("prefix too long") << "7" << "07*" << false;
        QTest::newRow("case ignored") << "a073" << "A07*" << true;
        QTest::newRow("exact") << "A07" << "A07" << true;
        QTest::newRow("exact differs") << "A070" << "A07" << false;
        QTest::newRow("star alone") << "" << "*" << true;
        QTest::newRow("inner star") << "abcXdef" << "abc*def" << true;
        QTest::newRow("back-tracking") << "aXbXbc" << "a*bc" << true;
        QTest::newRow("several stars") << "10-4" << "*0*4" << true;
        QTest::newRow("missing tail") << "10-4" << "1*5" << false;
        QTest::newRow("wider numbers match too") << "100" << "10*" << true;
    }

    void patterns()
    {
        QFETCH(QString, text);
        QFETCH(QString, pattern);
        QFETCH(bool, matches);
        QCOMPARE(ListViewModel::matchesPattern(text, pattern), matches);
    }

    void matchingRowsByTextAndKey()
    {
        ListViewModel model;
        model.addRow(QStringLiteral("A070"), QStringLiteral("07-0"));
        model.addRow(QStringLiteral("A010"), QStringLiteral("01-0"));
        model.addRow(QStringLiteral("A071"), QStringLiteral("07-1"));
        QCOMPARE(model.rowsWithTextLike(u"07*"), (QList<int>{0, 2}));
        QCOMPARE(model.rowsWithKeyLike(u"a01*"), (QList<int>{1}));
    }

    void bulkAppendNotifiesOnce()
    {
        ListViewModel model({QStringLiteral("No")});
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        std::vector<ListViewModel::Row> rows;
        for (int i = 0; i < 500; ++i)
            rows.push_back({QStringLiteral("T%1").arg(i), QString::number(i), {}, Qt::Unchecked});
        QCOMPARE(model.appendRows(std::move(rows)), 500);
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(model.findKey(QStringLiteral("T499")), 499);
    }
};

QTEST_GUILESS_MAIN(tst_ListViewModel)
#include "tst_ListViewModel.moc"
