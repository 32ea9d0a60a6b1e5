#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "demo/DemoColor.h"
#include "demo/DemoLevel.h"
#include "demo/DemoTile16Encoder.h"
#include "support/ExpectedWalk.h"
#include "support/ListFixture.h"
#include "list/ListViewSet.h"
#include "support/ScratchDir.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSet>
#include <QTest>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int Tile = 256;

// The corners a texture uses and the "Hi" bytes before their coordinates; a
// fourth corner that is all zeros is a triangle's unused one.
struct Corners
{
    QList<QPoint> points;
    QList<QPoint> edgeMarks;
};

Corners cornersOf(const ObjectTexture& record)
{
    Corners corners;
    for (int c = 0; c < 4; ++c) {
        const QPoint point(record.column(3 + 2 * c), record.column(4 + 2 * c));
        const QPoint marks(record.column(11 + 2 * c), record.column(12 + 2 * c));
        if (c < 3 || !point.isNull() || !marks.isNull()) {
            corners.points.append(point);
            corners.edgeMarks.append(marks);
        }
    }
    return corners;
}

qint64 cross(const QPoint& a, const QPoint& b, const QPoint& p)
{
    return qint64(b.x() - a.x()) * (p.y() - a.y()) - qint64(b.y() - a.y()) * (p.x() - a.x());
}

QRect boundsOf(const QList<QPoint>& points)
{
    QRect bounds(points.first(), points.first());
    for (const QPoint& p : points)
        bounds = bounds.united(QRect(p, p));
    return bounds;
}

// The pixels of the bitmap a texture shows, row by row.
QList<QRgb> pixelsOf(const QImage& bitmap, const ObjectTexture& record)
{
    const QList<QPoint> polygon = cornersOf(record).points;
    const QRect bounds = boundsOf(polygon);
    QList<QRgb> pixels;
    for (int y = bounds.top(); y <= bounds.bottom(); ++y) {
        for (int x = bounds.left(); x <= bounds.right(); ++x) {
            bool right = true;
            bool left = true;
            for (qsizetype i = 0; i < polygon.size(); ++i) {
                const qint64 side = cross(polygon[i], polygon[(i + 1) % polygon.size()], QPoint(x, y));
                right = right && side >= 0;
                left = left && side <= 0;
            }
            if (right || left)
                pixels.append(bitmap.pixel(x, record.tile() * Tile + y));
        }
    }
    return pixels;
}

QRect boxOf(const SpriteTexture& sprite)
{
    return QRect(sprite.x, sprite.y, (sprite.width >> 8) + 1, (sprite.height >> 8) + 1);
}

bool write(const QString& dir)
{
    FileError error;
    const bool written = DemoLevel::writeInto(dir, &error);
    if (!written)
        qWarning("%s", qPrintable(error.text()));
    return written;
}

} // namespace

class tst_DemoLevel : public QObject
{
    Q_OBJECT

    const DemoLevel m_demo;

private slots:
    void objectTextureShowsItsDrawing_data()
    {
        QTest::addColumn<int>("index");
        for (qsizetype i = 0; i < m_demo.objectTextures().size(); ++i)
            QTest::addRow("texture %02d", int(i)) << int(i);
    }

    // Corners on the edges the marks name, clockwise, inside the tile; the
    // area drawn, and transparent exactly where see-through pixels show.
    void objectTextureShowsItsDrawing()
    {
        QFETCH(int, index);
        const ObjectTexture& record = m_demo.objectTextures()[index];
        QVERIFY(record.tile() < DemoLevel::TileCount);
        const Corners corners = cornersOf(record);
        const QRect bounds = boundsOf(corners.points);
        QVERIFY(bounds.width() > 1 && bounds.height() > 1);
        for (qsizetype c = 0; c < corners.points.size(); ++c) {
            const QPoint& p = corners.points[c];
            QVERIFY(p.x() == bounds.left() || p.x() == bounds.right());
            QVERIFY(p.y() == bounds.top() || p.y() == bounds.bottom());
            QCOMPARE(corners.edgeMarks[c].x(), p.x() == bounds.right() ? 255 : 1);
            QCOMPARE(corners.edgeMarks[c].y(), p.y() == bounds.bottom() ? 255 : 1);
            const QPoint& next = corners.points[(c + 1) % corners.points.size()];
            const QPoint& after = corners.points[(c + 2) % corners.points.size()];
            QVERIFY2(cross(p, next, after) > 0, "corners must run clockwise");
        }
        const QList<QRgb> pixels = pixelsOf(m_demo.bitmap(), record);
        const qsizetype holes = std::count(pixels.begin(), pixels.end(), DemoColor::SeeThrough);
        QCOMPARE(record.attribute(), quint16(holes > 0 ? 1 : 0));
        QVERIFY2(holes < pixels.size() * 9 / 10, "the texture is mostly background");
    }

