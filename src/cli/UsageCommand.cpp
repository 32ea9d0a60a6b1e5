#include "cli/UsageCommand.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "level/TextureUsage.h"

#include <QList>
#include <QPair>

namespace {

// The four lists under their names, in the order they are printed.
QList<QPair<QString, QList<int>>> namedLists(const TextureUsage& usage)
{
    return {{QStringLiteral("polygons"), usage.polygons},
            {QStringLiteral("objects"), usage.objects},
            {QStringLiteral("sprites"), usage.sprites},
            {QStringLiteral("unused"), usage.unused}};
}

QString joined(const QStringList& parts)
{
    return parts.join(QStringLiteral(", "));
}

QString jsonArray(const QList<int>& indices)
{
    QStringList numbers;
    numbers.reserve(indices.size());
    for (int index : indices)
        numbers.append(QString::number(index));
    return QLatin1Char('[') + joined(numbers) + QLatin1Char(']');
}

// Ascending indices as runs: "0-3, 7, 9-12"; "none" for no index.
QString runs(const QList<int>& indices)
{
    QStringList parts;
    for (qsizetype i = 0; i < indices.size();) {
        qsizetype last = i;
        while (last + 1 < indices.size() && indices[last + 1] == indices[last] + 1)
            ++last;
        parts.append(last == i ? QString::number(indices[i])
                               : QStringLiteral("%1-%2").arg(indices[i]).arg(indices[last]));
        i = last + 1;
    }
    return parts.isEmpty() ? QStringLiteral("none") : joined(parts);
}

} // namespace

int UsageCommand::run(const QStringList& words)
{
    const QString json = QStringLiteral("json");
    CommandArguments args(QStringLiteral("usage"));
    args.addFlag(json, QStringLiteral("print JSON"));
    if (!args.parse(words, 1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());

    const QString path = args.positionals().first();
    FileError error;
    const std::optional<TextureUsage> usage = TextureUsage::ofLevel(path, &error);
    if (!usage)
        return m_cli.fail(CommandLine::InputUnreadable, error);
    // A level cut short still gives the lists its bytes held.
    if (!usage->complete)
        m_cli.note(path + QStringLiteral(": ") + usage->partialNote()
                   + QStringLiteral("; the lists hold only what its bytes held"));

    QTextStream& out = m_cli.out();
    const auto lists = namedLists(*usage);
    if (args.hasFlag(json)) {
        QStringList members;
        for (const auto& [name, indices] : lists)
            members.append(QStringLiteral("    \"%1\": %2").arg(name, jsonArray(indices)));
        members.append(QStringLiteral("    \"complete\": %1")
                           .arg(usage->complete ? QLatin1String("true") : QLatin1String("false")));
        out << "{\n" << members.join(QStringLiteral(",\n")) << "\n}\n";
    } else {
        for (const auto& [name, indices] : lists)
            out << name << " (" << indices.size() << "): " << runs(indices) << '\n';
    }
    out.flush();
    return CommandLine::Done;
}
