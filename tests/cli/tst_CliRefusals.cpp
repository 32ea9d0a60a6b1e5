#include "list/C_ListInfo.h"
#include "list/ListViewSet.h"
#include "support/CliRun.h"
#include "support/FileAlias.h"
#include "support/ListFixture.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticLevel.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>
#include <QtEndian>

// What brindle-cli refuses, and how: an output that is one of the inputs
// however it is spelt, files that are no level, damaged lists, bitmaps that
// would cost far more than their files. Every refusal is one line, exit 2
// (3 only for two real files of different versions), and nothing is written.
class tst_CliRefusals : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;
    QByteArray m_levelBytes;

    // {dir} in an argument stands for the scratch folder.
    CliRun cli(QStringList arguments) const
    {
        arguments.replaceInStrings(QStringLiteral("{dir}"), m_dir.path());
        return CliRun::of(arguments);
    }

    QString path(const QString& name) const { return m_dir.filePath(name); }

    static qsizetype textureRows(const CliRun& dump)
    {
        return dump.json().value(QStringLiteral("views")).toObject().value(QStringLiteral("lsvTextures")).toArray().size();
    }

    static QByteArray crc32(const QByteArray& bytes)
    {
        quint32 crc = 0xFFFFFFFFu;
        for (const char byte : bytes) {
            crc ^= quint8(byte);
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
        char out[4];
        qToBigEndian(~crc, out);
        return QByteArray(out, 4);
    }

    static QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
    {
        char length[4];
        qToBigEndian(quint32(data.size()), length);
        return QByteArray(length, 4) + type + data + crc32(type + data);
    }

    // A palette PNG without its palette: libpng stops at the pixel data.
    static QByteArray pngWithoutPalette()
    {
        QByteArray header(13, '\0');
        qToBigEndian(quint32(256), header.data());
        qToBigEndian(quint32(256), header.data() + 4);
        header[8] = 8; // bits a sample
        header[9] = 3; // palette colour
        const QByteArray rows = qCompress(QByteArray(256 * 257, '\0')).mid(4); // zlib stream alone
        return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) + pngChunk("IDAT", rows)
               + pngChunk("IEND", {});
    }

    static QByteArray encoded(const QImage& image, const char* format)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, format);
        return bytes;
    }

    // A 24-bit BMP's two headers, claiming width x height, and no pixels.
    static QByteArray bmpHeader(qint32 width, qint32 height)
    {
        QByteArray header(54, '\0');
        header[0] = 'B';
        header[1] = 'M';
        qToLittleEndian(quint32(54), header.data() + 10);
        qToLittleEndian(quint32(40), header.data() + 14);
        qToLittleEndian(width, header.data() + 18);
        qToLittleEndian(height, header.data() + 22);
        qToLittleEndian(quint16(1), header.data() + 26);
        qToLittleEndian(quint16(24), header.data() + 28);
        return header;
    }

    // The same file as target reached another way: "symlink", "hardlink"
    // or "dotdot" (through a folder and back); the name the output takes.
    QString alias(const QString& target, const QString& spelling, const QString& name) const
    {
        QDir().mkpath(path(QStringLiteral("alias")));
        return FileAlias::make(target, spelling, path(QStringLiteral("alias/") + name), path(QStringLiteral("alias")));
    }

    // The list of 1,200 textures, one range of three, and two sprites.
    QByteArray bigList() const { return ScratchDir::read(path(QStringLiteral("big.trt"))); }

