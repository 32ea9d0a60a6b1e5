#pragma once

#include "ReadRatioFigure.h"

class SyntheticLevel;

// The texture usage of a 30 MiB level next to reading its bytes once. Most
// of the level is geometry: 300 rooms of faces and sprites and 3,000 meshes,
// each pointed at twice; the rest is floor data. Finding the usage reads
// nearly every byte of it, so it should cost little more than one read.
class UsageRatioFigure : public ReadRatioFigure
{
public:
    QString name() const override { return QStringLiteral("usage_ratio"); }

protected:
    const char* jobName() const override { return "usage"; }
    bool writeLevel(const QString& path, QString* error) const override;
    bool run(const QString& path, const QString& dir) override;

private:
    static constexpr qint64 LevelBytes = qint64(30) * 1024 * 1024;
    static constexpr int ObjectTextures = 6000;
    static constexpr int Rooms = 300;
    static constexpr int RoomVertices = 1000;
    static constexpr int RoomFaces = 2000;
    static constexpr int RoomSprites = 200;
    static constexpr int Meshes = 3000;
    static constexpr int MeshVertices = 100;
    static constexpr int MeshFaces = 150;

    static void addRooms(SyntheticLevel& level);
    static void addMeshes(SyntheticLevel& level);
    static QList<quint16> textures(int count, int seed);
};
