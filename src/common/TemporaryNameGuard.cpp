#include "common/TemporaryNameGuard.h"

#include <QFile>

#include <array>
#include <atomic>
#include <cstring>

#ifdef Q_OS_UNIX
#include <csignal>
#include <mutex>
#include <unistd.h>
#endif

namespace {

constexpr int SlotCount = 16;
constexpr size_t NameCapacity = 4096;

// Written by the thread that owns a slot, read by a signal handler: a name
// is complete before its slot is marked taken, and the mark is cleared before
// the name is changed again.
struct Slot
{
    std::atomic<bool> taken{false};
    std::atomic<bool> inUse{false};
    char name[NameCapacity] = {};
};

std::array<Slot, SlotCount> g_slots;

#ifdef Q_OS_UNIX
constexpr int GuardedSignals[] = {SIGINT, SIGTERM, SIGHUP};
struct sigaction g_previous[std::size(GuardedSignals)];

void removeTemporaries(int signal)
{
    for (Slot& slot : g_slots) {
        if (slot.inUse.load())
            ::unlink(slot.name);
    }
    // Then end as the signal would have without us.
    for (size_t i = 0; i < std::size(GuardedSignals); ++i) {
        if (GuardedSignals[i] == signal)
            ::sigaction(signal, &g_previous[i], nullptr);
    }
    ::raise(signal);
}

// Installed when a name is kept rather than once: whoever set a handler of
// their own since (a test harness, a toolkit) is then chained to, not lost.
void installHandlers()
{
    static std::mutex installing;
    const std::lock_guard lock(installing);
    struct sigaction action {};
    action.sa_handler = removeTemporaries;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESETHAND;
    for (size_t i = 0; i < std::size(GuardedSignals); ++i) {
        struct sigaction current {};
        ::sigaction(GuardedSignals[i], nullptr, &current);
        // A signal the process ignores ends nothing: leave it ignored.
        if (current.sa_handler == removeTemporaries || current.sa_handler == SIG_IGN)
            continue;
        g_previous[i] = current;
        ::sigaction(GuardedSignals[i], &action, nullptr);
    }
}
#endif

} // namespace

TemporaryNameGuard::TemporaryNameGuard(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    if (name.size() >= qsizetype(NameCapacity))
        return;
#ifdef Q_OS_UNIX
    installHandlers();
#endif
    for (int i = 0; i < SlotCount; ++i) {
        bool expected = false;
        if (!g_slots[size_t(i)].taken.compare_exchange_strong(expected, true))
            continue;
        Slot& slot = g_slots[size_t(i)];
        std::memcpy(slot.name, name.constData(), size_t(name.size()) + 1);
        slot.inUse.store(true);
        m_slot = i;
        return;
    }
}

TemporaryNameGuard::~TemporaryNameGuard()
{
    release();
}

void TemporaryNameGuard::release()
{
    if (m_slot < 0)
        return;
    Slot& slot = g_slots[size_t(m_slot)];
    slot.inUse.store(false);
    slot.taken.store(false);
    m_slot = -1;
}