private slots:
    void initTestCase()
    {
        QVERIFY(QFile::exists(qEnvironmentVariable("BRINDLE_CLI")));
        SyntheticLevel level(LevelVersion::Game::TR2);
        level.setTileCount(2, QByteArray(2 * SyntheticLevel::Tile16Size, '\x7F'));
        level.setObjectTextures(QList<ObjectTexture>(8));
        level.setAnimatedTextureWords({1, 0, 3});
        m_levelBytes = level.build();
        m_dir.write(QStringLiteral("level.tr2"), m_levelBytes);
        QCOMPARE(cli({"tiles", "{dir}/level.tr2", "-o", "{dir}/tiles.bmp"}).exitCode, 0);
        QVERIFY(QFile::copy(path(QStringLiteral("tiles.bmp")), path(QStringLiteral("other.bmp"))));
        QCOMPARE(cli({"extract", "{dir}/level.tr2", "--bitmap", "{dir}/tiles.bmp", "-o", "{dir}/list.trt"}).exitCode, 0);

        m_dir.write(QStringLiteral("empty"), {});
        m_dir.write(QStringLiteral("text.tr2"), "levels are not text\n");
        m_dir.write(QStringLiteral("tr1.tr2"), QByteArray::fromHex("20000000") + QByteArray(64, '\0'));
        SyntheticLevel tr3(LevelVersion::Game::TR3);
        tr3.setObjectTextures(QList<ObjectTexture>(8));
        m_dir.write(QStringLiteral("tr3.tr2"), tr3.build());

        const ListFixture tables = ListFixture::random(1200, 1, 3, 2, 1, 7);
        ListViewSet views;
        QCOMPARE(tables.write(views, path(QStringLiteral("big.trt")), path(QStringLiteral("level.tr2"))),
                 C_ListInfo::Success);
    }

    // Every command and every file it reads: the output, reached through a
    // symbolic link, a hard link or a ".." step, is refused, and the input
    // keeps every byte.
    void outputIsNeverAnInput_data()
    {
        QTest::addColumn<QStringList>("arguments"); // {alias} is the output
        QTest::addColumn<QString>("input");         // the file {alias} reaches
        QTest::addColumn<QString>("spelling");
        const QStringList spellings{"symlink", "hardlink", "dotdot"};
        for (const QString& spelling : spellings) {
            const auto row = [&](const char* name) {
                return &QTest::newRow(qPrintable(QStringLiteral("%1 through a %2").arg(name, spelling)));
            };
            *row("tiles onto the level") << QStringList{"tiles", "{dir}/level.tr2", "-o", "{alias}"} << "level.tr2"
                                          << spelling;
            *row("extract onto the level")
                << QStringList{"extract", "{dir}/level.tr2", "--bitmap", "{dir}/tiles.bmp", "-o", "{alias}"}
                << "level.tr2" << spelling;
            *row("extract onto the bitmap")
                << QStringList{"extract", "{dir}/level.tr2", "--bitmap", "{dir}/tiles.bmp", "-o", "{alias}"}
                << "tiles.bmp" << spelling;
            *row("insert onto the level") << QStringList{"insert", "{dir}/level.tr2", "{dir}/list.trt", "-o", "{alias}"}
                                           << "level.tr2" << spelling;
            *row("insert onto the list") << QStringList{"insert", "{dir}/level.tr2", "{dir}/list.trt", "-o", "{alias}"}
                                          << "list.trt" << spelling;
            *row("insert onto the list's bitmap")
                << QStringList{"insert", "{dir}/level.tr2", "{dir}/list.trt", "-o", "{alias}"} << "tiles.bmp"
                << spelling;
            *row("insert with tiles onto the list's bitmap")
                << QStringList{"insert", "{dir}/level.tr2", "{dir}/list.trt", "--tiles", "-o", "{alias}"}
                << "tiles.bmp" << spelling;
            *row("insert with tiles onto their bitmap")
                << QStringList{"insert", "{dir}/level.tr2", "{dir}/list.trt", "--tiles={dir}/other.bmp", "-o", "{alias}"}
                << "other.bmp" << spelling;
        }
    }

    void outputIsNeverAnInput()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, input);
        QFETCH(QString, spelling);
#ifndef Q_OS_UNIX
        if (spelling == QLatin1String("hardlink"))
            QSKIP("hard links are made through the POSIX call");
