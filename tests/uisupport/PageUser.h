#pragma once

#include <QStringList>

class EditorFixture;
class ListView;
class ListRows;
class QAbstractButton;

// A user of the animation and sequence pages: finds their controls by name
// and works them with real mouse and key events, which disabled controls
// refuse as they would a user's.
class PageUser
{
public:
    // Opens the demo list, shows and activates the window (so the caret can
    // be followed) and opens tab (1 to 5).
    PageUser(EditorFixture& fixture, int tab);

    void showTab(int tab) const;
    QAbstractButton& button(const char* name) const;
    ListView& list(const char* name) const;
    QString text(const char* labelOrBox) const;

    void press(const char* button) const;
    void chooseRow(const char* list, int row) const;
    void choose(const char* list, const QString& rowText) const;
    // Selects what the box holds and types text over it.
    void type(const char* box, const QString& text) const;

    // Picks each available texture and sends it on with ">>".
    void sendTextures(const QStringList& textures) const;
    void addAnimation(const QStringList& textures) const; // Add, textures, Accept
    void typeSequence(const QStringList& startStopObject) const;
    void addSequence(const QStringList& startStopObject) const; // Add, boxes, Accept

    // One column of every row: 0 the texts, then the sub-items.
    static QStringList column(const ListRows& model, int column = 0);

private:
    EditorFixture& m_fixture;
};
