#include "CorpusWriter.h"

#include <QDir>
#include <QFile>

#include <cstdio>

int CorpusWriter::run(int argc, char** argv, const QList<Seed>& seeds)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_DIR\n", argv[0]);
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    if (!dir.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "cannot create %s\n", argv[1]);
        return 1;
    }
    for (const Seed& seed : seeds) {
        QFile file(dir.filePath(QLatin1String(seed.name)));
        const QByteArray bytes = withoutTrailingZeros(seed.bytes);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size()) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    return 0;
}

QByteArray CorpusWriter::withoutTrailingZeros(QByteArray bytes)
{
    qsizetype end = bytes.size();
    while (end > 0 && bytes[end - 1] == '\0')
        --end;
    bytes.truncate(end);
    return bytes;
}
