#pragma once

#include <QMenu>

class EditorSettings;

// File, "Recent Lists": the lists last opened, created or saved, most
// recent first, numbered for their access keys. Choosing one asks the
// window to open it; the menu is disabled while it has none.
class RecentListsMenu : public QMenu
{
    Q_OBJECT

public:
    RecentListsMenu(EditorSettings& settings, QWidget* parent = nullptr);

    // Rebuilds the entries from the settings.
    void Refresh();

signals:
    void ListChosen(const QString& path);

private:
    EditorSettings& m_settings;
};
