#include "render/RoomSurfaceFormat.h"

QSurfaceFormat RoomSurfaceFormat::format()
{
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setDepthBufferSize(24);
    return format;
}

bool RoomSurfaceFormat::isEnough(const QSurfaceFormat& made)
{
    return made.renderableType() == QSurfaceFormat::OpenGL && made.version() >= qMakePair(3, 3);
}

QString RoomSurfaceFormat::noContextText()
{
    return QStringLiteral("no OpenGL context can be made here (the rooms need OpenGL 3.3 and a display)");
}

QString RoomSurfaceFormat::tooOldText(const QSurfaceFormat& made)
{
    return QStringLiteral("the rooms need OpenGL 3.3; this machine gives %1.%2")
        .arg(made.majorVersion())
        .arg(made.minorVersion());
}
