#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class QSettings;

// What the editor remembers between runs: the recent lists, the folder each
// file dialog was last used in, the window's geometry and its splitter.
// Everything is read back with suspicion: a file written by another format
// version, or one that cannot be parsed, counts as empty and is replaced at
// the next write; single values that do not fit are skipped.
class EditorSettings
{
public:
    static constexpr int FormatVersion = 1;
    static constexpr int MaxRecentLists = 8;

    // The settings file beside the user's other program settings.
    EditorSettings();
    // A settings file of the caller's choosing (tests, portable installs).
    explicit EditorSettings(const QString& fileName);
    ~EditorSettings();

    static QString DefaultFileName();
    QString FileName() const;
    // False when what was on disk was ignored as foreign or damaged.
    bool WasTrusted() const { return m_trusted; }

    // Most recent first, at most MaxRecentLists, no duplicates.
    QStringList RecentLists() const;
    void AddRecentList(const QString& path);
    void RemoveRecentList(const QString& path);

    // The folder the dialog with this title was last used in; empty when
    // none is known or it no longer exists.
    QString LastFolder(const QString& dialogTitle) const;
    void SetLastFolder(const QString& dialogTitle, const QString& folder);

    QByteArray WindowGeometry() const;
    void SetWindowGeometry(const QByteArray& geometry);
    QByteArray SplitterState() const;
    void SetSplitterState(const QByteArray& state);

private:
    QByteArray Bytes(const QString& key) const;
    void Write(const QString& key, const QVariant& value);
    static QString FolderKey(const QString& dialogTitle);

    std::unique_ptr<QSettings> m_settings;
    bool m_trusted = true;
};