    void quadsDoNotOverlap()
    {
        const QList<ObjectTexture>& textures = m_demo.objectTextures();
        for (qsizetype a = 0; a < textures.size(); ++a) {
            for (qsizetype b = a + 1; b < textures.size(); ++b) {
                const QList<QPoint> first = cornersOf(textures[a]).points;
                const QList<QPoint> second = cornersOf(textures[b]).points;
                if (textures[a].tile() == textures[b].tile() && (first.size() == 4 || second.size() == 4))
                    QVERIFY2(!boundsOf(first).intersects(boundsOf(second)),
                             qPrintable(QStringLiteral("textures %1 and %2 overlap").arg(a).arg(b)));
            }
        }
    }

    void spriteBoxHoldsItsDrawing_data()
    {
        QTest::addColumn<int>("index");
        for (qsizetype i = 0; i < m_demo.spriteTextures().size(); ++i)
            QTest::addRow("sprite %02d", int(i)) << int(i);
    }

    // The box lies in its tile, holds a drawing and nothing of it lies just
    // outside; the world stretch keeps the drawing's proportions.
    void spriteBoxHoldsItsDrawing()
    {
        QFETCH(int, index);
        const SpriteTexture& sprite = m_demo.spriteTextures()[index];
        QVERIFY(sprite.tile < DemoLevel::TileCount);
        QCOMPARE(sprite.width & 0xFF, 255);
        QCOMPARE(sprite.height & 0xFF, 255);
        const QRect box = boxOf(sprite);
        QVERIFY(QRect(0, 0, Tile, Tile).contains(box));

        const QImage tile = m_demo.bitmap().copy(0, sprite.tile * Tile, Tile, Tile);
        int drawn = 0;
        const QRect ring = box.adjusted(-1, -1, 1, 1).intersected(tile.rect());
        for (int y = ring.top(); y <= ring.bottom(); ++y) {
            for (int x = ring.left(); x <= ring.right(); ++x) {
                const bool seeThrough = tile.pixel(x, y) == DemoColor::SeeThrough;
                drawn += !seeThrough;
                QVERIFY2(box.contains(x, y) || seeThrough,
                         qPrintable(QStringLiteral("drawing at %1,%2 outside the box").arg(x).arg(y)));
            }
        }
        // Small frames of an animation share the box of its largest frame.
        QVERIFY(drawn * 64 > box.width() * box.height());

        QCOMPARE(sprite.left, qint16(-sprite.right));
        QVERIFY(sprite.top < sprite.bottom && sprite.bottom >= 0);
        QCOMPARE((sprite.right - sprite.left) * box.height(), (sprite.bottom - sprite.top) * box.width());
    }

    // Each sequence starts where the one before ended, its frames share one
    // tile and size, and together they cover every sprite under distinct ids.
    void sequencesCoverEverySpriteOnce()
    {
        const QList<SpriteSequence>& sequences = m_demo.spriteSequences();
        const QList<SpriteTexture>& sprites = m_demo.spriteTextures();
        QSet<qint32> ids;
        int next = 0;
        for (const SpriteSequence& sequence : sequences) {
            QCOMPARE(int(sequence.first), next);
            QVERIFY(sequence.number() >= 1);
            next += sequence.number();
            QVERIFY(next <= sprites.size());
            const SpriteTexture& opening = sprites[sequence.first];
            for (int i = 1; i < sequence.number(); ++i) {
                const SpriteTexture& frame = sprites[sequence.first + i];
                QCOMPARE(frame.tile, opening.tile);
                QCOMPARE(boxOf(frame).size(), boxOf(opening).size());
                QVERIFY(frame.x != opening.x || frame.y != opening.y);
            }
            ids.insert(sequence.objectId);
        }
        QCOMPARE(next, sprites.size());
        QCOMPARE(ids.size(), sequences.size());
    }

