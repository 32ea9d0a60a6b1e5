#include "list/ListDocument.h"
#include "render/RoomScene.h"
#include "ui/common/EditorState.h"
#include "ui/common/ListView.h"
#include "ui/rooms/RoomsDock.h"
#include "ui/rooms/RoomsView.h"
#include "uisupport/EditorFixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QUndoStack>

// The Rooms view of the demo list in a real window, driven as a user drives it.
class tst_RoomsView : public QObject
{
    Q_OBJECT

    std::unique_ptr<EditorFixture> m_fixture;
    RoomsDock* m_dock = nullptr;
    RoomsView* m_view = nullptr;

    QImage frame()
    {
        m_dock->refreshNow();
        return m_view->grabFramebuffer();
    }

    // A visible face's pixel: the first face whose centre picks itself.
    std::optional<std::pair<int, QPoint>> visibleFace()
    {
        const RoomScene& scene = *m_view->scene();
        for (int face = 0; face < scene.faces().size(); face += 7) {
            const std::optional<QPointF> at = m_view->camera().project(scene.faces()[face].centre, m_view->size());
            if (at && m_view->faceAt(at->toPoint()) == face)
                return std::pair{face, at->toPoint()};
        }
        return std::nullopt;
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<EditorFixture>();
        m_fixture->window->resize(1280, 800);
        m_fixture->window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_fixture->window.get()));
        m_fixture->openList(m_fixture->listPath());
        QAction* menu = m_fixture->find<QAction>("mnuViewRooms");
        QVERIFY(menu);
        QCOMPARE(menu->shortcut(), QKeySequence(Qt::Key_F3));
        menu->trigger();
        m_dock = &m_fixture->window->rooms();
        QVERIFY(m_dock->isVisible());
        m_view = m_fixture->find<RoomsView>("vwRooms");
        if (!m_view)
            QSKIP(qPrintable(m_dock->message()->text()));
        QVERIFY(QTest::qWaitForWindowExposed(m_view));
        m_dock->refreshNow();
        if (!m_view->failure().isEmpty())
            QSKIP(qPrintable(m_view->failure()));
        QVERIFY(m_view->scene());
    }

    void cleanup() { m_fixture.reset(); }

    void showsTheListsLevel()
    {
        QCOMPARE(m_view->scene()->roomCount(), 3);
        QCOMPARE(m_dock->roomList()->count(), 1 + 3);
        const QImage image = frame();
        QVERIFY(image.pixel(image.width() / 2, image.height() / 2) != image.pixel(0, 0));
    }

    void floatedItStillDrawsTheLevel()
    {
        m_dock->setFloating(true);
        m_dock->resize(400, 300);
        QVERIFY(QTest::qWaitForWindowExposed(m_dock));
        QSet<QRgb> colours;
        const QImage image = frame();
        for (int y = 0; y < image.height(); y += 4) {
            for (int x = 0; x < image.width(); x += 4)
                colours.insert(image.pixel(x, y));
        }
        // Textured rooms, not one background colour or flat grey faces.
        QVERIFY2(colours.size() > 50, qPrintable(QString::number(colours.size())));
    }

    void clickChoosesTheFacesRow()
    {
        const auto face = visibleFace();
        QVERIFY(face);
        const RoomScene::FaceRef& ref = m_view->scene()->faces()[face->first];
        m_fixture->window->tbsStrip()->setCurrentIndex(4);
        QTest::mouseClick(m_view, Qt::LeftButton, {}, face->second);
        QCOMPARE(m_fixture->window->document().views().lsvTextures.selectedRow(), int(ref.texture));
        QCOMPARE(m_fixture->window->tbsStrip()->currentIndex(), 0);
        QVERIFY(m_fixture->window->statusBar()->currentMessage().startsWith(QStringLiteral("Room %1, ").arg(ref.room)));
        QVERIFY(m_fixture->window->statusBar()->currentMessage().endsWith(QStringLiteral("texture %1").arg(ref.texture)));
    }

    void dragMovesTheCameraWithoutChoosing()
    {
        const float yaw = m_view->camera().yaw;
        const QPoint from(m_view->width() / 2, m_view->height() / 2);
        QTest::mousePress(m_view, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, from + QPoint(40, 0), m_view->mapToGlobal(from + QPoint(40, 0)),
                         Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_view, &move);
        QTest::mouseRelease(m_view, Qt::LeftButton, {}, from + QPoint(40, 0));
        QVERIFY(m_view->camera().yaw != yaw);
        QCOMPARE(m_fixture->window->document().views().lsvTextures.selectedRow(), -1);
    }

    void chosenRowTintsTheRooms()
    {
        const QImage plain = frame();
        const auto face = visibleFace();
        QVERIFY(face);
        m_fixture->window->document().views().lsvTextures.setSelectedRow(m_view->scene()->faces()[face->first].texture);
        const QImage tinted = frame();
        QVERIFY(tinted != plain);
        QVERIFY(tinted.pixel(face->second) != plain.pixel(face->second));
    }

    void editsUndoAndRedoShowOnTheNextFrame()
    {
        const QImage original = frame();
        const auto face = visibleFace();
        QVERIFY(face);
        // The face's texture moved to the next tile.
        QVERIFY(m_fixture->editTexture(m_view->scene()->faces()[face->first].texture));
        const QImage edited = frame();
        QVERIFY(edited.pixel(face->second) != original.pixel(face->second));
        m_fixture->window->document().undoStack()->undo();
        QCOMPARE(frame(), original);
        m_fixture->window->document().undoStack()->redo();
        QCOMPARE(frame(), edited);
    }

    void aFlipShowsBeforeItsAccept()
    {
        const auto face = visibleFace();
        QVERIFY(face);
        const int texture = m_view->scene()->faces()[face->first].texture;
        const QImage plain = frame();
        m_fixture->window->document().views().lsvTextures.setSelectedRow(texture);
        emit m_fixture->find<ListView>("lsvTextures")->ItemClick(texture);
        const QImage chosen = frame();
        m_fixture->find<QPushButton>("cmdEdit")->click();
        QCOMPARE(frame(), chosen); // editing alone changes nothing
        m_fixture->find<QPushButton>("cmdFlipHor")->click();
        const QImage flipped = frame();
        QVERIFY(flipped != chosen);
        m_fixture->find<QPushButton>("cmdCancel")->click();
        // Cancel also lets go of the row: the rooms are as they were before it was chosen.
        QCOMPARE(m_fixture->window->document().views().lsvTextures.selectedRow(), -1);
        QCOMPARE(frame(), plain);
        QVERIFY(!m_fixture->window->document().isModified());
    }

    void showInRoomsGoesToAFaceUsingTheTexture()
    {
        const RoomScene& scene = *m_view->scene();
        const int texture = scene.faces().last().texture;
        m_dock->ShowInRooms(texture);
        const QVector3D target = m_view->camera().target;
        const auto uses = std::any_of(scene.faces().begin(), scene.faces().end(), [&](const RoomScene::FaceRef& f) {
            return f.texture == texture && f.centre == target;
        });
        QVERIFY(uses);
        m_dock->ShowInRooms(4); // the grate: no room uses it
        QVERIFY(m_fixture->window->statusBar()->currentMessage().contains("uses texture 4"));
        QCOMPARE(m_view->camera().target, target);
    }
};

QTEST_MAIN(tst_RoomsView)
#include "tst_RoomsView.moc"
