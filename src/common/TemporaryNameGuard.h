#pragma once

#include <QString>

// Keeps a temporary file's name for as long as the file has one, so that an
// interrupt or a termination request (SIGINT, SIGTERM, SIGHUP) removes the
// file before the process ends the way the signal would have ended it. An
// ordinary failure removes its temporary itself; this covers the exits no
// code path returns from. A few names at a time are enough: one per write
// that is going on.
class TemporaryNameGuard
{
public:
    explicit TemporaryNameGuard(const QString& path);
    ~TemporaryNameGuard();
    TemporaryNameGuard(const TemporaryNameGuard&) = delete;
    TemporaryNameGuard& operator=(const TemporaryNameGuard&) = delete;

    // The name is no longer a temporary one (renamed into place or removed).
    void release();

private:
    int m_slot = -1;
};
