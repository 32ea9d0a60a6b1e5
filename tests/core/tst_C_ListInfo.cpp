#include "list/C_ListInfo.h"
#include "level/LevelVersion.h"
#include "level/TableCountLimits.h"
#include "support/ListFixture.h"
#include "list/ListViewSet.h"
#include "support/ScratchDir.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QtEndian>

namespace {

quint32 u32(const QByteArray& bytes, qint64 at) { return qFromLittleEndian<quint32>(bytes.constData() + at); }
quint16 u16(const QByteArray& bytes, qint64 at) { return qFromLittleEndian<quint16>(bytes.constData() + at); }

} // namespace

class tst_C_ListInfo : public QObject
{
    Q_OBJECT

    ScratchDir m_dir;

    // A level that is nothing but its version long.
    QString levelOf(quint32 version) const
    {
        QByteArray bytes(4, '\0');
        qToLittleEndian(version, bytes.data());
        return m_dir.write(QStringLiteral("level-%1.tr2").arg(version, 0, 16), bytes);
    }

    // A new list of fixture's tables saved as name, the way New List makes one.
    QString written(const QString& name, const ListFixture& fixture, const QString& bitmap = QStringLiteral("C:\\a.bmp"))
    {
        ListViewSet views;
        const QString path = m_dir.filePath(name);
        return fixture.write(views, path, levelOf(LevelVersion::TR2), bitmap) == C_ListInfo::Success ? path : QString();
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void header_data()
    {
        QTest::addColumn<QString>("bitmap");
        QTest::addColumn<QByteArray>("stored");
        QTest::newRow("named") << QStringLiteral("C:\\a.bmp") << QByteArray("C:\\a.bmp\\0");
        QTest::newRow("empty name") << QString() << QByteArray("\\0");
    }

    // Each name is stored with the two characters "\0" after it, counted in
    // its length field.
    void header()
    {
        QFETCH(QString, bitmap);
        QFETCH(QByteArray, stored);
        const QString list = written(QStringLiteral("header-%1.trt").arg(QTest::currentDataTag()), ListFixture::random(1, 1, 2, 0, 0, 1), bitmap);
        const QByteArray bytes = ScratchDir::read(list);
        QCOMPARE(u32(bytes, 0), LevelVersion::TR2);
        QCOMPARE(u16(bytes, 4), quint16(0));
        QCOMPARE(u16(bytes, 6), quint16(stored.size()));
        QCOMPARE(bytes.mid(8, stored.size()), stored);
        const QByteArray level = QFile::encodeName(levelOf(LevelVersion::TR2)) + "\\0";
        const qint64 p = 8 + stored.size();
        QCOMPARE(u16(bytes, p), quint16(level.size()));
        QCOMPARE(bytes.mid(p + 2, level.size()), level);

        C_ListInfo reread;
        QCOMPARE(reread.InitForInsert(list), C_ListInfo::Success);
        QCOMPARE(reread.BitMapName(), bitmap);
        QCOMPARE(reread.BitMapNameLength(), stored.size());
        QCOMPARE(reread.OffsetObjectTexture(), p + 2 + level.size());
    }

    // The tables follow each other from the header on; the animated block
    // holds the range count as one word, and the sprite count follows it.
    void tablesFollowEachOther()
    {
        ListFixture fixture = ListFixture::random(0, 0, 0, 4, 1, 3);
        fixture.animations.ranges = {{10, 11, 12}, {20, 21}};
        const QString list = written(QStringLiteral("positions.trt"), fixture);
        C_ListInfo info;
        QCOMPARE(info.InitForInsert(list), C_ListInfo::Success);
        const qint64 h = info.OffsetObjectTexture();
        QCOMPARE(info.NumberObjectTexture(), 0);
        QCOMPARE(info.SizeObjectTexture(), 0);
        QCOMPARE(info.OffsetAnimatedTexture(), h + 4);
        QCOMPARE(info.NumberAnimatedTexture(), 8); // words, not ranges
        QCOMPARE(info.OffsetSpriteTexture(), h + 4 + 4 + 2 * 8);
        QCOMPARE(info.NumberSpriteTexture(), 4);
        QCOMPARE(info.OffsetSpriteSequence(), info.OffsetSpriteTexture() + 4 + 64);
        QCOMPARE(info.Offset_EOF(), info.OffsetSpriteSequence() + 4 + 8);
        QCOMPARE(info.Offset_EOF(), QFileInfo(list).size());
        const QByteArray bytes = ScratchDir::read(list);
        QList<quint16> words;
        for (int i = 0; i < 10; ++i)
            words.append(u16(bytes, h + 4 + 2 * i));
        QCOMPARE(words, (QList<quint16>{8, 0, 2, 2, 10, 11, 12, 1, 20, 21}));
        QCOMPARE(u32(bytes, h + 24), quint32(4));
    }

    // A later range starting with a texture an earlier one holds keeps its
    // own textures: the writer finds them by the range, not its "First".
    void rangesSharingAFirstTextureKeepTheirOwn()
    {
        ListFixture fixture;
        fixture.animations.ranges = {{5, 6}, {5, 7}};
        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(reread.openList(info, written(QStringLiteral("shared-first.trt"), fixture)),
                 C_ListInfo::Success);
        QCOMPARE(reread.lsvAnimDetails.subItem(3, 1), QStringLiteral("7"));
    }

    void listWithoutRanges_data()
    {
        QTest::addColumn<int>("sprites");
        QTest::newRow("three sprites") << 3;
        QTest::newRow("no sprites") << 0;
    }

    // Without ranges the writer leaves a lone 0 word behind the count of 0,
    // and a reader trusting the count looks for the sprite count two bytes
    // early. Where that reading runs past the file, the list says why and
    // reads no sprite rows made of other fields' bytes.
    void listWithoutRanges()
    {
        QFETCH(int, sprites);
        const ListFixture fixture = ListFixture::random(2, 0, 0, sprites, 0, 4);
        const QString list = written(QStringLiteral("no-ranges-%1.trt").arg(sprites), fixture);
        const QByteArray bytes = ScratchDir::read(list);
        C_ListInfo info;
        ListViewSet reread;
        QCOMPARE(reread.openList(info, list), C_ListInfo::Success);
        const qint64 p = info.OffsetAnimatedTexture();
        QCOMPARE(bytes.mid(p, 6), QByteArray(6, '\0'));
        QCOMPARE(u32(bytes, p + 6), quint32(sprites)); // where the writer put the sprite count
        QCOMPARE(info.NumberAnimatedTexture(), 0);
        QCOMPARE(info.OffsetSpriteTexture(), p + 4);
        QCOMPARE(info.NumberSpriteTexture(), qint64(sprites) << 16);
        QCOMPARE(reread.lsvAnims.count(), 0);
        QCOMPARE(reread.lsvTextures.count(), 2);
        QCOMPARE(reread.lsvSprites.count(), 0);
        QCOMPARE(reread.lsvSequences.count(), 0);
        QCOMPARE(info.AreTablesAfterLoneWord(), sprites > 0);
        QCOMPARE(info.LoneWordNotice().contains(QStringLiteral("saved without animation ranges")), sprites > 0);
        if (sprites == 0)
            QCOMPARE(info.Offset_EOF() + 2, bytes.size());
    }

    void roundTrip_data()
    {
        // Object textures, ranges, textures per range, sprites, sequences.
        QTest::addColumn<QList<int>>("shape");
        QTest::newRow("one of each") << QList<int>{1, 1, 1, 1, 1};
        QTest::newRow("120 textures") << QList<int>{120, 3, 4, 10, 2};
        QTest::newRow("no textures") << QList<int>{0, 2, 2, 0, 0};
        QTest::newRow("large") << QList<int>{3000, 150, 4, 700, 120};
        QTest::newRow("every table full") << QList<int>{int(TableCountLimits::ObjectTextures), 1000, 3,
                                                        int(TableCountLimits::SpriteTextures),
                                                        int(TableCountLimits::SpriteSequences)};
    }

    // Reopened, a list shows the rows it was saved from; saved again, it is
    // the same bytes.
    void roundTrip()
    {
        QFETCH(QList<int>, shape);
        const ListFixture fixture = ListFixture::random(shape[0], shape[1], shape[2], shape[3], shape[4], 42);
        ListViewSet written;
        const QString list = m_dir.filePath(QStringLiteral("round-%1.trt").arg(QTest::currentDataTag()));
        QCOMPARE(fixture.write(written, list, levelOf(LevelVersion::TR2)), C_ListInfo::Success);
        const QByteArray first = ScratchDir::read(list);
        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(reread.openList(info, list), C_ListInfo::Success);
        QCOMPARE(ListFixture::viewRows(reread), ListFixture::viewRows(written));
        QCOMPARE(info.PutAllListContents(), C_ListInfo::Success);
        QCOMPARE(ScratchDir::read(list), first);
    }

    void rowsFollowTheirLayouts()
    {
        ListFixture fixture = ListFixture::random(120, 2, 3, 2, 2, 9);
        fixture.sequences[1].setNumber(1);
        const QString list = written(QStringLiteral("layouts.trt"), fixture);
        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(reread.openList(info, list), C_ListInfo::Success);
        QCOMPARE(reread.lsvTextures.text(0), QStringLiteral("000"));
        QCOMPARE(reread.lsvTextures.key(119), QStringLiteral("T119"));
        QCOMPARE(reread.lsvAnims.text(1), QStringLiteral("01"));
        QCOMPARE(reread.lsvAnims.key(1), QStringLiteral("A01"));
        QCOMPARE(reread.lsvAnims.row(1).subItems, (QStringList{"3", "3"}));
        QCOMPARE(reread.lsvAnimDetails.text(4), QStringLiteral("01-1"));
        QCOMPARE(reread.lsvAnimDetails.key(4), QStringLiteral("A011"));
        QCOMPARE(reread.lsvSprites.key(1), QStringLiteral("S1"));
        QCOMPARE(reread.lsvSequences.text(1), QStringLiteral("00001"));
        QCOMPARE(reread.lsvSequences.key(1), QStringLiteral("S00001"));
        QCOMPARE(reread.lsvSequences.subItem(1, 1), QStringLiteral("1"));
        QCOMPARE(reread.lsvSequenceDetails.count(), 2);
        QCOMPARE(u16(ScratchDir::read(list), info.OffsetSpriteSequence() + 4 + 8 + 4), quint16(0xFFFF));
    }

    // Without a level the list file is read, whatever version and bitmap the
    // call names; with one the list is new: nothing is written yet and the
    // version is the level's.
    void initWithAndWithoutLevel()
    {
        ListViewSet views;
        const QString existing = written(QStringLiteral("existing.trt"), ListFixture::random(3, 1, 2, 0, 0, 6));
        C_ListInfo info;
        QCOMPARE(info.Init(existing, QString(), QStringLiteral("/other.bmp"), &views.tables(), LevelVersion::TR3),
                 C_ListInfo::Success);
        QCOMPARE(info.BitMapName(), QStringLiteral("C:\\a.bmp"));
        QCOMPARE(info.Version(), LevelVersion::TR2);
        QCOMPARE(info.NumberObjectTexture(), 3);

        const QString list = m_dir.filePath(QStringLiteral("not-yet.trt"));
        C_ListInfo fresh;
        QCOMPARE(views.initList(fresh, list, levelOf(LevelVersion::TR3), QStringLiteral("b.bmp")),
                 C_ListInfo::Success);
        QCOMPARE(fresh.VersionString(), QStringLiteral("FF180038"));
        QCOMPARE(fresh.TypeLevel(), qint16(0));
        QCOMPARE(fresh.LevelFileNameLength(), int(QFile::encodeName(levelOf(LevelVersion::TR3)).size()) + 2);
        QVERIFY(!QFile::exists(list));
    }

    void failuresLeaveEverythingAlone()
    {
        // No records to fill or write: nothing is read or written.
        ListViewSet views;
        const QString partial = m_dir.filePath(QStringLiteral("partial.trt"));
        C_ListInfo missingView;
        missingView.Init(partial, levelOf(LevelVersion::TR2), QStringLiteral("b.bmp"), nullptr);
        QCOMPARE(missingView.GetAllListContents(), C_ListInfo::Failure);
        QCOMPARE(missingView.PutAllListContents(), C_ListInfo::Failure);
        QVERIFY(!QFile::exists(partial));

        // A list file that is not there, or is a folder: the views keep their rows.
        ListFixture::random(4, 1, 2, 1, 1, 8).fill(views);
        const QString missing = m_dir.filePath(QStringLiteral("missing.trt"));
        C_ListInfo absent;
        QCOMPARE(views.openList(absent, missing), C_ListInfo::Failure);
        QVERIFY(!absent.ErrorString().isEmpty());
        QCOMPARE(absent.InitForInsert(m_dir.path()), C_ListInfo::Failure);
        C_ListInfo unread;
        views.initList(unread, missing, levelOf(LevelVersion::TR2), QStringLiteral("b.bmp"));
        QCOMPARE(unread.GetAllListContents(), C_ListInfo::Failure);
        QCOMPARE(views.lsvTextures.count(), 4);
        QVERIFY(!QFile::exists(missing));

        // A folder where the list should be, or no folder for it: nothing replaces it.
        const QString folder = m_dir.filePath(QStringLiteral("a-folder.trt"));
        QVERIFY(QDir().mkpath(folder));
        for (const QString& target : {folder, m_dir.filePath(QStringLiteral("no/such/dir/x.trt"))}) {
            C_ListInfo unwritable;
            views.initList(unwritable, target, levelOf(LevelVersion::TR2), QStringLiteral("b.bmp"));
            QCOMPARE(unwritable.PutAllListContents(), C_ListInfo::Failure);
        }
        QVERIFY(QFileInfo(folder).isDir());
    }

    void shorterRewriteKeepsTheOlderTail()
    {
        const QString list = written(QStringLiteral("tail.trt"), ListFixture::random(50, 2, 2, 5, 1, 10));
        const QByteArray longer = ScratchDir::read(list);
        ListViewSet fewer;
        QCOMPARE(ListFixture::random(3, 1, 2, 0, 0, 11).write(fewer, list, levelOf(LevelVersion::TR2)),
                 C_ListInfo::Success);
        const QByteArray after = ScratchDir::read(list);
        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(reread.openList(info, list), C_ListInfo::Success);
        QCOMPARE(after.size(), longer.size());
        QCOMPARE(after.mid(info.Offset_EOF()), longer.mid(info.Offset_EOF()));
        QCOMPARE(ListFixture::viewRows(reread), ListFixture::viewRows(fewer));
    }

    void hostileListsFillOnlyWhatTheBytesHold_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray names = QByteArray(4, '\0') + QByteArray::fromHex("0000" "0200" "5c30" "0200" "5c30");
        QTest::newRow("range counts past the words")
            << names + QByteArray::fromHex("00000000" "0400" "0000" "ffff" "feff" "0100" "0000");
        QTest::newRow("the most object textures a level addresses")
            << names + QByteArray::fromHex("00800000") + QByteArray(40, '\x07');
    }

