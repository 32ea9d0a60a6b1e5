#include "ui/main/WindowShortcuts.h"

#include "ui/common/ListView.h"
#include "list/rows/ListViewModel.h"
#include "ui/main/frmMain.h"
#include "ui_frmMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QScrollBar>
#include <QShortcut>

void WindowShortcuts::Install(frmMain& window)
{
    Ui::frmMain& ui = window.ui();
    ui.mnuFileNewList->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    ui.mnuFileOpen->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    ui.mnuFileSaveList->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    ui.mnuFileSaveAsList->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    ui.mnuFileCloseList->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    ui.mnuListInser->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_I));
    ZoomKeys(window, *ui.hscrlZoom);

    const std::pair<const char*, const char*> deletes[] = {
        {"lsvTextures", "cmdDel"},
        {"lsvSprites", "cmdSpriteDelete"},
        {"lsvSequences", "cmdSeqDelete"},
        {"lsvAnims", "cmdDelAnim"},
    };
    for (const auto& [list, button] : deletes) {
        auto* view = window.findChild<QWidget*>(QString::fromLatin1(list));
        auto* press = window.findChild<QAbstractButton*>(QString::fromLatin1(button));
        if (view && press)
            DeleteKeyPresses(*view, *press);
    }
}

void WindowShortcuts::DeleteKeyPresses(QWidget& list, QAbstractButton& button)
{
    auto* key = new QShortcut(QKeySequence::Delete, &list);
    key->setContext(Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, &button, [&list, &button] {
        const auto* view = qobject_cast<ListView*>(&list);
        const bool chosen = !view || (view->listModel() && view->listModel()->selectedRow() >= 0);
        if (button.isEnabled() && chosen)
            button.click();
    });
}

void WindowShortcuts::ZoomKeys(QWidget& window, QScrollBar& zoom)
{
    const auto step = [&zoom](int by) {
        if (zoom.isEnabled())
            zoom.setValue(zoom.value() + by);
    };
    for (const QKeySequence& keys : {QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)}) {
        auto* in = new QShortcut(keys, &window);
        QObject::connect(in, &QShortcut::activated, &zoom, [step] { step(1); });
    }
    auto* out = new QShortcut(QKeySequence(QKeySequence::ZoomOut), &window);
    QObject::connect(out, &QShortcut::activated, &zoom, [step] { step(-1); });
}
