#pragma once

#include <QString>
#include <QStringList>

class EditorFixture;
class ListView;
class QAbstractButton;
class QLabel;
class QLineEdit;

// A user of the animation and sequence pages: finds their controls by name
// and works them with the mouse and the keyboard.
class PageUser
{
public:
    explicit PageUser(EditorFixture& fixture);

    QAbstractButton& button(const char* name) const;
    ListView& list(const char* name) const;
    QLineEdit& box(const char* name) const;
    QLabel& label(const char* name) const;

    void press(const char* button) const;
    // Clicks the first row of the named list whose text is text.
    void choose(const char* list, const QString& text) const;

    // On the animation page: picks each available texture and sends it to
    // the animation being built with ">>".
    void sendTextures(const QStringList& textures) const;
    // Add, the textures, Accept.
    void addAnimation(const QStringList& textures) const;

    // On the sequence page: types into the three boxes.
    void typeSequence(const QString& start, const QString& stop, const QString& object) const;
    // Add, the three values, Accept.
    void addSequence(const QString& start, const QString& stop, const QString& object) const;

private:
    EditorFixture& m_fixture;
};
