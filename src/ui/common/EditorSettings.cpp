#include "ui/common/EditorSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace {

const QString VersionKey = QStringLiteral("Version");
const QString RecentKey = QStringLiteral("RecentLists");
const QString GeometryKey = QStringLiteral("Window/Geometry");
const QString SplitterKey = QStringLiteral("Window/Splitter");

// A path worth keeping: absolute and not absurdly long.
bool IsPlausiblePath(const QString& path)
{
    return !path.isEmpty() && path.size() < 4096 && QDir::isAbsolutePath(path);
}

} // namespace

EditorSettings::EditorSettings()
    : EditorSettings(DefaultFileName())
{
}

EditorSettings::EditorSettings(const QString& fileName)
    : m_settings(std::make_unique<QSettings>(fileName, QSettings::IniFormat))
{
    const QStringList keys = m_settings->allKeys();
    bool versionKnown = false;
    const int version = m_settings->value(VersionKey).toInt(&versionKnown);
    m_trusted = m_settings->status() == QSettings::NoError
                && (keys.isEmpty() || (versionKnown && version == FormatVersion));
}

EditorSettings::~EditorSettings() = default;

QString EditorSettings::DefaultFileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/brindle.ini");
}

QString EditorSettings::FileName() const
{
    return m_settings->fileName();
}

void EditorSettings::Write(const QString& key, const QVariant& value)
{
    if (!m_trusted) {
        // Nothing of a foreign or damaged file is carried over.
        m_settings->clear();
        m_trusted = true;
    }
    m_settings->setValue(VersionKey, FormatVersion);
    m_settings->setValue(key, value);
    m_settings->sync();
}

QStringList EditorSettings::RecentLists() const
{
    if (!m_trusted)
        return {};
    QStringList lists;
    for (const QString& path : m_settings->value(RecentKey).toStringList()) {
        const QString clean = QDir::cleanPath(path);
        if (IsPlausiblePath(path) && !lists.contains(clean))
            lists << clean;
        if (lists.size() == MaxRecentLists)
            break;
    }
    return lists;
}

void EditorSettings::AddRecentList(const QString& path)
{
    const QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    QStringList lists = RecentLists();
    lists.removeAll(clean);
    lists.prepend(clean);
    Write(RecentKey, lists.mid(0, MaxRecentLists));
}

void EditorSettings::RemoveRecentList(const QString& path)
{
    QStringList lists = RecentLists();
    lists.removeAll(QDir::cleanPath(path));
    Write(RecentKey, lists);
}

QString EditorSettings::FolderKey(const QString& dialogTitle)
{
    QString key;
    for (const QChar c : dialogTitle) {
        if (c.isLetterOrNumber())
            key += c;
    }
    return QStringLiteral("Folders/") + key;
}

QString EditorSettings::LastFolder(const QString& dialogTitle) const
{
    if (!m_trusted)
        return {};
    const QString folder = m_settings->value(FolderKey(dialogTitle)).toString();
    return IsPlausiblePath(folder) && QFileInfo(folder).isDir() ? folder : QString();
}

void EditorSettings::SetLastFolder(const QString& dialogTitle, const QString& folder)
{
    if (IsPlausiblePath(folder))
        Write(FolderKey(dialogTitle), QDir::cleanPath(folder));
}

QByteArray EditorSettings::Bytes(const QString& key) const
{
    if (!m_trusted)
        return {};
    const QVariant value = m_settings->value(key);
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : QByteArray();
}

QByteArray EditorSettings::WindowGeometry() const
{
    return Bytes(GeometryKey);
}

void EditorSettings::SetWindowGeometry(const QByteArray& geometry)
{
    Write(GeometryKey, geometry);
}

QByteArray EditorSettings::SplitterState() const
{
    return Bytes(SplitterKey);
}

void EditorSettings::SetSplitterState(const QByteArray& state)
{
    Write(SplitterKey, state);
}
