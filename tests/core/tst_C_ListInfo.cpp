#include "C_ListInfo.h"
#include "ListFixture.h"
#include "ListViewSet.h"
#include "LevelVersion.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

class tst_C_ListInfo : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString path(const QString& name) const { return m_dir.filePath(name); }

    QString levelOf(quint32 version)
    {
        const QString level = path(QStringLiteral("level-%1.tr2").arg(version, 0, 16));
        char bytes[4];
        qToLittleEndian(version, bytes);
        ListFixture::writeFile(level, QByteArray(bytes, 4));
        return level;
    }

    // A new list made the way New List makes one, written to listPath.
    qint16 writeNewList(const QString& listPath, const ListFixture& fixture, ListViewSet& views,
                        const QString& bitmap = QStringLiteral("C:\\a.bmp"))
    {
        fixture.fill(views);
        C_ListInfo list;
        list.Init(listPath, levelOf(LevelVersion::TR2), bitmap, &views.lsvTextures, &views.lsvAnims,
                  &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences, &views.lsvSequenceDetails);
        return list.PutAllListContents();
    }

    static qint16 open(C_ListInfo& list, const QString& listPath, ListViewSet& views)
    {
        const qint16 status = list.Init(listPath, QString(), QString(), &views.lsvTextures, &views.lsvAnims,
                                        &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences,
                                        &views.lsvSequenceDetails);
        return status == C_ListInfo::Success ? list.GetAllListContents() : status;
    }

    static quint32 u32(const QByteArray& bytes, qint64 at) { return qFromLittleEndian<quint32>(bytes.constData() + at); }
    static quint16 u16(const QByteArray& bytes, qint64 at) { return qFromLittleEndian<quint16>(bytes.constData() + at); }

    static void compareViews(ListViewSet& a, ListViewSet& b)
    {
        const QList<ListViewModel*> left = a.all();
        const QList<ListViewModel*> right = b.all();
        for (qsizetype v = 0; v < left.size(); ++v) {
            QCOMPARE(right[v]->count(), left[v]->count());
            for (int i = 0; i < left[v]->count(); ++i) {
                QCOMPARE(right[v]->key(i), left[v]->key(i));
                QCOMPARE(right[v]->text(i), left[v]->text(i));
                QCOMPARE(right[v]->row(i).subItems, left[v]->row(i).subItems);
            }
        }
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void headerStoresNamesWithTheirTerminator()
    {
        ListViewSet views;
        const QString list = path(QStringLiteral("header.trt"));
        QCOMPARE(writeNewList(list, ListFixture::random(1, 1, 2, 0, 0, 1), views), C_ListInfo::Success);
        const QByteArray bytes = ListFixture::readFile(list);
        QCOMPARE(u32(bytes, 0), LevelVersion::TR2);
        QCOMPARE(u16(bytes, 4), quint16(0));
        QCOMPARE(u16(bytes, 6), quint16(10));
        QCOMPARE(bytes.mid(8, 10), QByteArray("C:\\a.bmp\\0"));
        const QByteArray level = QFile::encodeName(levelOf(LevelVersion::TR2));
        QCOMPARE(u16(bytes, 18), quint16(level.size() + 2));
        QCOMPARE(bytes.mid(20, level.size() + 2), level + "\\0");

        C_ListInfo reread;
        QCOMPARE(reread.InitForInsert(list), C_ListInfo::Success);
        QCOMPARE(reread.BitMapName(), QStringLiteral("C:\\a.bmp"));
        QCOMPARE(reread.BitMapNameLength(), 10);
        QCOMPARE(reread.OffsetObjectTexture(), 20 + level.size() + 2);
    }

    void emptyNamesAreStoredAsTheTerminatorAlone()
    {
        ListViewSet views;
        const QString list = path(QStringLiteral("noname.trt"));
        QCOMPARE(writeNewList(list, ListFixture::random(0, 1, 2, 0, 0, 2), views, QString()), C_ListInfo::Success);
        const QByteArray bytes = ListFixture::readFile(list);
        QCOMPARE(u16(bytes, 6), quint16(2));
        QCOMPARE(bytes.mid(8, 2), QByteArray("\\0"));
    }

    void tablePositionsFollowEachOther()
    {
        ListViewSet views;
        const QString list = path(QStringLiteral("positions.trt"));
        const ListFixture fixture = ListFixture::random(0, 2, 3, 4, 1, 3);
        QCOMPARE(writeNewList(list, fixture, views), C_ListInfo::Success);
        C_ListInfo info;
        QCOMPARE(info.InitForInsert(list), C_ListInfo::Success);
        const qint64 h = info.OffsetObjectTexture();
        QCOMPARE(info.NumberObjectTexture(), 0);
        QCOMPARE(info.SizeObjectTexture(), 0);
        QCOMPARE(info.OffsetAnimatedTexture(), h + 4);
        QCOMPARE(info.NumberAnimatedTexture(), 1 + 2 + 3 + 3); // words, not ranges
        QCOMPARE(info.OffsetSpriteTexture(), h + 4 + 4 + 2 * 9);
        QCOMPARE(info.NumberSpriteTexture(), 4);
        QCOMPARE(info.OffsetSpriteSequence(), info.OffsetSpriteTexture() + 4 + 64);
        QCOMPARE(info.Offset_EOF(), info.OffsetSpriteSequence() + 4 + 8);
        QCOMPARE(info.Offset_EOF(), QFileInfo(list).size());
        QCOMPARE(info.OffsetConcordanceTextures() + info.NumberConcordanceTextures()
                     + info.SizeConcordanceTextures(), 0);
    }

    void animatedBlockHoldsTheRangeCountAsOneWord()
    {
        ListFixture fixture;
        fixture.animations.ranges = {{10, 11, 12}, {20, 21}};
        ListViewSet views;
        const QString list = path(QStringLiteral("ranges.trt"));
        QCOMPARE(writeNewList(list, fixture, views), C_ListInfo::Success);
        C_ListInfo info;
        info.InitForInsert(list);
        const QByteArray bytes = ListFixture::readFile(list);
        const qint64 p = info.OffsetAnimatedTexture();
        QCOMPARE(u32(bytes, p), quint32(8));
        QList<quint16> words;
        for (int i = 0; i < 8; ++i)
            words.append(u16(bytes, p + 4 + 2 * i));
        QCOMPARE(words, (QList<quint16>{2, 2, 10, 11, 12, 1, 20, 21}));
        QCOMPARE(u32(bytes, p + 20), quint32(0)); // the sprite count follows at once
    }

    void rangesStartAtTheFirstDetailHoldingTheirFirstTexture()
    {
        // The writer finds a range's textures by its "First" texture; a later
        // range starting with a texture an earlier one holds reuses those rows.
        ListFixture fixture;
        fixture.animations.ranges = {{5, 6}, {5, 7}};
        ListViewSet views;
        const QString list = path(QStringLiteral("shared-first.trt"));
        QCOMPARE(writeNewList(list, fixture, views), C_ListInfo::Success);
        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(open(info, list, reread), C_ListInfo::Success);
        QCOMPARE(reread.lsvAnimDetails.subItem(3, 1), QStringLiteral("6"));
    }

    void listWithoutRangesShiftsTheSpriteTable()
    {
        ListFixture fixture = ListFixture::random(2, 0, 0, 3, 0, 4);
        ListViewSet views;
        const QString list = path(QStringLiteral("no-ranges.trt"));
        QCOMPARE(writeNewList(list, fixture, views), C_ListInfo::Success);
        const QByteArray bytes = ListFixture::readFile(list);

        C_ListInfo info;
        ListViewSet reread;
        QCOMPARE(open(info, list, reread), C_ListInfo::Success);
        const qint64 p = info.OffsetAnimatedTexture();
        QCOMPARE(u32(bytes, p), quint32(0));
        QCOMPARE(u16(bytes, p + 4), quint16(0));
        QCOMPARE(u32(bytes, p + 6), quint32(3)); // where the writer put the sprite count
        // A reader trusting the count looks two bytes early.
        QCOMPARE(info.NumberAnimatedTexture(), 0);
        QCOMPARE(info.OffsetSpriteTexture(), p + 4);
        QCOMPARE(info.NumberSpriteTexture(), qint64(3) << 16);
        QCOMPARE(reread.lsvAnims.count(), 0);
        // The rows hold what the shifted bytes hold, as far as the file goes.
        QCOMPARE(reread.lsvSprites.count(), int((bytes.size() - (p + 8)) / 16));
        QCOMPARE(reread.lsvSprites.subItem(0, 1), QStringLiteral("0"));
        QCOMPARE(reread.lsvSprites.subItem(0, 2), QString::number(fixture.sprites[0].tile & 0xFF));
        QCOMPARE(reread.lsvTextures.count(), 2);
    }

    void listWithoutRangesOrSpritesReopensEmpty()
    {
        ListViewSet views;
        const QString list = path(QStringLiteral("bare.trt"));
        QCOMPARE(writeNewList(list, ListFixture::random(1, 0, 0, 0, 0, 5), views), C_ListInfo::Success);
        C_ListInfo info;
        ListViewSet reread;
        QCOMPARE(open(info, list, reread), C_ListInfo::Success);
        QCOMPARE(reread.lsvSprites.count(), 0);
        QCOMPARE(reread.lsvSequences.count(), 0);
        QCOMPARE(info.Offset_EOF() + 2, QFileInfo(list).size());
    }

    void roundTrip_data()
    {
        QTest::addColumn<int>("textures");
        QTest::addColumn<int>("ranges");
        QTest::addColumn<int>("rangeLength");
        QTest::addColumn<int>("sprites");
        QTest::addColumn<int>("sequences");
        QTest::newRow("one of each") << 1 << 1 << 1 << 1 << 1;
        QTest::newRow("120 textures") << 120 << 3 << 4 << 10 << 2;
        QTest::newRow("no textures") << 0 << 2 << 2 << 0 << 0;
        QTest::newRow("large") << 3000 << 150 << 4 << 700 << 120;
    }

    void roundTrip()
    {
        QFETCH(int, textures);
        QFETCH(int, ranges);
        QFETCH(int, rangeLength);
        QFETCH(int, sprites);
        QFETCH(int, sequences);
        const ListFixture fixture = ListFixture::random(textures, ranges, rangeLength, sprites, sequences, 42);
        ListViewSet written;
        const QString list = path(QStringLiteral("round-%1.trt").arg(QTest::currentDataTag()));
        QCOMPARE(writeNewList(list, fixture, written), C_ListInfo::Success);
        const QByteArray first = ListFixture::readFile(list);

        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(open(info, list, reread), C_ListInfo::Success);
        compareViews(written, reread);
        QCOMPARE(reread.lsvTextures.count(), textures);
        if (textures >= 120)
            QCOMPARE(reread.lsvTextures.text(119), QString::number(119).rightJustified(QString::number(textures).size(), QLatin1Char('0')));

        // Saving the reopened list writes the same bytes again.
        QCOMPARE(info.PutAllListContents(), C_ListInfo::Success);
        QCOMPARE(ListFixture::readFile(list), first);
    }

    void rowsFollowTheirLayouts()
    {
        ListFixture fixture = ListFixture::random(120, 2, 3, 2, 2, 9);
        fixture.sequences[1].setNumber(1);
        ListViewSet views;
        const QString list = path(QStringLiteral("layouts.trt"));
        QCOMPARE(writeNewList(list, fixture, views), C_ListInfo::Success);
        ListViewSet reread;
        C_ListInfo info;
        QCOMPARE(open(info, list, reread), C_ListInfo::Success);
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
        const QByteArray bytes = ListFixture::readFile(list);
        QCOMPARE(u16(bytes, info.OffsetSpriteSequence() + 4 + 8 + 4), quint16(0xFFFF));
    }

    void initWithoutLevelReadsTheExistingList()
    {
        ListViewSet views;
        const QString list = path(QStringLiteral("existing.trt"));
        QCOMPARE(writeNewList(list, ListFixture::random(3, 1, 2, 0, 0, 6), views), C_ListInfo::Success);
        C_ListInfo info;
        QCOMPARE(info.Init(list, QString(), QStringLiteral("/other.bmp"), &views.lsvTextures, &views.lsvAnims,
                           &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences,
                           &views.lsvSequenceDetails, LevelVersion::TR3),
                 C_ListInfo::Success);
        QCOMPARE(info.BitMapName(), QStringLiteral("C:\\a.bmp"));
        QCOMPARE(info.Version(), LevelVersion::TR2);
        QCOMPARE(info.NumberObjectTexture(), 3);
    }

    void initWithLevelTakesItsVersionAndWritesNothing()
    {
        ListViewSet views;
        const QString list = path(QStringLiteral("not-yet.trt"));
        C_ListInfo info;
        QCOMPARE(info.Init(list, levelOf(LevelVersion::TR3), QStringLiteral("b.bmp"), &views.lsvTextures,
                           &views.lsvAnims, &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences,
                           &views.lsvSequenceDetails),
                 C_ListInfo::Success);
        QCOMPARE(info.VersionString(), QStringLiteral("FF180038"));
        QCOMPARE(info.TypeLevel(), qint16(0));
        QCOMPARE(info.LevelFileNameLength(), int(QFile::encodeName(levelOf(LevelVersion::TR3)).size()) + 2);
        QVERIFY(!QFile::exists(list));
    }

    void missingViewsOrFilesFail()
    {
        ListViewSet views;
        C_ListInfo partial;
        partial.Init(path(QStringLiteral("partial.trt")), levelOf(LevelVersion::TR2), QStringLiteral("b.bmp"),
                     &views.lsvTextures, &views.lsvAnims, nullptr, &views.lsvSprites, &views.lsvSequences,
                     &views.lsvSequenceDetails);
        QCOMPARE(partial.GetAllListContents(), C_ListInfo::Failure);
        QCOMPARE(partial.PutAllListContents(), C_ListInfo::Failure);
        QVERIFY(!QFile::exists(path(QStringLiteral("partial.trt"))));

        const QString missing = path(QStringLiteral("missing.trt"));
        C_ListInfo absent;
        QCOMPARE(open(absent, missing, views), C_ListInfo::Failure);
        QVERIFY(!absent.ErrorString().isEmpty());
        QVERIFY(!QFile::exists(missing));
        QCOMPARE(absent.InitForInsert(m_dir.path()), C_ListInfo::Failure);
    }

    void failedOpenLeavesTheViewsAlone()
    {
        ListViewSet views;
        ListFixture::random(4, 1, 2, 1, 1, 8).fill(views);
        C_ListInfo info;
        info.Init(path(QStringLiteral("gone.trt")), levelOf(LevelVersion::TR2), QStringLiteral("b.bmp"),
                  &views.lsvTextures, &views.lsvAnims, &views.lsvAnimDetails, &views.lsvSprites,
                  &views.lsvSequences, &views.lsvSequenceDetails);
        QCOMPARE(info.GetAllListContents(), C_ListInfo::Failure);
        QCOMPARE(views.lsvTextures.count(), 4);
    }

    void shorterRewriteKeepsTheOlderTail()
    {
        const QString list = path(QStringLiteral("tail.trt"));
        ListViewSet views;
        QCOMPARE(writeNewList(list, ListFixture::random(50, 2, 2, 5, 1, 10), views), C_ListInfo::Success);
        const QByteArray longer = ListFixture::readFile(list);
        ListViewSet fewer;
        QCOMPARE(writeNewList(list, ListFixture::random(3, 1, 2, 0, 0, 11), fewer), C_ListInfo::Success);
        const QByteArray after = ListFixture::readFile(list);

        C_ListInfo info;
        QCOMPARE(info.InitForInsert(list), C_ListInfo::Success);
        const qint64 end = info.Offset_EOF();
        QCOMPARE(after.size(), longer.size());
        QCOMPARE(after.mid(end), longer.mid(end));
        ListViewSet reread;
        C_ListInfo reopened;
        QCOMPARE(open(reopened, list, reread), C_ListInfo::Success);
        compareViews(fewer, reread);
    }

    void unwritableTargetFailsAndKeepsTheOldFile()
    {
        ListViewSet views;
        ListFixture::random(2, 1, 2, 0, 0, 12).fill(views);
        // A folder where the list should be: nothing may replace it.
        const QString folder = path(QStringLiteral("a-folder.trt"));
        QVERIFY(QDir().mkpath(folder));
        C_ListInfo info;
        info.Init(folder, levelOf(LevelVersion::TR2), QStringLiteral("b.bmp"), &views.lsvTextures,
                  &views.lsvAnims, &views.lsvAnimDetails, &views.lsvSprites, &views.lsvSequences,
                  &views.lsvSequenceDetails);
        QCOMPARE(info.PutAllListContents(), C_ListInfo::Failure);
        QVERIFY(QFileInfo(folder).isDir());

        // A list whose folder does not exist.
        C_ListInfo nowhere;
        nowhere.Init(path(QStringLiteral("no/such/dir/x.trt")), levelOf(LevelVersion::TR2), QString(),
                     &views.lsvTextures, &views.lsvAnims, &views.lsvAnimDetails, &views.lsvSprites,
                     &views.lsvSequences, &views.lsvSequenceDetails);
        QCOMPARE(nowhere.PutAllListContents(), C_ListInfo::Failure);
    }

    void hostileListsFillOnlyWhatTheBytesHold_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray huge(4, '\0');
        huge += QByteArray::fromHex("0000" "0200" "5c30" "0200" "5c30" "ffffffff");
        huge += QByteArray(45, '\x07');
        QTest::newRow("object count 0xFFFFFFFF") << huge;
        QByteArray names(4, '\0');
        names += QByteArray::fromHex("0000" "ffff") + QByteArray(30, 'n');
        QTest::newRow("name length past the end") << names;
        QByteArray tiny = QByteArray::fromHex("2d000000" "0000" "0100");
        QTest::newRow("name length 1") << tiny;
        QTest::newRow("empty") << QByteArray();
        QByteArray ranges(4, '\0');
        ranges += QByteArray::fromHex("0000" "0200" "5c30" "0200" "5c30" "00000000" "ffff0000" "ffff" "fe ff 0100");
        QTest::newRow("range counts past the words") << ranges;
    }

    void hostileListsFillOnlyWhatTheBytesHold()
    {
        QFETCH(QByteArray, bytes);
        const QString list = path(QStringLiteral("hostile.trt"));
        QVERIFY(ListFixture::writeFile(list, bytes));
        ListViewSet views;
        C_ListInfo info;
        QCOMPARE(open(info, list, views), C_ListInfo::Success);
        QVERIFY(views.lsvTextures.count() <= bytes.size() / 20);
        QVERIFY(views.lsvAnimDetails.count() <= bytes.size() / 2);
        QCOMPARE(ListFixture::readFile(list), bytes);
    }

    void truncatedAnywhereStillOpens()
    {
        ListViewSet views;
        const QString full = path(QStringLiteral("full.trt"));
        QCOMPARE(writeNewList(full, ListFixture::random(7, 2, 3, 3, 2, 13), views), C_ListInfo::Success);
        const QByteArray bytes = ListFixture::readFile(full);
        const QString cut = path(QStringLiteral("cut.trt"));
        for (qsizetype length = 0; length < bytes.size(); ++length) {
            QVERIFY(ListFixture::writeFile(cut, bytes.left(length)));
            ListViewSet reread;
            C_ListInfo info;
            QCOMPARE(open(info, cut, reread), C_ListInfo::Success);
            QVERIFY(reread.lsvTextures.count() <= 7);
            QVERIFY(reread.lsvSprites.count() <= qMax<qsizetype>(3, length / 16));
        }
    }
};

QTEST_GUILESS_MAIN(tst_C_ListInfo)
#include "tst_C_ListInfo.moc"
