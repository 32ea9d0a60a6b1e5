#include "cli/ExtractCommand.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "common/FileIdentity.h"
#include "common/FileKind.h"
#include "level/LevelTileBitmap.h"
#include "list/LevelListExtractor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

// LIST's own name with ".bmp": level1.trt gets level1.bmp beside it.
QString BitmapBesideList(const QString& listPath)
{
    const QFileInfo list(listPath);
    return list.dir().filePath(list.completeBaseName() + QStringLiteral(".bmp"));
}

bool IsImageName(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == QStringLiteral("bmp") || suffix == QStringLiteral("png");
}

} // namespace

int ExtractCommand::run(const QStringList& words)
{
    const QString bitmapOption = QStringLiteral("bitmap");
    const QString outputOption = QStringLiteral("o");
    CommandArguments args(QStringLiteral("extract"));
    args.addValueOption(bitmapOption, QStringLiteral("BMP"),
                        QStringLiteral("the level's texture bitmap; written from the level's tiles when it does not "
                                       "exist (default: LIST's name with .bmp)"));
    args.addValueOption(outputOption, QStringLiteral("LIST"), QStringLiteral("the list to write"));
    if (!args.parse(words, 1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());
    if (!args.hasValue(outputOption))
        return m_cli.usageError(QStringLiteral("extract needs -o LIST"));

    const QString levelPath = QFileInfo(args.positionals().first()).absoluteFilePath();
    const QString listPath = QFileInfo(args.value(outputOption)).absoluteFilePath();
    const QString bitmapPath = QFileInfo(args.hasValue(bitmapOption) ? args.value(bitmapOption)
                                                                     : BitmapBesideList(listPath))
                                   .absoluteFilePath();
    if (const FileError sameAsInput = FileIdentity::outputRefusal(listPath, {levelPath, bitmapPath});
        sameAsInput.failed())
        return m_cli.fail(CommandLine::InputUnreadable, sameAsInput);

    // A bitmap that is there is the user's: it is only read. One that is not
    // there yet is made from the level's tiles.
    const bool writeTiles = !QFileInfo(bitmapPath).exists();
    if (writeTiles && !IsImageName(bitmapPath))
        return m_cli.usageError(QStringLiteral("a new bitmap's name ends in .bmp or .png"));
    if (writeTiles) {
        FileError error;
        if (!LevelTileBitmap::write(levelPath, bitmapPath, &error))
            return m_cli.fail(CommandLine::InputUnreadable, error);
    } else if (const int refused = RefuseBitmap(bitmapPath); refused != CommandLine::Done) {
        return refused;
    }

    const LevelListExtractor::Result result = LevelListExtractor::Extract(levelPath, bitmapPath, listPath);
    if (result.status != LevelListExtractor::Status::Done) {
        // A bitmap made for a list that was not written is no use to anyone.
        if (writeTiles)
            QFile::remove(bitmapPath);
        return m_cli.fail(CommandLine::InputUnreadable, result.error);
    }
    if (!result.notice.isEmpty())
        m_cli.note(result.notice);
    m_cli.out() << listPath << Qt::endl;
    if (writeTiles)
        m_cli.out() << bitmapPath << Qt::endl;
    return CommandLine::Done;
}

int ExtractCommand::RefuseBitmap(const QString& bitmapPath)
{
    // Looked at before the image reader opens it, which blocks on a FIFO.
    if (const QString refusal = FileKind::refusal(bitmapPath); !refusal.isEmpty())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, refusal));
    QImageReader bitmap(bitmapPath);
    if (!bitmap.canRead())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, bitmap.errorString()));
    return CommandLine::Done;
}
