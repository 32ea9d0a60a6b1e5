#pragma once

#include "TablePosition.h"

#include <QList>

class BinaryReader;

// The block-by-block walk through a TR2 or TR3 level that finds its texture
// tables. Nothing of the level is kept; each count is read where the previous
// block ended and the bulk behind it is skipped.
//
// The arithmetic is that of the level format's own tools: 32-bit counts are
// unsigned, and a product or a position beyond 32 bits ends the walk; 16-bit
// counts are signed, and a 16-bit product outside -32768..32767 ends it too.
// A count read past the end of the file is zero; a read at a negative
// position ends the walk. Positions the walk did not reach stay 0.
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

        // True when the walk went through every block to the sample indices.
        bool complete = false;
    };

    static Result walk(BinaryReader& reader, Game game, qint64 start = 4);

private:
    LevelWalk(BinaryReader& reader, Game game, qint64 start);

    void run();
    void walkRoom();

    quint32 readLong(qint64 pos);
    qint16 readShort(qint64 pos);
    void advance(qint64 delta);
    void skipLongTable(int recordSize);
    void readLongTable(int recordSize, TablePosition& table);

    static qint64 longProduct(qint64 count, qint64 recordSize);
    static int shortProduct(int a, int b);

    BinaryReader& m_reader;
    Game m_game;
    qint64 m_p;
    Result m_result;
};
