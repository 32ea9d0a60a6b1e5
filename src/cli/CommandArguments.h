#pragma once

#include <QCommandLineParser>
#include <QStringList>

#include <functional>
#include <optional>

// The words after a command, read by QCommandLineParser: positional
// arguments, options that take a value ("-o OUT") and flags ("--json").
// Anything else starting with '-' is an error.
class CommandArguments
{
public:
    explicit CommandArguments(const QString& command);

    void addFlag(const QString& name, const QString& description);
    void addValueOption(const QString& name, const QString& valueName, const QString& description);

    // An option whose value may be left out ("--tiles [BMP]"), which the
    // parser cannot express: it is taken out of words before they are
    // parsed. "--name=VALUE" gives a value; so does "--name VALUE" when
    // VALUE is no option and the words left without it are still complete
    // (they hold every positional argument the command needs). Nothing when
    // the option is absent, "" when it is given without a value.
    static std::optional<QString> takeOptionalValue(QStringList& words, const QString& option,
                                                    const std::function<bool(const QStringList&)>& complete);

    // False, with the error set, unless the words parse and hold exactly
    // positionals positional arguments (what names them in the error).
    bool parse(const QStringList& words, qsizetype positionals, const QString& what);

    QString error() const { return m_error; }
    QStringList positionals() const { return m_parser.positionalArguments(); }
    QString value(const QString& option) const { return m_parser.value(option); }
    bool hasValue(const QString& option) const { return m_parser.isSet(option); }
    bool hasFlag(const QString& flag) const { return m_parser.isSet(flag); }

private:
    QString m_command;
    QCommandLineParser m_parser;
    QString m_error;
};