    void animationRangesCycleDistinctFrames()
    {
        QVERIFY(!m_demo.animatedTextures().ranges.isEmpty());
        for (const AnimatedTextureBlock::Range& range : m_demo.animatedTextures().ranges) {
            QVERIFY(range.size() >= 2);
            QList<QList<QRgb>> frames;
            for (const quint16 texture : range) {
                QVERIFY(texture < m_demo.objectTextures().size());
                frames.append(pixelsOf(m_demo.bitmap(), m_demo.objectTextures()[texture]));
            }
            for (qsizetype a = 0; a < frames.size(); ++a) {
                QCOMPARE(frames[a].size(), frames.first().size());
                for (qsizetype b = a + 1; b < frames.size(); ++b)
                    QVERIFY2(frames[a] != frames[b], qPrintable(QStringLiteral("frames %1 and %2 match").arg(a).arg(b)));
            }
        }
    }

    void pixelEncodesAsARGB1555_data()
    {
        QTest::addColumn<QRgb>("colour");
        QTest::addColumn<quint16>("word");
        QTest::newRow("see-through") << DemoColor::SeeThrough << quint16(0x0000);
        QTest::newRow("black is opaque") << qRgb(0, 0, 0) << quint16(0x8000);
        QTest::newRow("white") << qRgb(255, 255, 255) << quint16(0xFFFF);
        QTest::newRow("red") << qRgb(255, 0, 0) << quint16(0xFC00);
        QTest::newRow("green") << qRgb(0, 255, 0) << quint16(0x83E0);
        QTest::newRow("blue") << qRgb(0, 0, 255) << quint16(0x801F);
        QTest::newRow("low bits dropped") << qRgb(15, 23, 31) << quint16(0x8000 | 1 << 10 | 2 << 5 | 3);
        QTest::newRow("next to see-through") << qRgb(255, 0, 254) << quint16(0xFC1F);
    }

    void pixelEncodesAsARGB1555()
    {
        QFETCH(QRgb, colour);
        QFETCH(quint16, word);
        QCOMPARE(DemoTile16Encoder::pixel(colour, DemoColor::SeeThrough), word);
    }

    // Four tiles stacked downwards, encoded row by row.
    void tiles16FollowTheBitmap()
    {
        const QImage& bitmap = m_demo.bitmap();
        QCOMPARE(bitmap.size(), QSize(Tile, Tile * DemoLevel::TileCount));
        const QByteArray tiles = m_demo.tiles16();
        QCOMPARE(tiles.size(), DemoLevel::TileCount * SyntheticLevel::Tile16Size);
        for (int y = 0; y < bitmap.height(); ++y) {
            for (int x = 0; x < bitmap.width(); ++x) {
                const quint16 word = qFromLittleEndian<quint16>(tiles.constData() + (y * Tile + x) * 2);
                if (word != DemoTile16Encoder::pixel(bitmap.pixel(x, y), DemoColor::SeeThrough))
                    QFAIL(qPrintable(QStringLiteral("pixel %1,%2").arg(x).arg(y)));
            }
        }
    }

