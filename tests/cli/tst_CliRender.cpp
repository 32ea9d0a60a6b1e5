#include "list/C_ListInfo.h"
#include "list/ListViewSet.h"
#include "support/CliRun.h"
#include "support/ListFixture.h"
#include "support/ScratchDir.h"
#include "synthetic/SyntheticScene.h"

#include <QImage>
#include <QProcess>
#include <QTest>

using Scene = SyntheticScene;

// brindle-cli render on a level of known rooms, run as a user runs it.
class tst_CliRender : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;
    Scene m_scene{3, 3, 20};
    QString m_level;

    static CliRun cli(const QStringList& arguments,
                      const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
    {
        return CliRun::of(arguments, environment);
    }

    // The picture written by render with arguments after the level.
    QImage render(const QString& name, const QStringList& options)
    {
        const QString out = m_dir.filePath(name);
        const CliRun run = cli(QStringList{"render", m_level, "-o", out} + options);
        if (run.err.contains("no OpenGL context"))
            return {};
        if (run.exitCode != 0)
            qWarning() << run.err;
        return run.exitCode == 0 ? QImage(out) : QImage();
    }

    static int colourCount(const QImage& image)
    {
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); y += 3) {
            for (int x = 0; x < image.width(); x += 3)
                colours.insert(image.pixel(x, y));
        }
        return int(colours.size());
    }

private slots:
    void initTestCase()
    {
        m_level = m_dir.write(QStringLiteral("rooms.tr2"), m_scene.level(LevelVersion::Game::TR2).build());
        QVERIFY(!m_level.isEmpty());
        if (cli({"render", m_level, "--size", "64x64", "-o", m_dir.filePath("probe.png")}).err.contains("no OpenGL context"))
            QSKIP("no OpenGL context can be made here: render refuses, as the refusal test checks");
    }

    void drawsTheLevelAtItsSize()
    {
        const QImage image = render("level.png", {"--size", "400x300"});
        QCOMPARE(image.size(), QSize(400, 300));
        // Background, walls, the cube and many floor textures.
        QVERIFY(colourCount(image) > 10);
    }

    void optionsChangeThePicture_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::newRow("a room framed") << QStringList{"--room", "2"};
        QTest::newRow("a texture highlighted") << QStringList{"--highlight", QString::number(Scene::WallTexture)};
        QTest::newRow("another bitmap") << QStringList{"--bitmap", "{bitmap}"};
        QTest::newRow("a list's textures") << QStringList{"--list", "{list}"};
    }

    void optionsChangeThePicture()
    {
        QFETCH(QStringList, options);
        QImage other = m_scene.bitmap();
        other.fill(Qt::darkGreen);
        const QString bitmap = m_dir.filePath("green.png");
        QVERIFY(other.save(bitmap));
        options.replaceInStrings("{bitmap}", bitmap);
        // The list holds the level's textures but for the walls', moved onto texture 5's square.
        ListFixture tables;
        tables.objectTextures = m_scene.objectTextures();
        tables.objectTextures[Scene::WallTexture] = tables.objectTextures[5];
        ListViewSet views;
        QCOMPARE(tables.write(views, m_dir.filePath("moved.trt"), m_level), C_ListInfo::Success);
        options.replaceInStrings("{list}", m_dir.filePath("moved.trt"));
        const QImage plain = render("plain.png", {"--size", "320x240"});
        const QImage changed = render("changed.png", QStringList{"--size", "320x240"} + options);
        QVERIFY(!plain.isNull() && !changed.isNull());
        QVERIFY(plain != changed);
        // The same options give the same picture.
        QCOMPARE(render("again.png", QStringList{"--size", "320x240"} + options), changed);
    }

    void refusedWithoutAnyDisplay()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        environment.remove("WAYLAND_DISPLAY");
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        const CliRun run = cli({"render", m_level, "-o", m_dir.filePath("none.png")}, environment);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.err.count('\n'), 1);
        QVERIFY(run.err.startsWith("brindle-cli: render: no OpenGL context"));
        QVERIFY(!QFile::exists(m_dir.filePath("none.png")));
    }
};

QTEST_GUILESS_MAIN(tst_CliRender)
#include "tst_CliRender.moc"