#endif
        const QString target = path(input);
        const QByteArray before = ScratchDir::read(target);
        const QString output = alias(target, spelling, QStringLiteral("out-") + input);
        QVERIFY(!output.isEmpty());
        arguments.replaceInStrings(QStringLiteral("{alias}"), output);
        const CliRun run = cli(arguments);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY2(run.err.contains(QByteArray(QByteArray(": cannot be written: is the same file as ") + QFile::encodeName(target))),
                 run.err.constData());
        QCOMPARE(ScratchDir::read(target), before);
        QCOMPARE(QFileInfo(output).isSymLink(), spelling == QLatin1String("symlink"));
    }

    // A file that is no TR2 or TR3 level is exit 2 in every command that
    // takes a LEVEL, with the same words; 3 is kept for two real files of
    // different games.
    void exitCodes_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("level");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("why");
        const QStringList commands{"insert", "tiles", "extract", "usage", "info"};
        for (const QString& command : commands) {
            const auto row = [&](const char* what) {
                return &QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(command, what)));
            };
            *row("an empty file") << command << "empty" << 2 << "not a TR2 or TR3 level";
            *row("a text file") << command << "text.tr2" << 2 << "not a TR2 or TR3 level";
            *row("a TR1 level") << command << "tr1.tr2" << 2 << "not a TR2 or TR3 level (version 00000020)";
        }
        QTest::newRow("insert a TR2 list into a TR3 level")
            << "insert" << "tr3.tr2" << 3 << "list version 0000002D differs from the level's FF180038";
    }

    void exitCodes()
    {
        QFETCH(QString, command);
        QFETCH(QString, level);
        QFETCH(int, exitCode);
        QFETCH(QString, why);
        QStringList arguments{command, path(level)};
        if (command == QLatin1String("insert"))
            arguments << path(QStringLiteral("list.trt")) << "-o" << path(QStringLiteral("refused"));
        else if (command == QLatin1String("tiles"))
            arguments << "-o" << path(QStringLiteral("refused"));
        else if (command == QLatin1String("extract"))
            arguments << "--bitmap" << path(QStringLiteral("tiles.bmp")) << "-o" << path(QStringLiteral("refused"));
        const CliRun run = cli(arguments);
        QCOMPARE(run.exitCode, exitCode);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY2(run.err.contains(why.toUtf8()), run.err.constData());
        QVERIFY(!QFile::exists(path(QStringLiteral("refused"))));
    }

    // dump on a damaged list: a header it cannot read is the one line insert
    // gives too; rows still worth showing come with a note and "complete":
    // false.
    void dumpTellsTheTruth_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<int>("textures"); // rows shown; -1 when refused
        QTest::addColumn<QString>("why");
        const QByteArray big = bigList();
        QTest::newRow("whole") << big << 0 << 1200 << "";
        QTest::newRow("cut in its textures") << big.left(big.size() / 2) << 0 << 0 << "shorter than its tables say";
        QTest::newRow("empty") << QByteArray() << 2 << -1 << "is cut short in its header";
        QTest::newRow("three bytes") << QByteArray("\x2d\0\0", 3) << 2 << -1 << "is cut short in its header";
        QTest::newRow("cut in its level name") << big.left(20) << 2 << -1 << "is cut short in its header";
        QByteArray binaryName = big.left(6) + QByteArray::fromHex("ffff") + QByteArray(0xFFFD, '\x01') + "\\0"
                                + big.mid(8 + 10);
        QTest::newRow("a bitmap name of binary") << binaryName << 2 << -1 << "its bitmap name is not text";
        QByteArray damaged = big;
        C_ListInfo info;
        m_dir.write(QStringLiteral("probe.trt"), big);
        QCOMPARE(info.InitForInsert(path(QStringLiteral("probe.trt"))), C_ListInfo::Success);
        qToLittleEndian(quint16(0xFFFF), damaged.data() + info.OffsetAnimatedTexture() + 4 + 2);
        QTest::newRow("a range longer than its block") << damaged << 0 << 1200 << "claims 65536 textures";
    }

    void dumpTellsTheTruth()
    {
        QFETCH(QByteArray, list);
        QFETCH(int, exitCode);
        QFETCH(int, textures);
        QFETCH(QString, why);
        const QString file = m_dir.write(QStringLiteral("dumped/%1.trt").arg(QTest::currentDataTag()), list);
        const CliRun json = cli({"dump", file, "--json"});
        QCOMPARE(json.exitCode, exitCode);
        if (why.isEmpty()) {
            QVERIFY(json.err.isEmpty());
            QCOMPARE(json.json().value(QStringLiteral("complete")), QJsonValue(true));
            QCOMPARE(textureRows(json), textures);
            return;
        }
        QCOMPARE(json.err.count('\n'), 1);
        QVERIFY2(json.err.contains(why.toUtf8()), json.err.constData());
        QVERIFY(json.err.contains(QFile::encodeName(file)));
        if (exitCode == 0) {
            QCOMPARE(json.json().value(QStringLiteral("complete")), QJsonValue(false));
            if (textures > 0)
                QCOMPARE(textureRows(json), textures);
            else
                QVERIFY(textureRows(json) < 1200);
        }
        // insert reads the list the same way: what dump refuses or notes, it
        // refuses in the same words, and writes nothing.
        const QString out = path(QStringLiteral("dumped/out.tr2"));
        const CliRun insert = cli({"insert", path(QStringLiteral("level.tr2")), file, "-o", out});
        QCOMPARE(insert.exitCode, 2);
        QVERIFY2(insert.err.contains(why.toUtf8()), insert.err.constData());
        if (exitCode == 2)
            QCOMPARE(insert.err, json.err);
        QVERIFY(!QFile::exists(out));
    }

    // A bitmap refused for the tiles is one line "FILE: cannot be read: WHY",
    // whatever the image library said on the way; a bitmap far larger
    // decoded than its file is refused before it is decoded.
    void bitmapRefusalsAreOneLine_data()
    {
        QTest::addColumn<QByteArray>("bitmap");
        QTest::addColumn<QString>("why");
        // Refused from its header alone, so render, which decodes any
        // picture, refuses it the same way before decoding.
        QTest::addColumn<bool>("bounded");
        const QByteArray png = encoded(QImage(256, 512, QImage::Format_RGB32), "png");
        QImage bomb(256, 131072, QImage::Format_Mono);
        bomb.fill(0);
        QTest::newRow("empty") << QByteArray() << "is empty, not a BMP or PNG image" << false;
        QTest::newRow("text") << QByteArray("plain text") << "is not a BMP or PNG image" << false;
        QTest::newRow("PNG cut short") << png.chopped(40) << "is cut short" << false;
        QTest::newRow("PNG without its palette") << pngWithoutPalette() << "PLTE" << false;
        QTest::newRow("1-bit PNG of 512 tiles") << encoded(bomb, "png") << "would decode" << true;
        QTest::newRow("BMP of more tiles than a level addresses")
            << bmpHeader(256, 256 * 65537) << "more than the 65536 a level can address" << true;
    }

    void bitmapRefusalsAreOneLine()
    {
        QFETCH(QByteArray, bitmap);
        QFETCH(QString, why);
        const QString file = m_dir.write(QStringLiteral("bitmaps/%1").arg(QTest::currentDataTag()), bitmap);
        const QString out = path(QStringLiteral("bitmaps/out.tr2"));
        const CliRun run = cli({"insert", path(QStringLiteral("level.tr2")), path(QStringLiteral("list.trt")),
                                "--tiles=" + file, "-o", out});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY2(run.err.startsWith(QByteArray(QByteArray("brindle-cli: ") + QFile::encodeName(file) + ": cannot be read: ")),
                 run.err.constData());
        QVERIFY2(run.err.contains(why.toUtf8()), run.err.constData());
        QVERIFY(!QFile::exists(out));

        QFETCH(bool, bounded);
        if (!bounded)
            return;
        const QString picture = path(QStringLiteral("bitmaps/out.png"));
        const CliRun render = cli({"render", path(QStringLiteral("level.tr2")), "--bitmap", file, "-o", picture});
        QCOMPARE(render.exitCode, 2);
        QCOMPARE(render.err.count('\n'), 1);
        QVERIFY2(render.err.contains(why.toUtf8()), render.err.constData());
        QVERIFY(!QFile::exists(picture));
    }

    // demo checks all three files before it writes one, and says why a
    // folder cannot be made.
    void demoWritesAllOrNothing_data()
    {
        QTest::addColumn<QString>("prepare"); // what stands in the way
        QTest::addColumn<QString>("why");
        QTest::newRow("the list's name is a folder") << "folder" << "demo.trt: cannot be written: is a directory";
        QTest::newRow("the list is a link to the level") << "link" << "is the same file as";
        QTest::newRow("DIR is beneath a file") << "beneath" << "cannot be made a folder: Not a directory";
    }

    void demoWritesAllOrNothing()
    {
        QFETCH(QString, prepare);
        QFETCH(QString, why);
        QString dir = path(QStringLiteral("demo-") + prepare);
        QDir().mkpath(dir);
        const QString level = dir + QStringLiteral("/demo.tr2");
        if (prepare == QLatin1String("folder")) {
            QDir().mkpath(dir + QStringLiteral("/demo.trt"));
        } else if (prepare == QLatin1String("link")) {
            m_dir.write(level, "kept");
            QVERIFY(QFile::link(level, dir + QStringLiteral("/demo.trt")));
        } else {
            m_dir.write(dir + QStringLiteral("/file"), "a file");
            dir += QStringLiteral("/file/demo");
        }
        const CliRun run = cli({"demo", dir});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY2(run.err.contains(why.toUtf8()), run.err.constData());
        QVERIFY(!QFile::exists(dir + QStringLiteral("/demo.bmp")));
        if (prepare == QLatin1String("link"))
            QCOMPARE(ScratchDir::read(level), QByteArray("kept"));
        else
            QVERIFY(!QFile::exists(level));
    }
};

QTEST_GUILESS_MAIN(tst_CliRefusals)
#include "tst_CliRefusals.moc"