    // The level walks to the demo's tables and carries its tiles, the bitmap is
    // the drawing, and the list extracted from the level holds the demo's rows.
    void writtenFilesHoldTheDemo()
    {
        ScratchDir dir;
        QVERIFY(write(dir.path()));
        const SyntheticLevel level = m_demo.level();
        C_LevelInfo info;
        info.Init(DemoLevel::levelPath(dir.path()));
        QCOMPARE(info.Game(), LevelVersion::Game::TR2);
        ExpectedWalk::of(level).verify(info);
        const qint64 tiles16 = level.layout().at(SyntheticField::TileCount) + 4
            + DemoLevel::TileCount * SyntheticLevel::Tile8Size;
        QVERIFY(ScratchDir::read(DemoLevel::levelPath(dir.path())).mid(tiles16, m_demo.tiles16().size())
                == m_demo.tiles16());

        const QImage saved(DemoLevel::bitmapPath(dir.path()));
        QCOMPARE(saved.convertToFormat(QImage::Format_RGB32), m_demo.bitmap());

        ListViewSet views;
        C_ListInfo list;
        QCOMPARE(views.openList(list, DemoLevel::listPath(dir.path())), C_ListInfo::Success);
        QCOMPARE(list.Version(), LevelVersion::TR2);
        QCOMPARE(list.LevelFileName(), DemoLevel::levelPath(dir.path()));
        QCOMPARE(list.BitMapName(), DemoLevel::bitmapPath(dir.path()));
        ListViewSet expected;
        ListFixture{m_demo.objectTextures(), m_demo.animatedTextures(), m_demo.spriteTextures(),
                    m_demo.spriteSequences()}.fill(expected);
        QCOMPARE(ListFixture::viewRows(views), ListFixture::viewRows(expected));
    }

    // Written twice into one folder, and once into another: the level and
    // the bitmap never change; the list only names the folder it is in.
    void everyRunWritesTheSameBytes()
    {
        const auto contents = [](const QString& dir) {
            QList<QByteArray> files;
            for (const QString& path : DemoLevel::paths(dir))
                files.append(ScratchDir::read(path));
            return files;
        };
        ScratchDir first;
        ScratchDir second;
        QVERIFY(write(first.path()));
        const QList<QByteArray> before = contents(first.path());
        QVERIFY(!before.contains(QByteArray()));
        QVERIFY(write(first.path()) && write(second.path()));
        QVERIFY(contents(first.path()) == before);
        QVERIFY(contents(second.path()).mid(0, 2) == before.mid(0, 2));
        QVERIFY(DemoLevel().bitmap() == m_demo.bitmap());
    }

    void writingIntoAnImpossiblePlaceFails_data()
    {
        QTest::addColumn<QString>("blocker");  // created before writing
        QTest::addColumn<bool>("blockerIsFolder");
        QTest::addColumn<QString>("target");   // the folder to write into
        QTest::addColumn<QString>("failing");  // the path the error names
        QTest::addColumn<QStringList>("absent");
        QTest::newRow("folder below a regular file")
            << "plain" << false << "plain/demo" << "plain/demo" << QStringList{};
        QTest::newRow("folder is a regular file")
            << "plain" << false << "plain" << "plain" << QStringList{};
        QTest::newRow("level name taken by a folder")
            << "out/demo.tr2" << true << "out" << "out/demo.tr2" << QStringList{"out/demo.bmp", "out/demo.trt"};
        QTest::newRow("bitmap name taken by a folder")
            << "out/demo.bmp" << true << "out" << "out/demo.bmp" << QStringList{"out/demo.trt"};
        QTest::newRow("list name taken by a folder")
            << "out/demo.trt" << true << "out" << "out/demo.trt" << QStringList{};
    }

    void writingIntoAnImpossiblePlaceFails()
    {
        QFETCH(QString, blocker);
        QFETCH(bool, blockerIsFolder);
        QFETCH(QString, target);
        QFETCH(QString, failing);
        QFETCH(QStringList, absent);
        ScratchDir dir;
        QVERIFY(blockerIsFolder ? QDir(dir.path()).mkpath(blocker) : !dir.write(blocker, "not a folder").isEmpty());
        FileError error;
        QVERIFY(!DemoLevel::writeInto(dir.filePath(target), &error));
        QCOMPARE(error.file(), dir.filePath(failing));
        QVERIFY(error.failed());
        QVERIFY(!error.text().contains(QLatin1Char('\n')));
        for (const QString& path : absent)
            QVERIFY2(!QFile::exists(dir.filePath(path)), qPrintable(path));
    }
};

QTEST_MAIN(tst_DemoLevel)
#include "tst_DemoLevel.moc"
