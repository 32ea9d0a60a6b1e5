#include "cli/CommandArguments.h"

CommandArguments::CommandArguments(const QStringList& words, const QStringList& valueOptions,
                                   const QStringList& flags)
{
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (valueOptions.contains(word)) {
            if (i + 1 >= words.size()) {
                m_error = QStringLiteral("option %1 needs a value").arg(word);
                return;
            }
            m_values.insert(word, words[++i]);
        } else if (flags.contains(word)) {
            m_flags.insert(word);
        } else if (word.startsWith(QLatin1Char('-')) && word.size() > 1) {
            m_error = QStringLiteral("unknown option '%1'").arg(word);
            return;
        } else {
            m_positionals.append(word);
        }
    }
}

bool CommandArguments::expectPositionals(int count, const QString& what)
{
    if (!isValid())
        return false;
    if (m_positionals.size() != count) {
        m_error = QStringLiteral("expected %1").arg(what);
        return false;
    }
    return true;
}
