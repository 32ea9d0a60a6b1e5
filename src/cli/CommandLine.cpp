#include "cli/CommandLine.h"

#include "cli/DemoCommand.h"
#include "cli/DumpCommand.h"
#include "cli/ExtractCommand.h"
#include "cli/InfoCommand.h"
#include "cli/InsertCommand.h"
#include "cli/RenderCommand.h"
#include "cli/TilesCommand.h"
#include "cli/UsageCommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

CommandLine::CommandLine()
    : m_out(stdout)
    , m_err(stderr)
{
}

QString CommandLine::usage()
{
    return QStringLiteral(
        "Usage: brindle-cli COMMAND ...\n"
        "\n"
        "Commands:\n"
        "  info LEVEL [--json]                  game version and every table position of a level\n"
        "  extract LEVEL [--bitmap BMP] -o LIST a new texture list made from a level; a bitmap that\n"
        "                                       does not exist yet (BMP, or LIST's name with .bmp) is\n"
        "                                       written from the level's tiles, as a PNG if it ends in .png\n"
        "  dump LIST [--json]                   a list's header, positions and the rows of its six views\n"
        "  insert LEVEL LIST [--tiles [BMP]] [-o OUT]\n"
        "                                       the level with the list's tables (OUT defaults to\n"
        "                                       templevel.tr2 beside LEVEL); --tiles also writes the\n"
        "                                       pixels of the list's bitmap, or of BMP, into its tiles\n"
        "  tiles LEVEL -o FILE                  the level's 16-bit texture tiles as a 24-bit bitmap,\n"
        "                                       or as a PNG with alpha when FILE ends in .png\n"
        "  render LEVEL [--list LIST] [--bitmap BMP|PNG] [--room N] [--highlight T,...] [--size WxH] -o OUT.png\n"
        "                                       the level's rooms drawn textured from a fixed camera that\n"
        "                                       frames room N or the whole level (needs a display)\n"
        "  usage LEVEL [--json]                 the object and sprite textures the level's rooms, meshes,\n"
        "                                       sequences and animations use, and the unused ones\n"
        "  demo DIR                             writes a synthetic demo level, bitmap and list into DIR\n"
        "\n"
        "Options:\n"
        "  --help       show this help\n"
        "  --version    show the version\n"
        "\n"
        "Exit status: 0 done, 1 wrong usage, 2 an input could not be read or is no\n"
        "TR2 or TR3 level, or an output could not be written (an output that is one\n"
        "of the inputs, by any name, is refused), 3 the list's version differs from\n"
        "the level's (nothing written).\n");
}

int CommandLine::fail(Exit status, const FileError& error)
{
    m_err << "brindle-cli: " << error.text() << Qt::endl;
    return status;
}

void CommandLine::note(const QString& text)
{
    m_err << "brindle-cli: note: " << text << Qt::endl;
}

int CommandLine::usageError(const QString& message)
{
    m_err << "brindle-cli: " << message << Qt::endl
          << "Try 'brindle-cli --help'." << Qt::endl;
    return WrongUsage;
}

int CommandLine::run(const QStringList& arguments)
{
    // The tool's own options come before the command; what follows the
    // command is the command's to read.
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("show this help"));
    const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("show the version"));
    parser.addOptions({help, version});
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(help)) {
        m_out << usage();
        return Done;
    }
    if (parser.isSet(version)) {
        m_out << "brindle-cli " << QCoreApplication::applicationVersion() << Qt::endl;
        return Done;
    }
    const QStringList args = parser.positionalArguments();
    if (args.isEmpty())
        return usageError(QStringLiteral("no command given"));
    const QString command = args.first();
    const QStringList rest = args.mid(1);

    if (rest.contains(QLatin1String("--help"))) {
        m_out << usage();
        return Done;
    }
    if (command == QLatin1String("info"))
        return InfoCommand(*this).run(rest);
    if (command == QLatin1String("extract"))
        return ExtractCommand(*this).run(rest);
    if (command == QLatin1String("dump"))
        return DumpCommand(*this).run(rest);
    if (command == QLatin1String("insert"))
        return InsertCommand(*this).run(rest);
    if (command == QLatin1String("tiles"))
        return TilesCommand(*this).run(rest);
    if (command == QLatin1String("render"))
        return RenderCommand(*this).run(rest);
    if (command == QLatin1String("usage"))
        return UsageCommand(*this).run(rest);
    if (command == QLatin1String("demo"))
        return DemoCommand(*this).run(rest);
    return usageError(QStringLiteral("unknown command '%1'").arg(command));
}
