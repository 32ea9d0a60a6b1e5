#include "ui/main/RecentListsMenu.h"

#include "ui/common/EditorSettings.h"

#include <QDir>

RecentListsMenu::RecentListsMenu(EditorSettings& settings, QWidget* parent)
    : QMenu(tr("Recent &Lists"), parent)
    , m_settings(settings)
{
    setObjectName(QStringLiteral("mnuFileRecent"));
    Refresh();
}

void RecentListsMenu::Refresh()
{
    clear();
    const QStringList lists = m_settings.RecentLists();
    for (int i = 0; i < lists.size(); ++i) {
        const QString path = lists.at(i);
        // "&&" keeps an ampersand of the path from becoming an access key.
        QString shown = QDir::toNativeSeparators(path);
        shown.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* entry = addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(shown));
        entry->setData(path);
        connect(entry, &QAction::triggered, this, [this, path] { emit ListChosen(path); });
    }
    menuAction()->setEnabled(!lists.isEmpty());
}
