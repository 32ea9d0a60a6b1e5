#pragma once

#include <QString>
#include <QSurfaceFormat>

// The OpenGL the rooms need (3.3 core, a depth buffer) and the words for
// when a machine cannot give it, shared by the window's view and the
// offscreen renderer.
class RoomSurfaceFormat
{
public:
    static QSurfaceFormat format();
    static bool isEnough(const QSurfaceFormat& made);
    static QString noContextText();
    static QString tooOldText(const QSurfaceFormat& made);
};
