#include "list/rows/ListViewModel.h"
#include "common/NumberText.h"
#include "common/m_Code.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>
#include <QTest>

#include <memory>

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
        model->sort(0, Qt::AscendingOrder);
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
        model->sort(header - 1, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
        QCOMPARE(model->sortKey(), header - 1);
        QVERIFY(model->isSorted());
        QCOMPARE(texts(*model), expected);
        QCOMPARE(tracked.data().toString(), QStringLiteral("c"));
        QCOMPARE(model->findKey(QStringLiteral("Kc")), tracked.row());
    }

    void rowsAddedWhileSortedTakeTheirPlace()
    {
        ListViewModel* model = filled(this, {QStringLiteral("0003"), QStringLiteral("0001")});
        model->sort(0, Qt::AscendingOrder);
        model->addRow(QStringLiteral("K2"), QStringLiteral("0002"));
        QCOMPARE(texts(*model), (QStringList{"0001", "0002", "0003"}));
        // Resorting after an edit moves the edited row.
        model->setText(0, QStringLiteral("0004"));
        model->setSorted(true);
        QCOMPARE(texts(*model), (QStringList{"0002", "0003", "0004"}));
    }

    void cellTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("twin"); // a text that must stay another key
        QTest::newRow("zero") << "0" << "00";
        QTest::newRow("zero-padded") << "007" << "7";
        QTest::newRow("minus zero") << "-0" << "0";
        QTest::newRow("negative") << "-12" << "12";
        QTest::newRow("widest number") << "4294967295" << "04294967295";
        QTest::newRow("past the widest") << "4294967296" << "4294967297";
        QTest::newRow("too many digits") << "00000000000000000000000000000000001" << "1";
        QTest::newRow("letter") << "T120" << "S120";
        QTest::newRow("letter, padded") << "A0512" << "A512";
        QTest::newRow("letter, negative") << "T-5" << "-5";
        QTest::newRow("other letter") << "\u01C57" << "\u01C87";
        QTest::newRow("dash") << "05-3" << "053";
        QTest::newRow("dash, negative") << "-5-3" << "-53";
        QTest::newRow("dash, letter") << "T05-3" << "T053";
        QTest::newRow("dash at the end") << "5-" << "5";
        QTest::newRow("two dashes") << "5-3-1" << "5-31";
        QTest::newRow("double dash") << "5--3" << "5-3";
        QTest::newRow("plus") << "+5" << "5";
        QTest::newRow("space") << " 5" << "5";
        QTest::newRow("word") << "x" << "y";
        QTest::newRow("exponent") << "1e3" << "1000";
    }

    // Numbers are kept compactly, every other text as it is: either way a
    // cell reads back exactly as written, keys stay apart from their near
    // twins, and a sub-item's number is read as from its text.
    void cellTexts()
    {
        QFETCH(QString, text);
        QFETCH(QString, twin);
        ListViewModel model({QStringLiteral("No"), QStringLiteral("Value")});
        QCOMPARE(model.addRow(text, text, {text}), 0);
        QCOMPARE(model.addRow(twin, twin, {twin}), 1);
        for (int row : {0, 1}) {
            const QString expected = row == 0 ? text : twin;
            QCOMPARE(model.key(row), expected);
            QCOMPARE(model.data(model.index(row, 0)).toString(), expected);
            QCOMPARE(model.row(row).subItems, QStringList{expected});
            QCOMPARE(model.findKey(expected), row);
            QCOMPARE(model.subItemNumber(row, 1), NumberText::valueOf(expected));
        }
    }

    // Thousands of rows come in with one notification, findable by key; rows
    // taken away from the end leave the others whole, and a grown row keeps
    // its cells.
    void bulkAppend()
    {
        constexpr int Rows = 5000;
        ListViewModel model({QStringLiteral("No")});
        auto tester = std::make_unique<QAbstractItemModelTester>(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        std::vector<ListViewModel::Row> rows;
        for (int i = 0; i < Rows; ++i)
            rows.push_back({QStringLiteral("T%1").arg(i), NumberText::padded(i, 4), {QString::number(-i)}, Qt::Unchecked});
        QCOMPARE(model.appendRows(std::move(rows)), Rows);
        QCOMPARE(inserted.count(), 1);
        tester.reset(); // it checks the whole model on every removal below
        QCOMPARE(model.findKey(QStringLiteral("T4999")), 4999);
        QCOMPARE(model.addRow(QStringLiteral("T7"), QStringLiteral("again")), -1);
        QCOMPARE(model.text(7), QStringLiteral("0007"));
        for (int i = Rows - 1; i >= 1000; --i)
            QVERIFY(model.removeAt(i));
        model.setSubItem(3, 4, QStringLiteral("far"));
        QCOMPARE(model.findKey(QStringLiteral("T999")), 999);
        QCOMPARE(model.findKey(QStringLiteral("T1000")), -1);
        QCOMPARE(model.row(3).subItems, (QStringList{"-3", "", "", "far"}));
        QCOMPARE(model.row(999).subItems, QStringList{"-999"});
    }
};

QTEST_GUILESS_MAIN(tst_ListViewModel)
#include "tst_ListViewModel.moc"