    // A header that cannot be a list's, refused before any row is built, in
    // one line that every reader of lists gives alike.
    void damagedHeadersAreRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("cause");
        const QByteArray head = QByteArray::fromHex("2d000000" "0000");
        const QByteArray tables = QByteArray(16, '\0');
        QTest::newRow("empty") << QByteArray() << "is cut short in its header: it holds 0 bytes, its header 10";
        QTest::newRow("three bytes") << head.left(3) << "is cut short in its header: it holds 3 bytes";
        QTest::newRow("name length past the end") << head + QByteArray::fromHex("ffff") + QByteArray(30, 'n')
                                                  << "is cut short in its header: it holds 38 bytes, its header 65545";
        QTest::newRow("name length 1") << head + QByteArray::fromHex("0100" "5c" "0200" "5c30") + tables
                                       << "its bitmap name's length field holds 1";
        QTest::newRow("a control byte in the level name")
            << head + QByteArray::fromHex("0200" "5c30" "0500" "611b5c30") + tables << "its level name is not text";
        QTest::newRow("64 KB of binary as the bitmap name")
            << head + QByteArray::fromHex("ffff") + QByteArray(0xFFFD, '\x02') + "\\0" + QByteArray::fromHex("0200" "5c30")
                   + tables
            << "its bitmap name is not text";
    }

    void damagedHeadersAreRefused()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, cause);
        const QString list = m_dir.write(QStringLiteral("header.trt"), bytes);
        ListViewSet views;
        views.tables().textures.assign({TextureEntry{{}, 0, 1}});
        C_ListInfo info;
        QCOMPARE(views.openList(info, list), C_ListInfo::Failure);
        QVERIFY2(info.ErrorString().contains(cause), qPrintable(info.Error().text()));
        QCOMPARE(views.lsvTextures.count(), 1);
        C_ListInfo forInsert;
        QCOMPARE(forInsert.InitForInsert(list), C_ListInfo::Failure);
        QCOMPARE(forInsert.Error(), info.Error());
    }

    // Counts beyond what a level can address, or animation words beyond the
    // bytes, are refused before any row is built: the views keep their rows.
    void countsBeyondTheLimitsAreRefused_data()
    {
        QTest::addColumn<QByteArray>("tables");
        QTest::addColumn<QString>("cause");
        QTest::newRow("object count 0xFFFFFFFF")
            << QByteArray::fromHex("ffffffff") + QByteArray(45, '\x07') << "4294967295 object textures, more than the 32768";
        QTest::newRow("one object texture too many")
            << QByteArray::fromHex("01800000") << "32769 object textures, more than the 32768";
        QTest::newRow("sprite textures")
            << QByteArray::fromHex("00000000" "0000" "0000" "01000100") << "65537 sprite textures, more than the 65536";
        QTest::newRow("sprite sequences")
            << QByteArray::fromHex("00000000" "0000" "0000" "00000000" "01000100")
            << "65537 sprite sequences, more than the 65536";
        QTest::newRow("animation words past the end")
            << QByteArray::fromHex("00000000" "ffff0000" "0000") << "65535 animation words, more than the 1 its bytes";
    }

    void countsBeyondTheLimitsAreRefused()
    {
        QFETCH(QByteArray, tables);
        QFETCH(QString, cause);
        const QByteArray names = QByteArray(4, '\0') + QByteArray::fromHex("0000" "0200" "5c30" "0200" "5c30");
        const QString list = m_dir.write(QStringLiteral("claims.trt"), names + tables);
        ListViewSet views;
        views.tables().textures.assign({TextureEntry{{}, 0, 1}});
        C_ListInfo info;
        QCOMPARE(views.openList(info, list), C_ListInfo::Failure);
        QVERIFY2(info.ErrorString().contains(cause), qPrintable(info.Error().text()));
        QCOMPARE(info.Error().file(), list);
        QCOMPARE(views.lsvTextures.count(), 1);
        C_ListInfo forInsert;
        QCOMPARE(forInsert.InitForInsert(list), C_ListInfo::Failure);
    }

    void hostileListsFillOnlyWhatTheBytesHold()
    {
        QFETCH(QByteArray, bytes);
        const QString list = m_dir.write(QStringLiteral("hostile.trt"), bytes);
        ListViewSet views;
        C_ListInfo info;
        QCOMPARE(views.openList(info, list), C_ListInfo::Success);
        QVERIFY(views.lsvTextures.count() <= bytes.size() / 20);
        QVERIFY(views.lsvAnimDetails.count() <= bytes.size() / 2);
        QCOMPARE(ScratchDir::read(list), bytes);
    }

    // Cut anywhere but inside its header or its animation words, whose count
    // then claims more than the bytes hold, a list opens with the rows present.
    void truncatedAnywhereStillOpens()
    {
        const QByteArray bytes = ScratchDir::read(written(QStringLiteral("full.trt"), ListFixture::random(7, 2, 3, 3, 2, 13)));
        for (qsizetype length = 0; length < bytes.size(); ++length) {
            ListViewSet reread;
            C_ListInfo info;
            if (reread.openList(info, m_dir.write(QStringLiteral("cut.trt"), bytes.left(length))) != C_ListInfo::Success) {
                QVERIFY2(info.ErrorString().contains(QStringLiteral("animation words"))
                             || info.ErrorString().contains(QStringLiteral("cut short in its header")),
                         qPrintable(info.ErrorString()));
                continue;
            }
            QVERIFY(reread.lsvTextures.count() <= 7);
            QVERIFY(reread.lsvSprites.count() <= qMax<qsizetype>(3, length / 16));
        }
    }
};

QTEST_GUILESS_MAIN(tst_C_ListInfo)
#include "tst_C_ListInfo.moc"
