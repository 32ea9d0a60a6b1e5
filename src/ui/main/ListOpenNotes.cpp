#include "ui/main/ListOpenNotes.h"

#include "common/ShownName.h"
#include "list/C_ListInfo.h"
#include "list/ListDocument.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("frmMain", text);
}

QString Native(const QString& path)
{
    return ShownName::of(QDir::toNativeSeparators(path));
}

} // namespace

QString ListOpenNotes::Of(const ListDocument& d, const C_ListInfo* list, const QString& bitmapCutNote)
{
    QStringList missing;
    if (!d.LevelFileName().isEmpty() && !QFileInfo::exists(d.LevelFileName()))
        missing << tr("its level %1 does not exist").arg(Native(d.LevelFileName()));
    if (list && !list->RangeBlockDamage().isEmpty())
        missing << list->RangeBlockDamage();
    if (d.IsBitmapLoaded() && !bitmapCutNote.isEmpty())
        missing << tr("its bitmap %1").arg(bitmapCutNote);
    if (list && list->AreTablesAfterLoneWord())
        missing << list->LoneWordNotice();
    else if (list && !list->CutShortNote().isEmpty())
        missing << tr("%1, so only the rows present were read").arg(list->CutShortNote());
    if (!missing.isEmpty())
        return tr("Opened %1, but %2.").arg(Native(d.ListFileName()), missing.join(tr("; ")));
    return list ? tr("Opened %1.").arg(Native(d.ListFileName())) : QString();
}
