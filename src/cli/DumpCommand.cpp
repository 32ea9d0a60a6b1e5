#include "cli/DumpCommand.h"

#include "list/C_ListInfo.h"
#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "list/ListViewSet.h"
#include "cli/TablePositionFields.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QPair>

namespace {

QList<QPair<QString, qint64>> numbers(const C_ListInfo& list)
{
    QList<QPair<QString, qint64>> fields{
        {QStringLiteral("Version"), list.Version()},
        {QStringLiteral("TypeLevel"), list.TypeLevel()},
        {QStringLiteral("Offset_EOF"), list.Offset_EOF()},
    };
    fields.append(TablePositionFields(list));
    fields.append({{QStringLiteral("OffsetConcordanceTextures"), list.OffsetConcordanceTextures()},
                   {QStringLiteral("NumberConcordanceTextures"), list.NumberConcordanceTextures()},
                   {QStringLiteral("SizeConcordanceTextures"), list.SizeConcordanceTextures()}});
    return fields;
}

QList<QPair<QString, ListRows*>> namedViews(ListViewSet& views)
{
    return {
        {QStringLiteral("lsvTextures"), &views.lsvTextures},
        {QStringLiteral("lsvAnims"), &views.lsvAnims},
        {QStringLiteral("lsvAnimDetails"), &views.lsvAnimDetails},
        {QStringLiteral("lsvSprites"), &views.lsvSprites},
        {QStringLiteral("lsvSequences"), &views.lsvSequences},
        {QStringLiteral("lsvSequenceDetails"), &views.lsvSequenceDetails},
    };
}

QJsonArray rowsAsJson(const ListRows& view)
{
    QJsonArray rows;
    for (int i = 0; i < view.count(); ++i) {
        const ListRows::Row& row = view.row(i);
        rows.append(QJsonObject{{QStringLiteral("key"), row.key},
                                {QStringLiteral("text"), row.text},
                                {QStringLiteral("subItems"), QJsonArray::fromStringList(row.subItems)}});
    }
    return rows;
}

// What a user should know about rows that are not all the list claims:
// each a clause after the list's name. None for a whole list.
QStringList partialNotes(const C_ListInfo& list)
{
    QStringList notes;
    // Tables after a lone word lie past where the counts end them: the
    // word's note says why, and no other is due.
    if (list.AreTablesAfterLoneWord())
        notes << list.LoneWordNotice();
    else if (const QString cut = list.CutShortNote(); !cut.isEmpty())
        notes << cut + QStringLiteral(", so only the rows present were read");
    if (!list.RangeBlockDamage().isEmpty())
        notes << list.RangeBlockDamage() + QStringLiteral("; the ranges show what its words hold");
    return notes;
}

void writeJson(QTextStream& out, const C_ListInfo& list, ListViewSet& views, bool complete)
{
    QJsonObject json;
    for (const auto& [name, value] : numbers(list))
        json.insert(name, value);
    json.insert(QStringLiteral("VersionString"), list.VersionString());
    json.insert(QStringLiteral("BitMapName"), list.BitMapName());
    json.insert(QStringLiteral("LevelFileName"), list.LevelFileName());
    QJsonObject viewsJson;
    for (const auto& [name, view] : namedViews(views))
        viewsJson.insert(name, rowsAsJson(*view));
    json.insert(QStringLiteral("views"), viewsJson);
    json.insert(QStringLiteral("complete"), complete);
    out << QJsonDocument(json).toJson(QJsonDocument::Indented);
}

void writeText(QTextStream& out, const C_ListInfo& list, ListViewSet& views)
{
    out << "VersionString:  " << list.VersionString() << '\n'
        << "BitMapName:     " << list.BitMapName() << '\n'
        << "LevelFileName:  " << list.LevelFileName() << '\n';
    for (const auto& [name, value] : numbers(list))
        out << QStringLiteral("%1 %2").arg(name + QLatin1Char(':'), -26).arg(value) << '\n';
    for (const auto& [name, view] : namedViews(views)) {
        out << '\n' << name << " (" << view->count() << " rows)\n";
        out << "  key\t" << view->columns().join(QLatin1Char('\t')) << '\n';
        for (int i = 0; i < view->count(); ++i) {
            const ListRows::Row& row = view->row(i);
            out << "  " << row.key << '\t' << row.text;
            for (const QString& cell : row.subItems)
                out << '\t' << cell;
            out << '\n';
        }
    }
}

} // namespace

int DumpCommand::run(const QStringList& words)
{
    const QString json = QStringLiteral("json");
    CommandArguments args(QStringLiteral("dump"));
    args.addFlag(json, QStringLiteral("print JSON"));
    if (!args.parse(words, 1, QStringLiteral("one LIST")))
        return m_cli.usageError(args.error());

    const QString path = args.positionals().first();
    ListViewSet views;
    C_ListInfo list;
    if (views.openList(list, path) != C_ListInfo::Success)
        return m_cli.fail(CommandLine::InputUnreadable, list.Error());
    const QStringList notes = partialNotes(list);
    for (const QString& note : notes)
        m_cli.note(FileError(path, QString(), note).text());

    if (args.hasFlag(json))
        writeJson(m_cli.out(), list, views, notes.isEmpty());
    else
        writeText(m_cli.out(), list, views);
    m_cli.out().flush();
    return CommandLine::Done;
}
