#include "ChildPeakMemory.h"

#include <QFile>

#include <vector>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
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
    // A copy of this process, not one sharing its memory as posix_spawn's
    // does: the kernel counts into a program's peak the peak of the process
    // it replaced, and a copy starts from what this one holds now, not from
    // the most it ever held. What the program prints is not wanted.
    const pid_t child = ::fork();
    if (child < 0)
        return std::nullopt;
    if (child == 0) {
        const int nowhere = ::open("/dev/null", O_WRONLY);
        if (nowhere >= 0)
            ::dup2(nowhere, STDOUT_FILENO);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
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
