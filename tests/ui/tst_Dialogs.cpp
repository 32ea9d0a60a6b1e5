#include "uisupport/EditorFixture.h"
#include "ui/common/QtPromptService.h"
#include "ui/dialogs/frmVersion.h"
#include "ui/common/m_CodeForms.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

// The small dialogs' contracts and the mapping of the prompts onto Qt's dialogs.
class tst_Dialogs : public QObject
{
    Q_OBJECT

private slots:
    void versionInitPreselectsOnlyTr2OrTr3_data();
    void versionInitPreselectsOnlyTr2OrTr3();
    void versionOfEachOption_data();
    void versionOfEachOption();
    void messageStylesBecomeIconsAndButtons_data();
    void messageStylesBecomeIconsAndButtons();
    void fileFiltersAndSuffixes_data();
    void fileFiltersAndSuffixes();
    void messagesWrapInsideLongNames_data();
    void messagesWrapInsideLongNames();
    void formHelpersOnRealWidgets();
};

void tst_Dialogs::versionInitPreselectsOnlyTr2OrTr3_data()
{
    QTest::addColumn<int>("init");
    QTest::addColumn<quint32>("version");
    QTest::newRow("0 holds to TR 2") << 0 << 0x2Du;
    QTest::newRow("1 is TR 2") << 1 << 0x2Du;
    QTest::newRow("2 is TR 3") << 2 << 0xFF180038u;
    QTest::newRow("9 holds to TR 3") << 9 << 0xFF180038u;
}

void tst_Dialogs::versionInitPreselectsOnlyTr2OrTr3()
{
    QFETCH(int, init);
    QFETCH(quint32, version);
    frmVersion form;
    QVERIFY(form.IsCancelled());
    QCOMPARE(form.GetVersion(), 0x2Du);
    form.Init(init);
    QCOMPARE(form.GetVersion(), version);
}

void tst_Dialogs::versionOfEachOption_data()
{
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<quint32>("version");
    QTest::newRow("TR 1") << 0 << "TR 1" << 0x20u;
    QTest::newRow("TR 2") << 1 << "TR 2" << 0x2Du;
    QTest::newRow("TR 3") << 2 << "TR 3" << 0xFF180038u;
}

void tst_Dialogs::versionOfEachOption()
{
    QFETCH(int, option);
    QFETCH(QString, caption);
    QFETCH(quint32, version);
    frmVersion form;
    QCOMPARE(form.windowTitle(), QStringLiteral("Select Version for New LIst"));
    form.optVersion(option)->click();
    QCOMPARE(form.optVersion(option)->text(), caption);
    EditorFixture::click(form, "cmdOK");
    QVERIFY(!form.IsCancelled());
    QCOMPARE(form.GetVersion(), version);
    EditorFixture::click(form, "cmdCancel");
    QVERIFY(form.IsCancelled());
}

void tst_Dialogs::messageStylesBecomeIconsAndButtons_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("buttons");
    QTest::newRow("0") << 0 << int(QMessageBox::NoIcon) << int(QMessageBox::Ok);
    QTest::newRow("49") << 49 << int(QMessageBox::Warning) << int(QMessageBox::Ok | QMessageBox::Cancel);
    QTest::newRow("16") << 16 << int(QMessageBox::Critical) << int(QMessageBox::Ok);
    QTest::newRow("36") << 36 << int(QMessageBox::Question) << int(QMessageBox::Yes | QMessageBox::No);
    QTest::newRow("67") << 67 << int(QMessageBox::Information)
                        << int(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
}

void tst_Dialogs::messageStylesBecomeIconsAndButtons()
{
    QFETCH(int, style);
    QFETCH(int, icon);
    QFETCH(int, buttons);
    QCOMPARE(int(QtPromptService::IconOf(style)), icon);
    QCOMPARE(int(QtPromptService::ButtonsOf(style)), buttons);
}

void tst_Dialogs::fileFiltersAndSuffixes_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("qtFilters");
    QTest::addColumn<QString>("defaultExt");
    QTest::addColumn<QString>("suffix");
    QTest::newRow("list") << "TR Texture List (*.trt)|*.trt" << QStringList{"TR Texture List (*.trt)"} << "*.TRT"
                          << "trt";
    QTest::newRow("pattern added") << "TR (*.trt)|*.trt|All|*.*" << QStringList{"TR (*.trt)", "All (*.*)"}
                                   << "*.TR2" << "tr2";
    QTest::newRow("no pattern") << "Bitmap" << QStringList{} << "" << "";
    QTest::newRow("several patterns") << "Bitmap or PNG (*.bmp;*.png)|*.bmp;*.png|PNG|*.png"
                                      << QStringList{"Bitmap or PNG (*.bmp *.png)", "PNG (*.png)"} << "*.BMP"
                                      << "bmp";
}

void tst_Dialogs::fileFiltersAndSuffixes()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, qtFilters);
    QFETCH(QString, defaultExt);
    QFETCH(QString, suffix);
    QCOMPARE(QtPromptService::NameFilters(filter), qtFilters);
    QCOMPARE(QtPromptService::DefaultSuffix(defaultExt), suffix);
}

void tst_Dialogs::messagesWrapInsideLongNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("wrappable"); // "|" stands for a zero-width space
    QTest::newRow("words alone") << "Nothing written." << "Nothing written.";
    QTest::newRow("a path") << "/a/b.bmp: gone" << "/|a/|b.bmp: gone";
    QTest::newRow("a Windows path") << "C:\\x\\y" << "C:\\|x\\|y";
    QTest::newRow("a long run") << QString(85, QLatin1Char('n'))
                                << QString(40, QLatin1Char('n')) + "|" + QString(40, QLatin1Char('n')) + "|"
                                       + QString(5, QLatin1Char('n'));
    QTest::newRow("runs end at spaces") << QString(39, QLatin1Char('n')) + " " + QString(39, QLatin1Char('n'))
                                        << QString(39, QLatin1Char('n')) + " " + QString(39, QLatin1Char('n'));
}

void tst_Dialogs::messagesWrapInsideLongNames()
{
    QFETCH(QString, text);
    QFETCH(QString, wrappable);
    QCOMPARE(QtPromptService::Wrappable(text), wrappable.replace(QLatin1Char('|'), QChar(0x200B)));
}

void tst_Dialogs::formHelpersOnRealWidgets()
{
    QWidget form;
    form.resize(300, 200);
    m_Code::CenterForm(form);
    const QRect screen = form.screen()->availableGeometry();
    QVERIFY(qAbs(form.frameGeometry().center().x() - screen.center().x()) <= 1);
    QVERIFY(qAbs(form.frameGeometry().center().y() - screen.center().y()) <= 1);

    QLineEdit box(QStringLiteral("128"));
    box.setCursorPosition(1);
    m_Code::SelectAllText(&box);
    QCOMPARE(box.selectedText(), QStringLiteral("128"));
    m_Code::SelectAllText(nullptr);
}

QTEST_MAIN(tst_Dialogs)
#include "tst_Dialogs.moc"
