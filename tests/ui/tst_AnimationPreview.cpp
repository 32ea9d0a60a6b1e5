#include "AnimationPage.h"
#include "DemoLevel.h"
#include "EditorFixture.h"
#include "EditorState.h"
#include "ListView.h"
#include "PageUser.h"
#include "SequencePage.h"
#include "UserActions.h"
#include "ucAnimTexture.h"

#include <QAbstractButton>
#include <QAction>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <climits>

// The preview control and the two pages' previews: frames shown doubled,
// the timers stepped tick by tick (never waited for), the shared frame
// counter, and the Draw buttons that tick the texture checklists.
class tst_AnimationPreview : public QObject
{
    Q_OBJECT

    struct Page
    {
        EditorFixture f;
        PageUser user{f};
        EditorState& state = f.window->state();
        ucAnimTexture& preview1 = *f.find<ucAnimTexture>("ucAnimTexture1");
        ucAnimTexture& preview2 = *f.find<ucAnimTexture>("ucAnimTexture2");
        QTimer& timer1 = *f.find<QTimer>("Timer1");
        QTimer& timer2 = *f.find<QTimer>("Timer2");

        explicit Page(int tab = 2)
        {
            f.openList(f.listPath());
            UserActions::showTab(f, tab);
        }
        static void tick(QTimer& timer) { QMetaObject::invokeMethod(&timer, "timeout"); }
        static QRect shown(const ucAnimTexture& preview)
        {
            return {preview.FrameOrigin(), preview.FrameViewport() / 2};
        }
    };

private slots:
    void putPictureShowsTheRectangleDoubled_data();
    void putPictureShowsTheRectangleDoubled();
    void framesShowOnlyAfterInit();
    void animationPreviewCyclesThroughItsFrames();
    void aFrameWithoutGeometryStopsThePreview();
    void startWithoutFramesStaysStopped();
    void bothPreviewsStepOneSharedCounter();
    void drawTicksTheChecklistThenAsksForTheDrawing_data();
    void drawTicksTheChecklistThenAsksForTheDrawing();
    void closingTheListStopsThePreviews();
};

void tst_AnimationPreview::putPictureShowsTheRectangleDoubled_data()
{
    QTest::addColumn<QRect>("area");
    QTest::newRow("inside") << QRect(10, 20, 32, 16);
    QTest::newRow("wider than the control") << QRect(100, 300, 90, 20);
    QTest::newRow("partly left of the bitmap") << QRect(-8, 4, 20, 20);
    QTest::newRow("below the bitmap") << QRect(0, 1020, 30, 30);
}

void tst_AnimationPreview::putPictureShowsTheRectangleDoubled()
{
    QFETCH(QRect, area);
    EditorFixture f;
    const QImage bitmap = QImage(f.bitmapPath()).convertToFormat(QImage::Format_RGB32);
    ucAnimTexture preview;
    preview.resize(140, 140);
    // Shown first: a resize puts the picture back to the top-left.
    preview.show();
    QVERIFY(QTest::qWaitForWindowExposed(&preview));
    QVERIFY(preview.Init(f.bitmapPath()));
    preview.PutPicture(area.x(), area.y(), area.width(), area.height());
    QCOMPARE(preview.FrameViewport(), QSize(2 * area.width(), 2 * area.height()));

    const QImage image = preview.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRgb background = image.pixel(image.width() - 2, image.height() - 2);
    for (int y = 0; y < image.height() - 1; ++y) {
        for (int x = 0; x < image.width() - 1; ++x) {
            const QPoint source(area.x() + x / 2, area.y() + y / 2);
            const bool inFrame = x < 2 * area.width() && y < 2 * area.height();
            const QRgb expected = inFrame && bitmap.valid(source) ? bitmap.pixel(source) : background;
            if (x == 0 || y == 0)
                continue; // the control's border line
            if (image.pixel(x, y) != expected)
                QFAIL(qPrintable(QStringLiteral("pixel (%1, %2) shows %3, not %4").arg(x).arg(y).arg(image.pixel(x, y), 0, 16).arg(expected, 0, 16)));
        }
    }
}

