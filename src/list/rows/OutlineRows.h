#pragma once

#include "list/OutlineColumns.h"
#include "list/rows/ListRows.h"
#include "list/tables/RecordTable.h"

#include <vector>

// A draw list: the textures or sprites outlined on the bitmap, one row each,
// kept as numbers. A row's text is its number zero-padded as its table shows
// it; its sub-items are "NumSide" and the whole-bitmap corners the outline
// is drawn from. Cells are spelt only when a view or a reader asks; the
// drawing reads the numbers themselves. Rows have no keys and no ticks.
class OutlineRows : public ListRows
{
    Q_OBJECT

public:
    struct Outline
    {
        qint32 number = 0;
        qint16 width = 0; // digits the number is shown with
        OutlineColumns columns{0};
    };

    explicit OutlineRows(const QStringList& columns = {}, QObject* parent = nullptr);

    // Appends the outline of each entry of table whose number is listed, in
    // the order listed; a number no entry has adds nothing. Reader::Of(entry)
    // gives the outline's columns (DrawColumns). Returns how many were added.
    template <class Reader, class Entry>
    int appendNumbered(const RecordTable<Entry>& table, const std::vector<qint32>& numbers)
    {
        m_adding.clear();
        m_adding.reserve(numbers.size());
        int next = 0;
        for (const qint32 number : numbers) {
            const int row = table.rowOfNumber(number, next);
            if (row >= 0) {
                m_adding.push_back(row);
                next = row + 1;
            }
        }
        if (m_adding.empty())
            return 0;
        // The rows are found before the views hear of them, and made in place.
        beginInsertRows({}, count(), count() + int(m_adding.size()) - 1);
        for (const int row : m_adding) {
            const Entry& entry = table.at(row);
            m_outlines.push_back({entry.number, entry.width, Reader::Of(entry).DrawColumns()});
        }
        endInsertRows();
        return int(m_adding.size());
    }
    void clear();

    const Outline& outline(int index) const { return m_outlines[size_t(index)]; }
    const std::vector<Outline>& outlines() const { return m_outlines; }

    int count() const override { return int(m_outlines.size()); }
    QString key(int index) const override;
    QString cellText(int index, int column) const override;
    qint64 subItemNumber(int index, int subItem) const override;
    int findKey(const QString& key) const override;
    // The sub-items are the row's own: a rectangle's row is two corners
    // shorter than a triangle's.
    Row row(int index) const override;

private:
    // The table rows an append outlines; like the outlines, it keeps its
    // room from one Draw to the next.
    std::vector<int> m_adding;
    std::vector<Outline> m_outlines;
};
