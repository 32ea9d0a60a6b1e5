#pragma once

#include <QObject>
#include <QStringList>

class ListView;
class ListViewModel;

// A checklist of what to outline on the bitmap: "None", "All", then one row
// per texture or sprite. Only a tick the user makes with the mouse is
// handled: a mouse-down over the list marks the next check change as the
// user's own. "None" and "All" are a pair of markers that exclude each other;
// ticking or unticking any other row unticks both and leaves the row as the
// user set it. The numbered rows are never changed by the markers.
class DrawChecklist : public QObject
{
    Q_OBJECT

public:
    DrawChecklist(ListView& view, ListViewModel& rows, QObject* parent = nullptr);

    // Keys of the ticked rows after "None" and "All", in row order; none
    // when the list has no such row.
    QStringList TickedKeys() const;

private:
    void OnCheckChanged(int row);
    void MarkPair(bool noneTicked);

    ListViewModel& m_rows;
    bool m_userClick = false;
};
