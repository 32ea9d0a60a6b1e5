#pragma once

// Told of every change to a RecordTable, before and after it is made, so a
// view of the table can keep up without reading it whole again.
class RecordTableListener
{
public:
    virtual ~RecordTableListener() = default;

    virtual void tableAboutToBeReset() = 0;
    virtual void tableReset() = 0;
    virtual void rowsAboutToBeInserted(int first, int count) = 0;
    virtual void rowsInserted() = 0;
    virtual void rowAboutToBeRemoved(int index) = 0;
    virtual void rowRemoved(int index) = 0;
    virtual void rowChanged(int index) = 0;
};
