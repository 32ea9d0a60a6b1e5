#pragma once

#include <QHash>
#include <QSet>
#include <QStringList>

// The words after a command: positional arguments, options that take a value
// ("-o OUT") and flags ("--json"). Anything else starting with '-' is an error.
class CommandArguments
{
public:
    CommandArguments(const QStringList& words, const QStringList& valueOptions,
                     const QStringList& flags);

    bool isValid() const { return m_error.isEmpty(); }
    QString error() const { return m_error; }

    const QStringList& positionals() const { return m_positionals; }
    QString value(const QString& option) const { return m_values.value(option); }
    bool hasValue(const QString& option) const { return m_values.contains(option); }
    bool hasFlag(const QString& flag) const { return m_flags.contains(flag); }

    // Sets the error unless there are exactly count positional arguments.
    bool expectPositionals(int count, const QString& what);

private:
    QStringList m_positionals;
    QHash<QString, QString> m_values;
    QSet<QString> m_flags;
    QString m_error;
};
