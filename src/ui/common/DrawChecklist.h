#pragma once

#include <QObject>
#include <QStringList>

#include <vector>

class ListView;
class IndexRows;

// A checklist of what to outline on the bitmap: "None", "All", then one row
// per texture or sprite. Only a tick the user makes with the mouse is
// handled: a mouse-down over the list marks the next check change as the
// user's own. "None" and "All" are a pair of markers that exclude each other;
// ticking or unticking any other row unticks both and leaves the row as the
// user set it. The numbered rows are never changed by the markers.
// Its context menu ticks every numbered row, none, or only the selected
// ones; like any tick of a numbered row, each unticks both markers.
class DrawChecklist : public QObject
{
    Q_OBJECT

public:
    DrawChecklist(ListView& view, IndexRows& rows, QObject* parent = nullptr);

    // Numbers of the ticked rows after "None" and "All" (the first such row
    // is 1), in row order; none when the list has no such row.
    std::vector<qint32> TickedNumbers() const;

public slots:
    // The context menu's commands.
    void TickAll();
    void UntickAll();
    void TickSelectedOnly();

private:
    void OnCheckChanged(int row);
    void ShowMenu(const QPoint& position);
    // Ticks the numbered rows for which ticked(row) holds, unticks the others.
    template <typename Rule> void TickWhere(Rule ticked);

    void MarkPair(bool noneTicked);

    ListView& m_view;
    IndexRows& m_rows;
    bool m_userClick = false;
};
