#pragma once

#include "level/TablePosition.h"

#include <QList>

class BinaryReader;

// The block-by-block walk through a TR2 or TR3 level that finds its texture
// tables. Nothing of the level is kept; each count is read where the previous
// block ended and the bulk behind it is skipped.
//
// The arithmetic is that of the level format's own tools, whose counts are
// all signed. A Long (32-bit) count times its record size, and every position
// the walk moves to, must stay within -2^31..2^31-1, or the walk ends: a Long
// table whose bytes would overflow is not recorded. A 16-bit product outside
// -32768..32767 ends it too. A negative count moves the position back; a
// count read past the end of the file is zero, and a read at a negative
// position ends the walk. Positions the walk did not reach stay 0.
//
// Every value in a Result lies within Long range; the table numbers and sizes
// are negative where the level's counts are.
class LevelWalk
{
public:
    enum class Game { TR2, TR3 };

    struct Result
    {
        TablePosition objectTexture;
        TablePosition spriteTexture;
        TablePosition spriteSequence;
        TablePosition animatedTexture;
        qint64 offsetCameras = 0;
        qint64 offsetItems = 0;

        qint64 palette8Position = 0;
        qint64 palette16Position = 0;
        qint64 tileCountPosition = 0;
        qint64 tileCount = 0;
        qint64 tiles8Size = 0;
        qint64 tiles16Size = 0;
        qint64 roomCountPosition = 0;
        int roomCount = 0;
        qint64 stateChangePosition = 0;

        // The geometry's word blocks, for what reads faces: the data words of
        // every room walked, the mesh data and the mesh pointers.
        QList<TablePosition> roomData;
        TablePosition meshData;
        TablePosition meshPointers;

        // What places the geometry: each walked room's 16-byte header (its
        // position), each room's static mesh list (offset is its 16-bit
        // count, the records follow it at offset + 2) and the level's table
        // of static mesh kinds.
        QList<qint64> roomHeaders;
        QList<TablePosition> roomStaticMeshes;
        TablePosition staticMeshes;

        // True when the walk went through every block to the sample indices;
        // end is then the position after them, which a level cut short
        // lies beyond.
        bool complete = false;
        qint64 end = 0;
    };

    // How far a walk goes: to its end, or only as far as the texture tiles
    // for what needs nothing beyond them (a walk to the tiles is never
    // complete).
    enum class Reach { Tiles, End };

    static Result walk(BinaryReader& reader, Game game, qint64 start = 4, Reach reach = Reach::End);

private:
    LevelWalk(BinaryReader& reader, Game game, qint64 start);

    void walkToTiles();
    void walkPastTiles();
    void walkRoom();

    qint32 readLong(qint64 pos);
    qint16 readShort(qint64 pos);
    void advance(qint64 delta);
    TablePosition longTableHere(int recordSize);
    void pass(const TablePosition& table);
    void readLongTable(int recordSize, TablePosition& table);
    void skipLongTable(int recordSize, qint64* position = nullptr);
    void walkTiles();

    static qint64 longProduct(qint64 count, qint64 recordSize);
    static int shortProduct(int a, int b);

    BinaryReader& m_reader;
    Game m_game;
    qint64 m_p;
    Result m_result;
};
