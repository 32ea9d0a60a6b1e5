#pragma once

#include <QMatrix4x4>
#include <QPoint>
#include <QPointF>
#include <QSize>
#include <QVector3D>

#include <optional>

// Where the rooms are seen from: a point looked at, the turn about it and the
// distance to it, in drawing units (one sector to a unit, y up). The window's
// view moves it; the command line uses a fixed one framing what it draws.
class RoomCamera
{
public:
    QVector3D target;
    float yaw = 45.0f;   // degrees about the vertical, 0 looking along -z
    float pitch = 50.0f; // degrees down from the horizon
    float distance = 10.0f;

    static constexpr float FieldOfView = 60.0f;

    // A camera that shows a sphere of radius round centre whole, from the
    // fixed direction the command line draws from.
    static RoomCamera framing(const QVector3D& centre, float radius);

    QVector3D eye() const;
    QMatrix4x4 view() const;
    QMatrix4x4 projection(QSize viewport) const;
    QMatrix4x4 viewProjection(QSize viewport) const;

    // The pixel a point lands on (top-left origin); nothing when it lies
    // behind the camera.
    std::optional<QPointF> project(const QVector3D& point, QSize viewport) const;

    void orbit(float degreesRight, float degreesUp);
    // Moves the target sideways and forwards in the plane the camera faces.
    void pan(float right, float up);
    void walk(float forward, float right);
    void zoom(float steps);
};
