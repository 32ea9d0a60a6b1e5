#pragma once

#include <QStringView>

class QAbstractButton;

// Two-state buttons carry their state in their caption ("Add" or "Accept",
// "Start" or "Stop"); their handlers branch on it, ignoring letter case.
namespace ButtonCaption {

bool Is(const QAbstractButton& button, QStringView caption);

} // namespace ButtonCaption
