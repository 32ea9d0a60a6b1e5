#include "ChildPeakMemory.h"

#include <QFile>

#include <vector>

#ifdef Q_OS_LINUX
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

extern char** environ;
#endif

std::optional<qint64> ChildPeakMemory::run(const QString& program, const QStringList& arguments)
{
#ifdef Q_OS_LINUX
    std::vector<QByteArray> words{QFile::encodeName(program)};
    for (const QString& argument : arguments)
        words.push_back(QFile::encodeName(argument));
    std::vector<char*> argv;
    for (QByteArray& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    if (::posix_spawn(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0)
        return std::nullopt;
    int status = 0;
    struct rusage usage {};
    if (::wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return std::nullopt;
    return qint64(usage.ru_maxrss) * 1024; // counted in kibibytes
#else
    Q_UNUSED(program);
    Q_UNUSED(arguments);
    return std::nullopt;
#endif
}
