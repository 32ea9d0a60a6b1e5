#include "common/ReplacingFile.h"

#include "common/FileKind.h"
#include "common/TemporaryNameGuard.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr int NameAttempts = 16;
constexpr int MaxLinkHops = 40;
constexpr qint64 CopyChunk = 1 << 20;
constexpr qint64 StaleAfterSeconds = 10 * 60;

// Short and fixed in length, whatever the target is called: a target whose
// name just fits the file system still gets a temporary name that fits.
QString temporaryNameIn(const QString& folder)
{
    return folder + QStringLiteral("/.brindle-%1").arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

QByteArray nativeName(const QString& path)
{
    return QFile::encodeName(path);
}

// PREFIX then eight lower-case hexadecimal digits then ".tmp".
bool isOlderTemporaryName(QByteArrayView name, QByteArrayView prefix)
{
    constexpr qsizetype Digits = 8;
    const QByteArrayView suffix(".tmp");
    if (name.size() != prefix.size() + Digits + suffix.size() || !name.startsWith(prefix) || !name.endsWith(suffix))
        return false;
    const QByteArrayView digits = name.sliced(prefix.size(), Digits);
    return std::all_of(digits.begin(), digits.end(),
                       [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

#ifdef Q_OS_UNIX
// A write beyond the process's file size limit would otherwise end the
// process mid-write; ignored, the write fails like one on a full disk and is
// reported with its cause.
void reportFileSizeLimitAsError()
{
    static std::once_flag done;
    std::call_once(done, [] {
        struct sigaction current {};
        if (::sigaction(SIGXFSZ, nullptr, &current) == 0 && current.sa_handler == SIG_DFL)
            ::signal(SIGXFSZ, SIG_IGN);
    });
}
#endif

} // namespace

ReplacingFile::ReplacingFile(const QString& path, Options options)
    : m_path(path)
    , m_options(options)
{
}

ReplacingFile::~ReplacingFile()
{
    discard();
}

bool ReplacingFile::open()
{
#ifdef Q_OS_UNIX
    reportFileSizeLimitAsError();
#endif
    return resolveTarget() && createTemporary();
}

bool ReplacingFile::check()
{
    if (!resolveTarget())
        return false;
    if (!QFileInfo(QFileInfo(m_target).absolutePath()).isWritable())
        return failWith(QStringLiteral("its folder takes no new file"));
    return true;
}

// Follows the links to the file they lead to (which need not exist yet) and
// refuses what must not be replaced.
bool ReplacingFile::resolveTarget()
{
    if (m_path.isEmpty())
        return failWith(QStringLiteral("no file name was given"));
    m_target = QFileInfo(m_path).absoluteFilePath();
    for (int hop = 0; QFileInfo(m_target).isSymLink(); ++hop) {
        if (hop == MaxLinkHops)
            return failWith(QStringLiteral("its symbolic links lead round in a circle"));
        m_target = QFileInfo(m_target).symLinkTarget();
    }
    const FileKind::Kind kind = FileKind::of(m_target);
    if (const QString refusal = FileKind::refusal(kind); !refusal.isEmpty())
        return failWith(refusal);
    m_targetExisted = kind == FileKind::Regular;
    if (!m_targetExisted)
        return true;
    const QFileInfo info(m_target);
    m_targetPermissions = info.permissions();
    // The file's own bits, not what this user may do: the superuser may
    // write anything, yet a file nobody may write is meant to stay as it is.
    const bool noWriteBit = !(m_targetPermissions & (QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther));
    if (noWriteBit || !info.isWritable())
        return failWith(QStringLiteral("is write-protected"));
    return true;
}

bool ReplacingFile::createTemporary()
{
    return createUnnamedTemporary() || createNamedTemporary();
}

// An unnamed file in the target's folder, given the target's name on commit:
// a process killed however abruptly leaves nothing behind.
bool ReplacingFile::createUnnamedTemporary()
{
#if defined(Q_OS_LINUX) && defined(O_TMPFILE)
    // Linking it in goes through /proc; without /proc the file could never
    // get a name.
    if (::access("/proc/self/fd", X_OK) != 0)
        return false;
    const QString folder = QFileInfo(m_target).absolutePath();
    const int fd = ::open(nativeName(folder).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (fd < 0)
        return false;
    if (!m_file.open(fd, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        return false;
    }
    m_unnamed = true;
    return true;
#else
    return false;
#endif
}

bool ReplacingFile::createNamedTemporary()
{
    const QString folder = QFileInfo(m_target).absolutePath();
    QString cause;
    for (int attempt = 0; attempt < NameAttempts; ++attempt) {
        const QString name = temporaryNameIn(folder);
        auto guard = std::make_unique<TemporaryNameGuard>(name);
        m_file.setFileName(name);
        if (m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            m_temporaryName = name;
            m_guard = std::move(guard);
            return true;
        }
        cause = m_file.errorString();
        // Whatever has the name is not ours to remove.
        if (!QFileInfo::exists(name))
            break;
    }
    m_file.setFileName(QString());
    return failWith(cause.isEmpty() ? QStringLiteral("no free temporary name beside it") : cause);
}

bool ReplacingFile::reserve(qint64 size)
{
    if (!m_file.isOpen())
        return failWith(QStringLiteral("is not open for writing"));
#ifdef Q_OS_LINUX
    // Only a lack of room is a failure: on a file system without
    // reservations the writes simply go ahead without one.
    if (size > 0 && ::fallocate(m_file.handle(), FALLOC_FL_KEEP_SIZE, 0, size) != 0
        && (errno == ENOSPC || errno == EFBIG))
        return failWithSystemError();
#else
    Q_UNUSED(size);
#endif
    return true;
}

bool ReplacingFile::write(const char* data, qint64 length)
{
    if (!m_file.isOpen())
        return failWith(QStringLiteral("is not open for writing"));
#ifdef Q_OS_UNIX
    // Written here rather than through QFile, which reports a write the disk
    // took only part of without its cause.
    for (qint64 done = 0; done < length;) {
        const ssize_t n = ::write(m_file.handle(), data + done, size_t(length - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return failWithSystemError();
        if (n == 0)
            return failWith(qt_error_string(ENOSPC));
        done += n;
    }
#else
    if (m_file.write(data, length) != length)
        return failWith(m_file.errorString());
#endif
    m_written += length;
    return true;
}

bool ReplacingFile::commit()
{
    if (!m_file.isOpen())
        return failWith(QStringLiteral("is not open for writing"));
    if (m_options.testFlag(KeepOlderTail) && !carryOlderTail())
        return false;
    // What the target became while the bytes were written counts, not what
    // it was when they began.
    if (const QString refusal = FileKind::refusal(m_target); !refusal.isEmpty())
        return failWith(refusal);
    if (m_targetExisted)
        keepTargetsOwnership();
    if (!syncToDisk() || !takeTargetsPlace())
        return false;
    m_file.close();
    m_temporaryName.clear();
    m_guard.reset();
    removeStaleTemporaries();
    return true;
}

// Earlier versions wrote beside the target under TARGET.XXXXXXXX.tmp, eight
// hexadecimal digits, and an interrupted write left that file behind at the
// target's full size. Once the target is whole again they are of no use; one
// touched in the last minutes may still be another process's write. The
// folder is read entry by entry rather than through a name filter, which
// builds a pattern matcher on every write and costs a bitmap's write a
// twentieth of its time.
void ReplacingFile::removeStaleTemporaries() const
{
    const QFileInfo target(m_target);
    const qint64 settled = QDateTime::currentSecsSinceEpoch() - StaleAfterSeconds;
#ifdef Q_OS_UNIX
    const QByteArray prefix = nativeName(target.fileName()) + '.';
    DIR* folder = ::opendir(nativeName(target.absolutePath()).constData());
    if (!folder)
        return;
    while (const dirent* entry = ::readdir(folder)) {
        struct stat status {};
        if (isOlderTemporaryName(entry->d_name, prefix)
            && ::fstatat(::dirfd(folder), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(status.st_mode) && status.st_mtime < settled)
            ::unlinkat(::dirfd(folder), entry->d_name, 0);
    }
    ::closedir(folder);
#else
    const QByteArray prefix = target.fileName().toUtf8() + '.';
    const QStringList names = target.dir().entryList(QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        const QFileInfo candidate(target.dir().filePath(name));
        if (isOlderTemporaryName(name.toUtf8(), prefix) && !candidate.isSymLink()
            && candidate.lastModified().toSecsSinceEpoch() < settled)
            QFile::remove(candidate.filePath());
    }
#endif
}

bool ReplacingFile::carryOlderTail()
{
    QFile older(m_target);
    if (!m_targetExisted || older.size() <= m_written)
        return true;
    if (!older.open(QIODevice::ReadOnly) || !older.seek(m_written))
        return failWith(older.errorString());
    while (!older.atEnd()) {
        const QByteArray chunk = older.read(CopyChunk);
        if (chunk.isEmpty())
            return failWith(older.errorString());
        const qint64 before = m_written;
        if (!write(chunk))
            return false;
        m_written = before; // the tail is the older file's, not what was written
    }
    return true;
}

// Who may read and write the file, and on a system where the writer may
// give files away (as root), whose it is.
void ReplacingFile::keepTargetsOwnership()
{
#ifdef Q_OS_UNIX
    struct stat status {};
    if (::stat(nativeName(m_target).constData(), &status) != 0)
        return;
    ::fchmod(m_file.handle(), status.st_mode & 07777);
    if (::geteuid() == 0 && ::fchown(m_file.handle(), status.st_uid, status.st_gid) != 0)
        return; // the permissions stand; the owner is the writer's
#else
    m_file.setPermissions(m_targetPermissions);
#endif
}

bool ReplacingFile::syncToDisk()
{
    if (m_options.testFlag(SkipDiskSync))
        return true;
#ifdef Q_OS_UNIX
    if (::fsync(m_file.handle()) != 0 && errno != EINVAL)
        return failWithSystemError();
#endif
    return true;
}

bool ReplacingFile::takeTargetsPlace()
{
    if (m_unnamed)
        return linkUnnamedTemporary();
    m_file.close();
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(m_temporaryName.toStdU16String()),
                            std::filesystem::path(m_target.toStdU16String()), error);
    if (error)
        return failWith(QString::fromStdString(error.message()));
    return true;
}

// A new target gets the file's name directly; an existing one is replaced by
// a rename from a name the file holds only for that moment.
bool ReplacingFile::linkUnnamedTemporary()
{
#if defined(Q_OS_LINUX) && defined(O_TMPFILE)
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_file.handle());
    const QByteArray target = nativeName(m_target);
    if (!m_targetExisted) {
        if (::linkat(AT_FDCWD, self.constData(), AT_FDCWD, target.constData(), AT_SYMLINK_FOLLOW) == 0)
            return true;
        if (errno != EEXIST)
            return failWithSystemError();
    }
    const QString folder = QFileInfo(m_target).absolutePath();
    for (int attempt = 0; attempt < NameAttempts; ++attempt) {
        const QString name = temporaryNameIn(folder);
        auto guard = std::make_unique<TemporaryNameGuard>(name);
        if (::linkat(AT_FDCWD, self.constData(), AT_FDCWD, nativeName(name).constData(), AT_SYMLINK_FOLLOW) != 0) {
            if (errno == EEXIST)
                continue;
            return failWithSystemError();
        }
        if (::rename(nativeName(name).constData(), target.constData()) == 0)
            return true;
        const int cause = errno;
        ::unlink(nativeName(name).constData());
        return failWith(qt_error_string(cause));
    }
    return failWith(QStringLiteral("no free temporary name beside it"));
#else
    return failWith(QStringLiteral("is not open for writing"));
#endif
}

// The first failure stands: it is the one worth reporting.
bool ReplacingFile::failWith(const QString& why)
{
    if (!m_error.failed())
        m_error = FileError::writing(m_path, why);
    discard();
    return false;
}

bool ReplacingFile::failWithSystemError()
{
    return failWith(qt_error_string(errno));
}

void ReplacingFile::discard()
{
    m_file.close();
    if (!m_temporaryName.isEmpty())
        QFile::remove(m_temporaryName);
    m_temporaryName.clear();
    m_guard.reset();
    m_file.setFileName(QString());
}
