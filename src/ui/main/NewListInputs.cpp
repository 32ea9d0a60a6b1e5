#include "ui/main/NewListInputs.h"

#include "common/FileIdentity.h"
#include "common/ShownName.h"
#include "level/C_LevelInfo.h"
#include "level/LevelVersion.h"
#include "ui/bitmap/BitmapCache.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("frmMain", text);
}

} // namespace

QString NewListInputs::Refusal(const QString& list, const QString& level, const QString& bitmap)
{
    if (QString refusal = LevelRefusal(level); !refusal.isEmpty())
        return refusal;
    if (QString refusal = BitmapRefusal(bitmap); !refusal.isEmpty())
        return refusal;
    if (const FileError sameAsInput = FileIdentity::outputRefusal(list, {level, bitmap}); sameAsInput.failed())
        return sameAsInput.text();
    return {};
}

QString NewListInputs::LevelRefusal(const QString& level)
{
    if (level.isEmpty())
        return {};
    C_LevelInfo info;
    info.Init(level);
    QString cause;
    if (!info.IsOpened())
        cause = info.ErrorString().isEmpty() ? tr("the file cannot be opened") : info.ErrorString();
    else if (!LevelVersion::hasTextureTables(info.Game()))
        cause = tr("it is not a TR 2 or TR 3 level (version %1)").arg(info.VersionString());
    else
        cause = info.TablesUnusableCause();
    if (cause.isEmpty())
        return {};
    return tr("The level %1 cannot be read: %2.").arg(ShownName::of(QDir::toNativeSeparators(level)), cause);
}

QString NewListInputs::BitmapRefusal(const QString& bitmap)
{
    if (bitmap.isEmpty())
        return {};
    QString why;
    if (!BitmapCache::Load(bitmap, &why).isNull())
        return {};
    return tr("The bitmap cannot be shown: %1.").arg(why);
}
