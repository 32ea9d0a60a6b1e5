#pragma once

#include <QByteArray>
#include <QList>

// The main of a seed corpus maker: writes each seed into the folder named on
// the command line, trailing zeros dropped (a level reads bytes past its end
// as zeros anyway, so the seeds stay small).
class CorpusWriter
{
public:
    struct Seed
    {
        const char* name;
        QByteArray bytes;
    };

    static int run(int argc, char** argv, const QList<Seed>& seeds);

private:
    static QByteArray withoutTrailingZeros(QByteArray bytes);
};
