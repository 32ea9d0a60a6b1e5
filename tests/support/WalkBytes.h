#pragma once

#include "C_LevelInfo.h"

#include <QByteArray>

// The level info of bytes held in memory, walked as the editor walks a file.
C_LevelInfo walkBytes(const QByteArray& bytes);
