#include "cli/RenderCommand.h"

#include "cli/CommandArguments.h"
#include "cli/CommandLine.h"
#include "common/ImageFile.h"
#include "level/BinaryReader.h"
#include "level/LevelGeometry.h"
#include "level/LevelTileBitmap.h"
#include "level/ReadTableRecords.h"
#include "level/TileBitmapReader.h"
#include "level/WalkedLevelFile.h"
#include "list/C_ListInfo.h"
#include "list/ListDocument.h"
#include "render/ListTextures.h"
#include "render/OffscreenRooms.h"
#include "render/RoomScene.h"
#include "render/TextureTable.h"
#include "render/TileLayers.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QRegularExpression>

namespace {

constexpr int SmallestSide = 16;
constexpr int LargestSide = 8192;
const QSize DefaultSize(1280, 720);

} // namespace

std::optional<QSize> RenderCommand::parseSize(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})[xX](\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const auto fits = [](int side) { return side >= SmallestSide && side <= LargestSide; };
    if (!fits(size.width()) || !fits(size.height()))
        return std::nullopt;
    return size;
}

std::optional<QSet<int>> RenderCommand::parseHighlight(const QString& text)
{
    QSet<int> textures;
    for (const QString& word : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const int texture = word.trimmed().toInt(&ok);
        if (!ok || texture < 0 || texture > 0x7FFF)
            return std::nullopt;
        textures.insert(texture);
    }
    return textures;
}

int RenderCommand::readTextures(const QString& levelPath, const QString& listPath, QList<ObjectTexture>& textures)
{
    if (!listPath.isEmpty()) {
        C_ListInfo list;
        ListDocument document;
        if (document.views().openList(list, listPath) != C_ListInfo::Success)
            return m_cli.fail(CommandLine::InputUnreadable, list.Error());
        textures = ListTextures::of(document).textures;
        return CommandLine::Done;
    }
    WalkedLevelFile level(levelPath);
    FileError error;
    if (!level.open(error))
        return m_cli.fail(CommandLine::InputUnreadable, error);
    BinaryReader reader(level.file());
    textures = ReadTableRecords<ObjectTexture>(reader, level.walk().objectTexture);
    return CommandLine::Done;
}

int RenderCommand::readBitmap(const QString& levelPath, const QString& bitmapPath, QImage& bitmap)
{
    FileError error;
    if (bitmapPath.isEmpty()) {
        bitmap = LevelTileBitmap::read(levelPath, &error);
        return bitmap.isNull() ? m_cli.fail(CommandLine::InputUnreadable, error) : CommandLine::Done;
    }
    if (!QFileInfo(bitmapPath).isFile())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, QStringLiteral("no such file")));
    // A picture no level could address is refused before it is decoded.
    QFile file(bitmapPath);
    if (!file.open(QIODevice::ReadOnly))
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, file.errorString()));
    if (const QString refusal = TileBitmapReader::decodeRefusal(file); !refusal.isEmpty())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, refusal));
    file.seek(0);
    QImageReader reader(&file);
    bitmap = reader.read();
    if (bitmap.isNull())
        return m_cli.fail(CommandLine::InputUnreadable, FileError::reading(bitmapPath, reader.errorString()));
    return CommandLine::Done;
}

int RenderCommand::run(const QStringList& words)
{
    const QString list = QStringLiteral("list"), bitmapOption = QStringLiteral("bitmap"), room = QStringLiteral("room"),
                  highlight = QStringLiteral("highlight"), sizeOption = QStringLiteral("size"), output = QStringLiteral("o");
    CommandArguments args(QStringLiteral("render"));
    args.addValueOption(list, QStringLiteral("LIST"), QStringLiteral("the list whose object textures are drawn"));
    args.addValueOption(bitmapOption, QStringLiteral("BMP"), QStringLiteral("the texture bitmap"));
    args.addValueOption(room, QStringLiteral("N"), QStringLiteral("the room to frame"));
    args.addValueOption(highlight, QStringLiteral("T,..."), QStringLiteral("texture numbers to tint"));
    args.addValueOption(sizeOption, QStringLiteral("WxH"), QStringLiteral("the picture's size"));
    args.addValueOption(output, QStringLiteral("OUT"), QStringLiteral("the PNG to write"));
    if (!args.parse(words, 1, QStringLiteral("one LEVEL")))
        return m_cli.usageError(args.error());
    if (!args.hasValue(output))
        return m_cli.usageError(QStringLiteral("render needs -o OUT.png"));
    const std::optional<QSize> size = args.hasValue(sizeOption) ? parseSize(args.value(sizeOption)) : DefaultSize;
    if (!size)
        return m_cli.usageError(QStringLiteral("--size takes WxH, each from %1 to %2").arg(SmallestSide).arg(LargestSide));
    const std::optional<QSet<int>> tinted = parseHighlight(args.value(highlight));
    if (!tinted)
        return m_cli.usageError(QStringLiteral("--highlight takes texture numbers from 0 to 32767, joined by commas"));
    bool roomOk = true;
    const int roomNumber = args.hasValue(room) ? args.value(room).toInt(&roomOk) : -1;
    if (!roomOk || (args.hasValue(room) && roomNumber < 0))
        return m_cli.usageError(QStringLiteral("--room takes a room number"));

    const QString levelPath = QFileInfo(args.positionals().first()).absoluteFilePath();
    const QString outPath = QFileInfo(args.value(output)).absoluteFilePath();
    FileError error;
    const std::optional<LevelGeometry> geometry = LevelGeometry::ofLevel(levelPath, &error);
    if (!geometry)
        return m_cli.fail(CommandLine::InputUnreadable, error);
    if (roomNumber >= geometry->rooms.size())
        return m_cli.usageError(QStringLiteral("the level has %1 rooms; there is no room %2")
                                    .arg(geometry->rooms.size())
                                    .arg(roomNumber));
    QList<ObjectTexture> textures;
    QImage bitmap;
    if (const int status = readTextures(levelPath, args.value(list), textures); status != CommandLine::Done)
        return status;
    if (const int status = readBitmap(levelPath, args.value(bitmapOption), bitmap); status != CommandLine::Done)
        return status;

    OffscreenRooms view(*size);
    QString why;
    if (!view.create(&why)) {
        m_cli.err() << "brindle-cli: render: " << why << Qt::endl;
        return CommandLine::InputUnreadable;
    }
    const RoomScene scene(*geometry);
    view.renderer().setScene(scene);
    view.renderer().setTextures(TextureTable::build(textures, {}, *tinted));
    view.renderer().setTiles(TileLayers(bitmap));
    const RoomScene::Bounds bounds = roomNumber >= 0 ? scene.roomBounds(roomNumber) : scene.levelBounds();
    const QImage picture = view.render(RoomCamera::framing(bounds.centre, bounds.radius));

    const char* format = outPath.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive) ? "bmp" : "png";
    if (!ImageFile::write(picture, outPath, format, ReplacingFile::SkipDiskSync, error))
        return m_cli.fail(CommandLine::InputUnreadable, error);
    // What was left out is said once the picture is there, so a refusal stays one line.
    for (const QString& note : geometry->notes)
        m_cli.note(note);
    m_cli.out() << outPath << Qt::endl;
    return CommandLine::Done;
}