void tst_AnimationPreview::framesShowOnlyAfterInit()
{
    EditorFixture f;
    ucAnimTexture preview;
    preview.resize(100, 80);
    preview.show();
    QVERIFY(QTest::qWaitForWindowExposed(&preview));
    preview.PutPicture(0, 0, 8, 8);
    QVERIFY(!preview.IsShowingFrame());
    QVERIFY(preview.Init(f.bitmapPath()));
    // Init shows the bitmap's top left over the control, then leaves the
    // viewport 6 pixels short of its size.
    QVERIFY(preview.IsShowingFrame());
    QCOMPARE(preview.FrameViewport(), QSize(94, 74));
    preview.PutPicture(INT_MAX, INT_MIN, INT_MAX, INT_MAX);
    QVERIFY(!preview.grab().isNull());
    // A resize fits the viewport to the control, back at the top-left.
    preview.resize(120, 90);
    QCOMPARE(preview.FrameOrigin(), QPoint(0, 0));
    QCOMPARE(preview.FrameViewport(), QSize(120, 90));
    preview.StopAnim();
    QVERIFY(!preview.IsShowingFrame());
    QCOMPARE(preview.FrameViewport(), QSize(114, 84));
    preview.NoPicture();
    preview.PutPicture(0, 0, 8, 8);
    QVERIFY(!preview.IsShowingFrame());
    QVERIFY(!preview.Init(f.dir.filePath(QStringLiteral("missing.bmp"))));
    QVERIFY(!preview.IsLoaded());
}

void tst_AnimationPreview::animationPreviewCyclesThroughItsFrames()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("01"));
    p.user.press("cmdAnim");
    QCOMPARE(p.user.button("cmdAnim").text(), QStringLiteral("Stop"));
    QVERIFY(p.timer1.isActive());
    QCOMPARE(p.timer1.interval(), 400);
    QCOMPARE(p.state.PreviewFrameCount, 3);
    // No other animation can be chosen while it plays.
    QVERIFY(!p.user.list("lsvAnims").isEnabled());
    p.user.choose("lsvAnims", QStringLiteral("00"));
    QCOMPARE(p.f.window->animationPage().lsvOneAnim().text(0), QStringLiteral("20"));

    QList<QRect> frames;
    for (int tick = 0; tick < 4; ++tick) {
        Page::tick(p.timer1);
        frames << Page::shown(p.preview1);
    }
    QCOMPARE(frames, QList<QRect>({QRect(0, 320, 64, 64), QRect(64, 320, 64, 64), QRect(128, 320, 64, 64),
                                   QRect(0, 320, 64, 64)}));
    QVERIFY(p.preview1.IsShowingFrame());

    p.user.press("cmdAnim");
    QCOMPARE(p.user.button("cmdAnim").text(), QStringLiteral("Start"));
    QVERIFY(!p.timer1.isActive());
    QCOMPARE(p.timer1.interval(), 0);
    QVERIFY(!p.preview1.IsShowingFrame());
    QVERIFY(p.user.list("lsvAnims").isEnabled());
}

void tst_AnimationPreview::aFrameWithoutGeometryStopsThePreview()
{
    Page p;
    // Texture 30 is offered (the index list counts from 1) but does not exist.
    p.user.addAnimation({"5", "30"});
    p.user.choose("lsvAnims", QStringLiteral("02"));
    p.user.press("cmdAnim");
    Page::tick(p.timer1);
    QCOMPARE(Page::shown(p.preview1), QRect(64, 64, 64, 64));
    Page::tick(p.timer1);
    QCOMPARE(p.user.button("cmdAnim").text(), QStringLiteral("Start"));
    QVERIFY(!p.timer1.isActive());
    QVERIFY(!p.preview1.IsShowingFrame());
    QVERIFY(p.user.list("lsvAnims").isEnabled());
}

