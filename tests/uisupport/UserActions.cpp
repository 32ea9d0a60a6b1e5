#include "UserActions.h"

#include "EditorFixture.h"
#include "ListView.h"
#include "ListViewModel.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

void UserActions::showTab(EditorFixture& fixture, int tab)
{
    frmMain& window = *fixture.window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.tbsStrip()->setCurrentIndex(tab - 1);
}

void UserActions::chooseRow(ListView& view, int row)
{
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

bool UserActions::chooseRowWithText(ListView& view, const QString& text)
{
    const ListViewModel& model = *view.listModel();
    for (int row = 0; row < model.count(); ++row) {
        if (model.text(row) == text) {
            chooseRow(view, row);
            return true;
        }
    }
    return false;
}

void UserActions::press(QAbstractButton& button)
{
    QTest::mouseClick(&button, Qt::LeftButton);
}

void UserActions::typeInto(QLineEdit& box, const QString& text)
{
    QTest::mouseClick(&box, Qt::LeftButton);
    box.selectAll();
    if (text.isEmpty())
        QTest::keyClick(&box, Qt::Key_Delete);
    else
        QTest::keyClicks(&box, text);
}
