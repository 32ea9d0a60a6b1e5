#include "C_LevelInfo.h"
#include "C_ListInfo.h"
#include "DemoColor.h"
#include "DemoLevel.h"
#include "DemoTile16Encoder.h"
#include "ExpectedWalk.h"
#include "ListViewSet.h"
#include "ScratchDir.h"
#include "m_SpriteList.h"
#include "m_TextureList.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSet>
#include <QTest>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int Tile = 256;

struct Corners
{
    QList<QPoint> points;
    QList<QPoint> edgeMarks; // the "Hi" bytes of each corner
};

Corners cornersOf(const ObjectTexture& record)
{
    Corners corners;
    for (int c = 0; c < 4; ++c) {
        const QPoint point(record.column(3 + 2 * c), record.column(4 + 2 * c));
        const QPoint marks(record.column(11 + 2 * c), record.column(12 + 2 * c));
        const bool unused = c == 3 && point.isNull() && marks.isNull();
        if (!unused) {
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

bool covers(const QList<QPoint>& polygon, const QPoint& p)
{
    bool allRight = true;
    bool allLeft = true;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const qint64 side = cross(polygon[i], polygon[(i + 1) % polygon.size()], p);
        allRight = allRight && side >= 0;
        allLeft = allLeft && side <= 0;
    }
    return allRight || allLeft;
}

QRect boundsOf(const QList<QPoint>& points)
{
    QRect bounds(points.first(), points.first());
    for (const QPoint& p : points)
        bounds = bounds.united(QRect(p, p));
    return bounds;
}

// The pixels of the bitmap a texture shows, in bitmap coordinates.
QList<QRgb> pixelsOf(const QImage& bitmap, const ObjectTexture& record)
{
    const QList<QPoint> polygon = cornersOf(record).points;
    const QRect bounds = boundsOf(polygon);
    QList<QRgb> pixels;
    for (int y = bounds.top(); y <= bounds.bottom(); ++y)
        for (int x = bounds.left(); x <= bounds.right(); ++x)
            if (covers(polygon, QPoint(x, y)))
                pixels.append(bitmap.pixel(x, record.tile() * Tile + y));
    return pixels;
}

qsizetype seeThroughCount(const QList<QRgb>& pixels)
{
    return std::count(pixels.begin(), pixels.end(), DemoColor::SeeThrough);
}

QRect boxOf(const SpriteTexture& sprite)
{
    return QRect(sprite.x, sprite.y, (sprite.width >> 8) + 1, (sprite.height >> 8) + 1);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

template <typename Record>
QByteArray recordBytes(const QList<Record>& records)
{
    QByteArray bytes(records.size() * Record::Size, '\0');
    for (qsizetype i = 0; i < records.size(); ++i)
        records[i].toBytes(bytes.data() + i * Record::Size);
    return bytes;
}

QByteArray wordBytes(const QList<quint16>& words)
{
    QByteArray bytes(words.size() * 2, '\0');
    for (qsizetype i = 0; i < words.size(); ++i)
        qToLittleEndian(words[i], bytes.data() + i * 2);
    return bytes;
}

} // namespace

class tst_DemoLevel : public QObject
{
    Q_OBJECT

private:
    const DemoLevel m_demo;

    static bool write(const QString& dir)
    {
        QString error;
        const bool written = DemoLevel::writeInto(dir, &error);
        if (!written)
            qWarning("%s", qPrintable(error));
        return written;
    }

private slots:
    void bitmapIsFourStackedTiles()
    {
        QCOMPARE(m_demo.bitmap().size(), QSize(Tile, Tile * DemoLevel::TileCount));
    }

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
        QVERIFY(corners.points.size() >= 3);
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
        const qsizetype holes = seeThroughCount(pixels);
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
                if (textures[a].tile() != textures[b].tile() || (first.size() == 3 && second.size() == 3))
                    continue;
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
        for (int y = box.top(); y <= box.bottom(); ++y)
            for (int x = box.left(); x <= box.right(); ++x)
                drawn += tile.pixel(x, y) != DemoColor::SeeThrough;
        // Small frames of an animation share the box of its largest frame.
        QVERIFY(drawn * 64 > box.width() * box.height());
        const QRect ring = box.adjusted(-1, -1, 1, 1).intersected(tile.rect());
        for (int y = ring.top(); y <= ring.bottom(); ++y)
            for (int x = ring.left(); x <= ring.right(); ++x)
                if (!box.contains(x, y))
                    QVERIFY2(tile.pixel(x, y) == DemoColor::SeeThrough,
                             qPrintable(QStringLiteral("drawing at %1,%2 outside the box").arg(x).arg(y)));

        QCOMPARE(sprite.left, qint16(-sprite.right));
        QVERIFY(sprite.top < sprite.bottom && sprite.bottom >= 0);
        QCOMPARE((sprite.right - sprite.left) * box.height(), (sprite.bottom - sprite.top) * box.width());
    }

    void sequenceFollowsThePrevious_data()
    {
        QTest::addColumn<int>("index");
        for (qsizetype i = 0; i < m_demo.spriteSequences().size(); ++i)
            QTest::addRow("sequence %02d", int(i)) << int(i);
    }

    // Starts where the one before ended; its frames share one tile and size.
    void sequenceFollowsThePrevious()
    {
        QFETCH(int, index);
        const QList<SpriteSequence>& sequences = m_demo.spriteSequences();
        const SpriteSequence& sequence = sequences[index];
        const int expectedFirst = index == 0 ? 0 : sequences[index - 1].first + sequences[index - 1].number();
        QCOMPARE(int(sequence.first), expectedFirst);
        QVERIFY(sequence.number() >= 1);
        QVERIFY(sequence.first + sequence.number() <= m_demo.spriteTextures().size());
        const SpriteTexture& opening = m_demo.spriteTextures()[sequence.first];
        for (int i = 1; i < sequence.number(); ++i) {
            const SpriteTexture& frame = m_demo.spriteTextures()[sequence.first + i];
            QCOMPARE(frame.tile, opening.tile);
            QCOMPARE(boxOf(frame).size(), boxOf(opening).size());
            QVERIFY(frame.x != opening.x || frame.y != opening.y);
        }
    }

    void sequencesCoverEverySpriteOnce()
    {
        const QList<SpriteSequence>& sequences = m_demo.spriteSequences();
        QVERIFY(!sequences.isEmpty());
        QCOMPARE(sequences.last().first + sequences.last().number(), int(m_demo.spriteTextures().size()));
        QSet<qint32> ids;
        for (const SpriteSequence& sequence : sequences)
            ids.insert(sequence.objectId);
        QCOMPARE(ids.size(), sequences.size());
    }

    void animationRangeCyclesDistinctFrames_data()
    {
        QTest::addColumn<int>("index");
        for (qsizetype i = 0; i < m_demo.animatedTextures().ranges.size(); ++i)
            QTest::addRow("range %d", int(i)) << int(i);
    }

    void animationRangeCyclesDistinctFrames()
    {
        QFETCH(int, index);
        const AnimatedTextureBlock::Range& range = m_demo.animatedTextures().ranges[index];
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

    void tiles16FollowTheBitmapRowByRow()
    {
        const QByteArray tiles = m_demo.tiles16();
        QCOMPARE(tiles.size(), DemoLevel::TileCount * SyntheticLevel::Tile16Size);
        const QImage& bitmap = m_demo.bitmap();
        for (int y = 0; y < bitmap.height(); ++y) {
            for (int x = 0; x < bitmap.width(); ++x) {
                const quint16 word = qFromLittleEndian<quint16>(tiles.constData() + (y * Tile + x) * 2);
                if (word != DemoTile16Encoder::pixel(bitmap.pixel(x, y), DemoColor::SeeThrough))
                    QFAIL(qPrintable(QStringLiteral("pixel %1,%2").arg(x).arg(y)));
            }
        }
    }

    void writtenLevelWalksToItsTables()
    {
        ScratchDir dir;
        QVERIFY(write(dir.path()));
        const SyntheticLevel level = m_demo.level();
        C_LevelInfo info;
        info.Init(DemoLevel::levelPath(dir.path()));
        QCOMPARE(info.Game(), LevelVersion::Game::TR2);
        ExpectedWalk::of(level).verify(info);
        if (QTest::currentTestFailed())
            return;

        const QByteArray bytes = readFile(DemoLevel::levelPath(dir.path()));
        QCOMPARE(bytes.mid(info.OffsetObjectTexture() + 4, info.SizeObjectTexture()),
                 recordBytes(m_demo.objectTextures()));
        QCOMPARE(bytes.mid(info.OffsetSpriteTexture() + 4, info.SizeSpriteTexture()),
                 recordBytes(m_demo.spriteTextures()));
        QCOMPARE(bytes.mid(info.OffsetSpriteSequence() + 4, info.SizeSpriteSequence()),
                 recordBytes(m_demo.spriteSequences()));
        QCOMPARE(bytes.mid(info.OffsetAnimatedTexture() + 4, info.SizeAnimatedTexture()),
                 wordBytes(m_demo.animatedTextures().toWords()));
        const qint64 tiles16 = level.layout().at(SyntheticField::TileCount) + 4
            + DemoLevel::TileCount * SyntheticLevel::Tile8Size;
        QVERIFY(bytes.mid(tiles16, m_demo.tiles16().size()) == m_demo.tiles16());
    }

    void writtenBitmapIsTheDrawing()
    {
        ScratchDir dir;
        QVERIFY(write(dir.path()));
        const QImage saved(DemoLevel::bitmapPath(dir.path()));
        QCOMPARE(saved.convertToFormat(QImage::Format_RGB32), m_demo.bitmap());
    }

    void extractedListReopensWithTheDemoRows()
    {
        ScratchDir dir;
        QVERIFY(write(dir.path()));
        ListViewSet views;
        C_ListInfo list;
        QCOMPARE(list.Init(DemoLevel::listPath(dir.path()), QString(), QString(), &views.lsvTextures,
                           &views.lsvAnims, &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences,
                           &views.lsvSequenceDetails),
                 C_ListInfo::Success);
        QCOMPARE(list.GetAllListContents(), C_ListInfo::Success);
        QCOMPARE(list.Version(), LevelVersion::TR2);
        QCOMPARE(list.LevelFileName(), DemoLevel::levelPath(dir.path()));
        QCOMPARE(list.BitMapName(), DemoLevel::bitmapPath(dir.path()));

        qsizetype animatedTextures = 0;
        for (const AnimatedTextureBlock::Range& range : m_demo.animatedTextures().ranges)
            animatedTextures += range.size();
        QCOMPARE(views.lsvTextures.count(), m_demo.objectTextures().size());
        QCOMPARE(views.lsvAnims.count(), m_demo.animatedTextures().ranges.size());
        QCOMPARE(views.lsvAnimDetails.count(), animatedTextures);
        QCOMPARE(views.lsvSprites.count(), m_demo.spriteTextures().size());
        QCOMPARE(views.lsvSequences.count(), m_demo.spriteSequences().size());
        QCOMPARE(views.lsvSequenceDetails.count(), m_demo.spriteSequences().size());
        for (int i = 0; i < views.lsvTextures.count(); ++i)
            QCOMPARE(m_TextureList::ObjectTextureOfRow(views.lsvTextures, i), m_demo.objectTextures()[i]);
        for (int i = 0; i < views.lsvSprites.count(); ++i)
            QCOMPARE(m_SpriteList::SpriteOfRow(views.lsvSprites, i), m_demo.spriteTextures()[i]);
        for (int i = 0; i < views.lsvSequences.count(); ++i)
            QCOMPARE(m_SpriteList::SequenceOfRow(views.lsvSequences, i), m_demo.spriteSequences()[i]);
    }

    // Written twice into one folder, and once into another: the level and
    // the bitmap never change; the list only names the folder it is in.
    void everyRunWritesTheSameBytes()
    {
        ScratchDir first;
        ScratchDir second;
        QVERIFY(write(first.path()));
        QList<QByteArray> before;
        for (const QString& path : DemoLevel::paths(first.path()))
            before.append(readFile(path));
        QVERIFY(write(first.path()));
        QVERIFY(write(second.path()));
        const QStringList again = DemoLevel::paths(first.path());
        const QStringList elsewhere = DemoLevel::paths(second.path());
        for (qsizetype i = 0; i < again.size(); ++i) {
            QVERIFY(!before[i].isEmpty());
            QVERIFY2(readFile(again[i]) == before[i], qPrintable(again[i]));
        }
        QVERIFY(readFile(elsewhere[0]) == before[0]);
        QVERIFY(readFile(elsewhere[1]) == before[1]);
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
        const QDir root(dir.path());
        if (blockerIsFolder)
            QVERIFY(root.mkpath(blocker));
        else
            QVERIFY(!dir.write(blocker, "not a folder").isEmpty());

        QString error;
        QString file;
        QVERIFY(!DemoLevel::writeInto(root.filePath(target), &error, &file));
        QCOMPARE(file, root.filePath(failing));
        QVERIFY(!error.isEmpty());
        QVERIFY(!error.contains(QLatin1Char('\n')));
        for (const QString& path : absent)
            QVERIFY2(!QFile::exists(root.filePath(path)), qPrintable(path));
    }
};

QTEST_MAIN(tst_DemoLevel)
#include "tst_DemoLevel.moc"