void tst_AnimationPreview::startWithoutFramesStaysStopped()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("01"));
    p.user.press("cmdEditAnim");
    p.user.press("cmdEditAnim");
    // Accepting an edit empties the frames but leaves Start enabled.
    QCOMPARE(p.f.window->animationPage().lsvOneAnim().count(), 0);
    p.user.press("cmdAnim");
    QCOMPARE(p.user.button("cmdAnim").text(), QStringLiteral("Start"));
    QVERIFY(!p.timer1.isActive());
    QVERIFY(p.user.list("lsvAnims").isEnabled());
}

void tst_AnimationPreview::bothPreviewsStepOneSharedCounter()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("01"));
    p.user.press("cmdAnim");
    Page::tick(p.timer1);
    Page::tick(p.timer1);

    UserActions::showTab(p.f, 4);
    p.user.choose("lsvSequences", QStringLiteral("00001"));
    p.user.press("cmdSequnce");
    QCOMPARE(p.state.PreviewFrameCount, 8);
    QVERIFY(!p.user.list("lsvSequences").isEnabled());
    // The sequence starts at the third frame, where the counter stands.
    Page::tick(p.timer2);
    const SpriteTexture sprite = DemoLevel().spriteTextures()[4 + 2];
    QCOMPARE(p.preview2.FrameOrigin(), QPoint(sprite.x, sprite.tile * 256 + sprite.y));
    // The sprite's stored extent is far larger than the control: the frame
    // reaches the control's edges.
    QCOMPARE(p.preview2.FrameViewport(), QSize(2 * sprite.width, 2 * sprite.height));
    // The animation has no fourth frame: its next tick stops it.
    Page::tick(p.timer1);
    QVERIFY(!p.timer1.isActive());
    QVERIFY(p.timer2.isActive());
    Page::tick(p.timer2);
    QCOMPARE(p.preview2.FrameOrigin().x(), int(DemoLevel().spriteTextures()[4 + 3].x));
}

void tst_AnimationPreview::drawTicksTheChecklistThenAsksForTheDrawing_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QStringList>("ticked");
    QTest::newRow("animation") << 2 << "00" << QStringList({"T3", "T16", "T17", "T18", "T19"});
    QTest::newRow("sequence") << 4 << "00006" << QStringList({"S3", "S16", "S17", "S18", "S19", "S20"});
    QTest::newRow("nothing chosen") << 2 << "" << QStringList({"T3"});
}

void tst_AnimationPreview::drawTicksTheChecklistThenAsksForTheDrawing()
{
    QFETCH(int, tab);
    QFETCH(QString, chosen);
    QFETCH(QStringList, ticked);
    Page p(tab);
    const bool animation = tab == 2;
    ListViewModel& checklist = animation ? p.state.lsvObjects : p.state.lsvSpriteIndex;
    // An earlier mark stays.
    checklist.setCheckState(checklist.findKey(animation ? QStringLiteral("T3") : QStringLiteral("S3")), Qt::Checked);
    QSignalSpy objects(&p.state, &EditorState::drawObjectsRequested);
    QSignalSpy sprites(&p.state, &EditorState::drawSpritesRequested);
    if (!chosen.isEmpty())
        p.user.choose(animation ? "lsvAnims" : "lsvSequences", chosen);
    p.user.press(animation ? "cmdDrawAnim" : "cmdDrawSeq");

    QStringList marked;
    for (int row = 0; row < checklist.count(); ++row) {
        if (checklist.checkState(row) == Qt::Checked)
            marked << checklist.key(row);
    }
    QCOMPARE(marked, ticked);
    const int draws = chosen.isEmpty() ? 0 : 1;
    QCOMPARE(objects.count(), animation ? draws : 0);
    QCOMPARE(sprites.count(), animation ? 0 : draws);
}

void tst_AnimationPreview::closingTheListStopsThePreviews()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("00"));
    p.user.press("cmdAnim");
    Page::tick(p.timer1);
    p.f.find<QAction>("mnuFileCloseList")->trigger();
    QVERIFY(!p.timer1.isActive());
    QCOMPARE(p.user.button("cmdAnim").text(), QStringLiteral("Start"));
    QVERIFY(!p.preview1.IsShowingFrame());
    QVERIFY(p.user.list("lsvAnims").isEnabled());
}

QTEST_MAIN(tst_AnimationPreview)
#include "tst_AnimationPreview.moc"
