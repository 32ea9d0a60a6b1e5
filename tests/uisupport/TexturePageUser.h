#pragma once

#include "uisupport/EditorFixture.h"

#include <QList>
#include <QPoint>
#include <QStringList>

class EditorState;
class ListRows;
class QLineEdit;
class QPushButton;

// A user of the "Object Textures" page over the demo list (30 textures: 0 to
// 22 and 29 quads with Lo on corner 1, 23 to 28 triangles, tiles 0 and 1):
// finds its controls by name and works them with mouse and key events.
struct TexturePageUser
{
    EditorFixture f;

    // Opens the demo list and shows the window.
    TexturePageUser();
    // Opens a new list made from a synthetic TR 3 level of tiles tiles, with
    // count object textures laid out by SyntheticTextures (texture n in tile
    // n mod tiles, every fifth a triangle), and shows the window.
    TexturePageUser(int tiles, int count);

    EditorState& state() const;
    ListRows& textures() const;
    QLineEdit* box(const QString& name) const;
    QPushButton* button(const char* name) const;
    void click(const char* name) const;
    void type(const QString& name, const QString& text) const;
    void load(int row) const;
    // Add, then the Lo corner (row 0) and the Hi corner (row 2) typed.
    void addRectangle(int xlo, int ylo, int xhi, int yhi) const;
    // The four boxes named prefix_0 .. prefix_3.
    QStringList column(const char* prefix) const;
    QStringList cells(int row) const;
    QString status() const;

    // A row of the complete texture list: "Tile#", "Trans", the corners, their bytes.
    static QStringList Row(int tile, int trans, const QList<QPoint>& corners, const QList<QPoint>& bytes);
};
