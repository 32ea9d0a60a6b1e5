#pragma once

#include "list/rows/ListRows.h"

#include <vector>

// An index list the drawing and animation pages pick from: optionally the
// rows "None" and "All" (keys as texts), then one row per texture numbered
// from 1 (text the number, key a letter and the number: T1, T2, ...). The
// rows are made from their numbers when asked for; only the ticks are kept.
class IndexRows : public ListRows
{
    Q_OBJECT

public:
    explicit IndexRows(const QStringList& columns = {}, QObject* parent = nullptr);

    // prefix and count numbered rows, after "None" and "All" when asked; a
    // list with them is a checklist and comes with every row ticked.
    void fill(qint64 count, QChar prefix, bool withNoneAll);
    // To count numbered rows by adding or removing rows at the end, so the
    // rows kept keep their ticks; an empty list is filled.
    void resize(qint64 count, QChar prefix, bool withNoneAll);
    void clear();

    void setCheckable(bool checkable) { m_checkable = checkable; }
    void setCheckState(int index, Qt::CheckState state) override;

    int count() const override { return int(m_checks.size()); }
    // The number a numbered row stands for (1 for the first), or 0 for
    // "None", "All" and rows past the end.
    qint32 number(int index) const { return isValidRow(index) && index >= fixedRows() ? index - fixedRows() + 1 : 0; }
    // The numbers of the ticked numbered rows, in row order.
    std::vector<qint32> tickedNumbers() const;
    QString key(int index) const override;
    QString cellText(int index, int column) const override;
    qint64 subItemNumber(int index, int subItem) const override;
    Qt::CheckState checkState(int index) const override;
    int findKey(const QString& key) const override;


protected:
    bool isCheckable() const override { return m_checkable; }

private:
    int fixedRows() const { return m_withNoneAll ? 2 : 0; }
    Qt::CheckState firstTick() const { return m_withNoneAll ? Qt::Checked : Qt::Unchecked; }

    std::vector<quint8> m_checks; // one per row, a Qt::CheckState
    QChar m_prefix;
    bool m_withNoneAll = false;
    bool m_checkable = false;
};
