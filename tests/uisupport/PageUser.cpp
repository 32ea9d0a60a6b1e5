#include "uisupport/PageUser.h"

#include "uisupport/EditorFixture.h"
#include "ui/common/ListView.h"
#include "list/rows/ListViewModel.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

PageUser::PageUser(EditorFixture& fixture, int tab)
    : m_fixture(fixture)
{
    m_fixture.openList(m_fixture.listPath());
    m_fixture.window->show();
    m_fixture.window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_fixture.window.get()))
        qWarning("The window is not active: the caret cannot be followed");
    showTab(tab);
}

void PageUser::showTab(int tab) const
{
    m_fixture.window->tbsStrip()->setCurrentIndex(tab - 1);
}

QAbstractButton& PageUser::button(const char* name) const
{
    return *m_fixture.find<QAbstractButton>(name);
}

ListView& PageUser::list(const char* name) const
{
    return *m_fixture.find<ListView>(name);
}

QString PageUser::text(const char* name) const
{
    if (auto* box = m_fixture.find<QLineEdit>(name))
        return box->text();
    return m_fixture.find<QLabel>(name)->text();
}

void PageUser::press(const char* name) const
{
    QTest::mouseClick(&button(name), Qt::LeftButton);
}

void PageUser::chooseRow(const char* name, int row) const
{
    ListView& view = list(name);
    const QModelIndex index = view.shownIndex(row);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
}

void PageUser::choose(const char* name, const QString& rowText) const
{
    chooseRow(name, int(column(*list(name).listModel()).indexOf(rowText)));
}

void PageUser::type(const char* name, const QString& text) const
{
    QLineEdit& box = *m_fixture.find<QLineEdit>(name);
    QTest::mouseClick(&box, Qt::LeftButton);
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

void PageUser::sendTextures(const QStringList& textures) const
{
    for (const QString& texture : textures) {
        choose("lsvAvailTextures", texture);
        press("cmdAddText");
    }
}

void PageUser::addAnimation(const QStringList& textures) const
{
    press("cmdAddAnim");
    sendTextures(textures);
    press("cmdAddAnim");
}

void PageUser::typeSequence(const QStringList& startStopObject) const
{
    type("txtSeqStart", startStopObject.value(0));
    type("txtSeqStop", startStopObject.value(1));
    type("txtSeqObject", startStopObject.value(2));
}

void PageUser::addSequence(const QStringList& startStopObject) const
{
    press("cmdSeqAdd");
    typeSequence(startStopObject);
    press("cmdSeqAdd");
}

QStringList PageUser::column(const ListRows& model, int column)
{
    QStringList cells;
    for (int row = 0; row < model.count(); ++row)
        cells << (column == 0 ? model.text(row) : model.subItem(row, column));
    return cells;
}
