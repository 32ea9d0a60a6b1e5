#include "C_LevelInfo.h"
#include "C_ListInfo.h"
#include "DemoLevel.h"
#include "EditorFixture.h"
#include "EditorState.h"
#include "PageUser.h"
#include "UserActions.h"

#include <QAction>
#include <QDialog>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>
#include <QtEndian>

// The whole road on the demo: an animation and sequences built with the
// pages' controls, saved, reopened, and inserted into the level, whose
// tables then hold exactly what was built.
class tst_WholeRoad : public QObject
{
    Q_OBJECT

    static void appendWord(QByteArray& bytes, quint16 word)
    {
        char data[2];
        qToLittleEndian(word, data);
        bytes.append(data, 2);
    }
    static void appendLong(QByteArray& bytes, qint32 value)
    {
        char data[4];
        qToLittleEndian(value, data);
        bytes.append(data, 4);
    }

    // The animated texture block as a table: word count, range count, then
    // each range's length less one and its textures.
    static QByteArray animationTable(const QList<QList<quint16>>& ranges)
    {
        QByteArray words;
        appendWord(words, quint16(ranges.size()));
        for (const QList<quint16>& range : ranges) {
            appendWord(words, quint16(range.size() - 1));
            for (quint16 texture : range)
                appendWord(words, texture);
        }
        QByteArray table;
        appendLong(table, qint32(words.size() / 2));
        return table + words;
    }

    // The sprite sequence table: count, then object, minus the length and
    // the first sprite of each.
    static QByteArray sequenceTable(const QList<SpriteSequence>& sequences)
    {
        QByteArray table;
        appendLong(table, qint32(sequences.size()));
        for (const SpriteSequence& sequence : sequences) {
            appendLong(table, sequence.objectId);
            appendWord(table, quint16(sequence.negativeLength));
            appendWord(table, quint16(sequence.first));
        }
        return table;
    }

    static SpriteSequence sequence(qint32 object, int number, int first)
    {
        SpriteSequence made;
        made.objectId = object;
        made.setNumber(number);
        made.first = qint16(first);
        return made;
    }

    static QByteArray bytesAt(const QString& path, qint64 offset, qint64 length)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly) || !file.seek(offset))
            return {};
        return file.read(length);
    }

private slots:
    void buildSaveReopenAndInsert();
};

void tst_WholeRoad::buildSaveReopenAndInsert()
{
    EditorFixture f;
    PageUser user(f);
    EditorState& state = f.window->state();
    f.openList(f.listPath());

    // An animation of textures 3, 1 and 2, the last moved up one place.
    UserActions::showTab(f, 2);
    user.press("cmdAddAnim");
    user.sendTextures({"3", "1", "2"});
    user.choose("lsvNextAnim", QStringLiteral("2"));
    user.press("cmdUp");
    user.press("cmdAddAnim");

    // The last sequence gives way to two shorter ones over its sprites.
    UserActions::showTab(f, 4);
    user.choose("lsvSequences", QStringLiteral("00011"));
    user.press("cmdSeqDelete");
    user.addSequence("25", "26", "200");
    user.addSequence("27", "28", "201");
    QVERIFY(f.prompts.messages.isEmpty());

    f.find<QAction>("mnuFileSaveList")->trigger();
    QVERIFY(!state.IsDirty);

    const DemoLevel demo;
    QList<QList<quint16>> ranges;
    for (const AnimatedTextureBlock::Range& range : demo.animatedTextures().ranges)
        ranges.append(range);
    ranges.append({3, 2, 1});
    QList<SpriteSequence> sequences = demo.spriteSequences().mid(0, 11);
    sequences << sequence(200, 2, 25) << sequence(201, 2, 27);
    const QByteArray animations = animationTable(ranges);
    const QByteArray sprites = sequenceTable(sequences);

    C_ListInfo saved;
    QCOMPARE(saved.InitForInsert(f.listPath()), C_ListInfo::Success);
    QCOMPARE(bytesAt(f.listPath(), saved.OffsetAnimatedTexture(), animations.size()), animations);
    QCOMPARE(bytesAt(f.listPath(), saved.OffsetSpriteSequence(), sprites.size()), sprites);

    f.openList(f.listPath());
    QCOMPARE(state.views.lsvAnims.count(), 3);
    QCOMPARE(state.views.lsvAnims.subItem(2, 2), QStringLiteral("3"));
    QCOMPARE(state.views.lsvSequences.count(), 13);
    QCOMPARE(state.views.lsvSequences.subItem(12, 3), QStringLiteral("201"));

    // List, Insert List Into Level: the list names the level beside it.
    f.prompts.fileNames.append(f.listPath());
    f.prompts.formScripts.append([](QDialog& form) {
        EditorFixture::click(form, "cmdGetList");
        EditorFixture::click(form, "cmdInsert");
    });
    f.find<QAction>("mnuListInser")->trigger();
    const QString inserted = f.dir.filePath(QStringLiteral("templevel.tr2"));
    QVERIFY(QFile::exists(inserted));

    C_LevelInfo level;
    level.Init(inserted);
    QVERIFY(level.AreTablesInsideFile());
    QCOMPARE(bytesAt(inserted, level.OffsetAnimatedTexture(), animations.size()), animations);
    QCOMPARE(bytesAt(inserted, level.OffsetSpriteSequence(), sprites.size()), sprites);

    QProcess cli;
    cli.start(qEnvironmentVariable("BRINDLE_CLI"), {QStringLiteral("info"), inserted, QStringLiteral("--json")});
    QVERIFY(cli.waitForFinished(60000));
    QCOMPARE(cli.exitCode(), 0);
    const QJsonObject info = QJsonDocument::fromJson(cli.readAllStandardOutput()).object();
    QCOMPARE(info.value(QStringLiteral("NumberAnimatedTexture")).toInteger(), animations.size() / 2 - 2);
    QCOMPARE(info.value(QStringLiteral("NumberSpriteSequence")).toInteger(), 13);
}

QTEST_MAIN(tst_WholeRoad)
#include "tst_WholeRoad.moc"
