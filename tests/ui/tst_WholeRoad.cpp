#include "level/C_LevelInfo.h"
#include "list/C_ListInfo.h"
#include "demo/DemoLevel.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "uisupport/PageUser.h"

#include <QAction>
#include <QDataStream>
#include <QDialog>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

// The whole road on the demo: an animation and sequences built with the
// pages' controls, saved, reopened and inserted into the level, whose tables
// then hold exactly what was built.
class tst_WholeRoad : public QObject
{
    Q_OBJECT

    static QByteArray bytesAt(const QString& path, qint64 offset, qint64 length)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) && file.seek(offset) ? file.read(length) : QByteArray();
    }

private slots:
    void buildSaveReopenAndInsert();
};

void tst_WholeRoad::buildSaveReopenAndInsert()
{
    EditorFixture f;
    PageUser user(f, 2);
    EditorState& state = f.window->state();
    // An animation of textures 3, 1 and 2, the last moved up one place.
    user.press("cmdAddAnim");
    user.sendTextures({"3", "1", "2"});
    user.choose("lsvNextAnim", QStringLiteral("2"));
    user.press("cmdUp");
    user.press("cmdAddAnim");
    // The last sequence gives way to two shorter ones over its sprites.
    user.showTab(4);
    user.choose("lsvSequences", QStringLiteral("00011"));
    user.press("cmdSeqDelete");
    user.addSequence({"25", "26", "200"});
    user.addSequence({"27", "28", "201"});
    QVERIFY(f.prompts.messages.isEmpty());
    f.find<QAction>("mnuFileSaveList")->trigger();
    QVERIFY(!state.document().isModified());

    // The two tables as they must be: the block's word count, range count,
    // and per range its length less one and its textures; the sequence
    // count, and per sequence its object, minus its length and its first.
    const DemoLevel demo;
    QList<QList<quint16>> ranges(demo.animatedTextures().ranges.begin(), demo.animatedTextures().ranges.end());
    ranges.append({3, 2, 1});
    QList<SpriteSequence> sequences = demo.spriteSequences().mid(0, 11);
    sequences << SpriteSequence{200, -2, 25} << SpriteSequence{201, -2, 27};
    QByteArray words, animations, sprites;
    QDataStream wordStream(&words, QIODevice::WriteOnly), animationStream(&animations, QIODevice::WriteOnly),
        spriteStream(&sprites, QIODevice::WriteOnly);
    for (QDataStream* stream : {&wordStream, &animationStream, &spriteStream})
        stream->setByteOrder(QDataStream::LittleEndian);
    wordStream << quint16(ranges.size());
    for (const QList<quint16>& range : ranges) {
        wordStream << quint16(range.size() - 1);
        for (quint16 texture : range)
            wordStream << texture;
    }
    animationStream << quint32(words.size() / 2);
    animations += words;
    spriteStream << quint32(sequences.size());
    for (const SpriteSequence& sequence : sequences)
        spriteStream << sequence.objectId << sequence.negativeLength << sequence.first;

    C_ListInfo saved;
    QCOMPARE(saved.InitForInsert(f.listPath()), C_ListInfo::Success);
    QCOMPARE(bytesAt(f.listPath(), saved.OffsetAnimatedTexture(), animations.size()), animations);
    QCOMPARE(bytesAt(f.listPath(), saved.OffsetSpriteSequence(), sprites.size()), sprites);
    f.openList(f.listPath());
    QCOMPARE(PageUser::column(state.views.lsvAnims, 2), QStringList({"16", "20", "3"}));
    QCOMPARE(PageUser::column(state.views.lsvSequences, 3).mid(11), QStringList({"200", "201"}));

    // List, Insert List Into Level: the list names the level beside it.
    f.prompts.fileNames.append(f.listPath());
    f.prompts.formScripts.append([](QDialog& form) {
        EditorFixture::click(form, "cmdGetList");
        EditorFixture::click(form, "cmdInsert");
    });
    f.find<QAction>("mnuListInser")->trigger();
    const QString inserted = f.dir.filePath(QStringLiteral("templevel.tr2"));
    C_LevelInfo level;
    level.Init(inserted);
    QVERIFY(level.AreTablesInsideFile());
    QCOMPARE(bytesAt(inserted, level.OffsetAnimatedTexture(), animations.size()), animations);
    QCOMPARE(bytesAt(inserted, level.OffsetSpriteSequence(), sprites.size()), sprites);

    QProcess cli;
    cli.start(qEnvironmentVariable("BRINDLE_CLI"), {QStringLiteral("info"), inserted, QStringLiteral("--json")});
    QVERIFY(cli.waitForFinished(60000) && cli.exitCode() == 0);
    const QJsonObject info = QJsonDocument::fromJson(cli.readAllStandardOutput()).object();
    QCOMPARE(info.value(QStringLiteral("NumberAnimatedTexture")).toInteger(), words.size() / 2);
    QCOMPARE(info.value(QStringLiteral("NumberSpriteSequence")).toInteger(), sequences.size());
}

QTEST_MAIN(tst_WholeRoad)
#include "tst_WholeRoad.moc"
