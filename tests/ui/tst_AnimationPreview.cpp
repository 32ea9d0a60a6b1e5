#include "ui/animation/AnimationPage.h"
#include "demo/DemoLevel.h"
#include "uisupport/EditorFixture.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "uisupport/PageUser.h"
#include "ui/animation/ucAnimTexture.h"

#include <QAbstractButton>
#include <QAction>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <climits>

// The preview control and the pages' previews: frames shown doubled, the
// timers fired tick by tick (never waited for), the shared frame counter,
// and the Draw buttons that tick the texture checklists.
class tst_AnimationPreview : public QObject
{
    Q_OBJECT

    struct Page
    {
        EditorFixture f;
        PageUser user;
        EditorState& state = f.window->state();
        QTimer& timer1 = *f.find<QTimer>("Timer1");
        QTimer& timer2 = *f.find<QTimer>("Timer2");

        explicit Page(int tab = 2)
            : user(f, tab)
        {
        }
        static void tick(QTimer& timer) { QMetaObject::invokeMethod(&timer, "timeout"); }
        QRect shown(const char* preview) const
        {
            const ucAnimTexture& control = *f.find<ucAnimTexture>(preview);
            return control.IsShowingFrame() ? QRect(control.FrameOrigin(), control.FrameViewport() / 2) : QRect();
        }
        void expectRunning(bool running, const char* button, const QTimer& timer, const char* list) const
        {
            QCOMPARE(user.button(button).text(), running ? QStringLiteral("Stop") : QStringLiteral("Start"));
            QCOMPARE(timer.isActive(), running);
            QCOMPARE(timer.interval(), running ? 400 : 0);
            QCOMPARE(user.list(list).isEnabled(), !running);
        }
    };

    static void showControl(ucAnimTexture& preview, QSize size)
    {
        // Shown first: showing resizes it, and a resize puts the picture back.
        preview.resize(size);
        preview.show();
        QVERIFY(QTest::qWaitForWindowExposed(&preview));
    }

private slots:
    void putPictureShowsTheRectangleDoubled_data();
    void putPictureShowsTheRectangleDoubled();
    void theControlBeforeAndAfterItsPicture();
    void animationPreviewCyclesThroughItsFrames();
    void framesWithoutGeometryStopThePreview();
    void bothPreviewsStepOneSharedCounter();
    void drawTicksTheChecklistThenAsksForTheDrawing_data();
    void drawTicksTheChecklistThenAsksForTheDrawing();
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
    showControl(preview, {140, 140});
    QVERIFY(preview.Init(f.bitmapPath()));
    preview.PutPicture(area.x(), area.y(), area.width(), area.height());

    const QImage image = preview.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRgb background = image.pixel(138, 138);
    // Every pixel inside the border line: a 2 x 2 block of the bitmap inside
    // the frame, the background outside it and off the bitmap.
    for (int y = 1; y < 139; ++y) {
        for (int x = 1; x < 139; ++x) {
            const QPoint source(area.x() + x / 2, area.y() + y / 2);
            const bool inFrame = x < 2 * area.width() && y < 2 * area.height() && bitmap.valid(source);
            if (image.pixel(x, y) != (inFrame ? bitmap.pixel(source) : background))
                QFAIL(qPrintable(QStringLiteral("pixel (%1, %2) is wrong").arg(x).arg(y)));
        }
    }
}

void tst_AnimationPreview::theControlBeforeAndAfterItsPicture()
{
    EditorFixture f;
    ucAnimTexture preview;
    showControl(preview, {100, 80});
    preview.PutPicture(0, 0, 8, 8);
    QVERIFY(!preview.IsShowingFrame());
    // Init shows the top-left over the control, the viewport 6 pixels short.
    QVERIFY(preview.Init(f.bitmapPath()) && preview.IsShowingFrame());
    QCOMPARE(preview.FrameViewport(), QSize(94, 74));
    preview.PutPicture(INT_MAX, INT_MIN, INT_MAX, INT_MAX);
    QVERIFY(!preview.grab().isNull());
    preview.resize(120, 90);
    QCOMPARE(QRect(preview.FrameOrigin(), preview.FrameViewport()), QRect(0, 0, 120, 90));
    preview.StopAnim();
    QVERIFY(!preview.IsShowingFrame());
    QCOMPARE(preview.FrameViewport(), QSize(114, 84));
    QVERIFY(!preview.Init(f.dir.filePath(QStringLiteral("missing.bmp"))));
    preview.PutPicture(0, 0, 8, 8);
    QVERIFY(!preview.IsShowingFrame());
}

