#include "cli/CommandArguments.h"

CommandArguments::CommandArguments(const QString& command)
    : m_command(command)
{
    m_parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
}

void CommandArguments::addFlag(const QString& name, const QString& description)
{
    m_parser.addOption(QCommandLineOption(name, description));
}

void CommandArguments::addValueOption(const QString& name, const QString& valueName, const QString& description)
{
    m_parser.addOption(QCommandLineOption(name, description, valueName));
}

std::optional<QString> CommandArguments::takeOptionalValue(
    QStringList& words, const QString& option, const std::function<bool(const QStringList&)>& complete)
{
    const QString prefix = option + QLatin1Char('=');
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words[i].startsWith(prefix)) {
            const QString value = words.takeAt(i).mid(prefix.size());
            return value;
        }
        if (words[i] != option)
            continue;
        words.removeAt(i);
        if (i >= words.size() || words[i].startsWith(QLatin1Char('-')))
            return QString();
        QStringList without = words;
        without.removeAt(i);
        if (complete(without))
            return words.takeAt(i);
        return QString();
    }
    return std::nullopt;
}

bool CommandArguments::parse(const QStringList& words, qsizetype positionals, const QString& what)
{
    if (!m_parser.parse(QStringList{m_command} + words)) {
        m_error = m_parser.errorText();
        return false;
    }
    if (m_parser.positionalArguments().size() != positionals) {
        m_error = QStringLiteral("expected %1").arg(what);
        return false;
    }
    return true;
}
