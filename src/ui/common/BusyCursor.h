#pragma once

// The hourglass while a file is read or written, back to normal when the
// scope ends, whichever way it ends.
class BusyCursor
{
public:
    BusyCursor();
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;
};