void tst_AnimationPreview::animationPreviewCyclesThroughItsFrames()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("01"));
    p.user.press("cmdAnim");
    p.expectRunning(true, "cmdAnim", p.timer1, "lsvAnims");
    QCOMPARE(p.state.PreviewFrameCount, 3);
    p.user.choose("lsvAnims", QStringLiteral("00")); // refused while playing
    QList<QRect> frames;
    for (int tick = 0; tick < 4; ++tick) {
        Page::tick(p.timer1);
        frames << p.shown("ucAnimTexture1");
    }
    QCOMPARE(frames, QList<QRect>({QRect(0, 320, 64, 64), QRect(64, 320, 64, 64), QRect(128, 320, 64, 64),
                                   QRect(0, 320, 64, 64)}));
    p.user.press("cmdAnim");
    p.expectRunning(false, "cmdAnim", p.timer1, "lsvAnims");
    QVERIFY(p.shown("ucAnimTexture1").isNull());

    p.user.press("cmdAnim");
    Page::tick(p.timer1);
    p.f.find<QAction>("mnuFileCloseList")->trigger();
    p.expectRunning(false, "cmdAnim", p.timer1, "lsvAnims");
}

void tst_AnimationPreview::framesWithoutGeometryStopThePreview()
{
    Page p;
    // Texture 30 is offered (the index list counts from 1) but does not exist.
    p.user.addAnimation({"5", "30"});
    p.user.choose("lsvAnims", QStringLiteral("02"));
    p.user.press("cmdAnim");
    Page::tick(p.timer1);
    QCOMPARE(p.shown("ucAnimTexture1"), QRect(64, 64, 64, 64));
    Page::tick(p.timer1);
    p.expectRunning(false, "cmdAnim", p.timer1, "lsvAnims");
    QVERIFY(p.shown("ucAnimTexture1").isNull());

    // Accepting an edit empties the frames but leaves Start enabled.
    p.user.press("cmdEditAnim");
    p.user.press("cmdEditAnim");
    p.user.press("cmdAnim");
    p.expectRunning(false, "cmdAnim", p.timer1, "lsvAnims");
}

void tst_AnimationPreview::bothPreviewsStepOneSharedCounter()
{
    Page p;
    p.user.choose("lsvAnims", QStringLiteral("01"));
    p.user.press("cmdAnim");
    Page::tick(p.timer1);
    Page::tick(p.timer1);
    p.user.showTab(4);
    p.user.choose("lsvSequences", QStringLiteral("00001"));
    p.user.press("cmdSequnce");
    p.expectRunning(true, "cmdSequnce", p.timer2, "lsvSequences");
    QCOMPARE(p.state.PreviewFrameCount, 8);
    // The sequence starts at the third frame, where the shared counter stands;
    // a sprite's stored extent reaches past the control's edges.
    const QList<SpriteTexture> sprites = DemoLevel().spriteTextures();
    Page::tick(p.timer2);
    const SpriteTexture& third = sprites[6];
    QCOMPARE(p.shown("ucAnimTexture2"), QRect(third.x, third.tile * 256 + third.y, third.width, third.height));
    // The animation has no fourth frame: its next tick stops it alone.
    Page::tick(p.timer1);
    p.expectRunning(false, "cmdAnim", p.timer1, "lsvAnims");
    Page::tick(p.timer2);
    QCOMPARE(p.shown("ucAnimTexture2").x(), int(sprites[7].x));
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
    IndexRows& checklist = animation ? p.state.lsvObjects : p.state.lsvSpriteIndex;
    // Checklists come all ticked; start from one earlier mark, which stays.
    for (int row = 0; row < checklist.count(); ++row)
        checklist.setCheckState(row, Qt::Unchecked);
    checklist.setCheckState(checklist.findKey(ticked.first()), Qt::Checked);
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

QTEST_MAIN(tst_AnimationPreview)
#include "tst_AnimationPreview.moc"
