#pragma once

#include <QtGlobal>

// The process's resident memory, from the kernel's own count.
class ResidentMemory
{
public:
    // In bytes; -1 where the system does not say.
    static qint64 bytes();
};
