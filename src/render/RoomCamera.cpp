#include "render/RoomCamera.h"

#include <QtMath>

#include <algorithm>

RoomCamera RoomCamera::framing(const QVector3D& centre, float radius)
{
    RoomCamera camera;
    camera.target = centre;
    camera.distance = std::max(radius, 0.5f) / std::sin(qDegreesToRadians(FieldOfView / 2)) * 1.05f;
    return camera;
}

QVector3D RoomCamera::eye() const
{
    const float yawRad = qDegreesToRadians(yaw);
    const float pitchRad = qDegreesToRadians(pitch);
    const QVector3D back(std::sin(yawRad) * std::cos(pitchRad), std::sin(pitchRad), std::cos(yawRad) * std::cos(pitchRad));
    return target + back * distance;
}

QMatrix4x4 RoomCamera::view() const
{
    QMatrix4x4 matrix;
    matrix.lookAt(eye(), target, QVector3D(0, 1, 0));
    return matrix;
}

QMatrix4x4 RoomCamera::projection(QSize viewport) const
{
    QMatrix4x4 matrix;
    const float aspect = viewport.height() > 0 ? float(viewport.width()) / float(viewport.height()) : 1.0f;
    // Near and far follow the distance so a small room and a whole level keep their depth precision.
    matrix.perspective(FieldOfView, aspect, distance / 200.0f, distance * 20.0f + 100.0f);
    return matrix;
}

QMatrix4x4 RoomCamera::viewProjection(QSize viewport) const
{
    return projection(viewport) * view();
}

std::optional<QPointF> RoomCamera::project(const QVector3D& point, QSize viewport) const
{
    const QVector4D clip = viewProjection(viewport) * QVector4D(point, 1.0f);
    if (clip.w() <= 0)
        return std::nullopt;
    const float x = clip.x() / clip.w(), y = clip.y() / clip.w();
    return QPointF((x + 1) / 2 * viewport.width(), (1 - y) / 2 * viewport.height());
}

void RoomCamera::orbit(float degreesRight, float degreesUp)
{
    yaw = std::fmod(yaw - degreesRight, 360.0f);
    pitch = std::clamp(pitch + degreesUp, -89.0f, 89.0f);
}

void RoomCamera::pan(float right, float up)
{
    const QMatrix4x4 matrix = view();
    // The rows of the view's rotation are the camera's right and up in the level.
    const QVector3D rightAxis(matrix(0, 0), matrix(0, 1), matrix(0, 2));
    const QVector3D upAxis(matrix(1, 0), matrix(1, 1), matrix(1, 2));
    target += (rightAxis * right + upAxis * up) * distance * 0.002f;
}

void RoomCamera::walk(float forward, float right)
{
    const float yawRad = qDegreesToRadians(yaw);
    const QVector3D ahead(-std::sin(yawRad), 0, -std::cos(yawRad));
    const QVector3D side(std::cos(yawRad), 0, -std::sin(yawRad));
    target += ahead * forward + side * right;
}

void RoomCamera::zoom(float steps)
{
    distance = std::clamp(distance * std::pow(0.85f, steps), 0.2f, 2000.0f);
}
