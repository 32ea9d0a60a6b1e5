// Runs every file of the given folders (or the given files) through a fuzz
// target once, so the stored corpus is re-checked by an ordinary build.

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

QStringList inputsUnder(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    QDirIterator it(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    files.sort();
    return files;
}

bool replay(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size()));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    bool ok = true;
    for (int i = 1; i < argc; ++i) {
        for (const QString& path : inputsUnder(QString::fromLocal8Bit(argv[i]))) {
            ok = replay(path) && ok;
            ++replayed;
        }
    }
    std::printf("replayed %d inputs\n", replayed);
    // An empty corpus checks nothing: treat it as the mistake it is.
    return ok && replayed > 0 ? 0 : 1;
}
