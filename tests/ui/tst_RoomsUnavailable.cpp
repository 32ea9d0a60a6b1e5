#include "list/ListDocument.h"
#include "ui/rooms/RoomsDock.h"
#include "ui/rooms/RoomsView.h"
#include "uisupport/EditorFixture.h"

#include <QAction>
#include <QLabel>
#include <QTest>
#include <QUndoStack>

// On a platform that shows no OpenGL in a window (the offscreen one the
// editor's tests run on), View, Rooms says why in words and nothing else changes.
class tst_RoomsUnavailable : public QObject
{
    Q_OBJECT

private slots:
    void saysWhyAndTheRestWorks()
    {
        EditorFixture fixture;
        fixture.window->show();
        fixture.openList(fixture.listPath());
        fixture.find<QAction>("mnuViewRooms")->trigger();
        RoomsDock& dock = fixture.window->rooms();
        QVERIFY(dock.isVisible());
        QVERIFY(!fixture.find<RoomsView>("vwRooms"));
        QVERIFY(dock.message()->isVisible());
        QVERIFY(dock.message()->text().startsWith("The rooms cannot be shown: "));
        QVERIFY(dock.message()->text().contains("offscreen"));

        // Edits, undo and the texture list's Show in Rooms go on without it.
        QVERIFY(fixture.editTexture(3));
        dock.refreshNow();
        dock.ShowInRooms(3);
        fixture.window->document().undoStack()->undo();
        QVERIFY(!fixture.window->document().isModified());
    }
};

QTEST_MAIN(tst_RoomsUnavailable)
#include "tst_RoomsUnavailable.moc"
