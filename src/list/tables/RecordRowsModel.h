#pragma once

#include "list/rows/ListRows.h"
#include "list/tables/RecordTable.h"

// A list view's window onto one table of records: it keeps nothing of its
// own but the chosen row, formats a cell when a view asks for it (Format
// says how), and passes the table's changes on as the model's signals.
template <class Format>
class RecordRowsModel : public ListRows, private RecordTableListener
{
public:
    using Entry = typename Format::Entry;

    RecordRowsModel(RecordTable<Entry>& table, const QStringList& columns, QObject* parent = nullptr)
        : ListRows(columns, parent)
        , m_table(table)
    {
        m_table.listen(this);
    }
    ~RecordRowsModel() override { m_table.forget(this); }

    const RecordTable<Entry>& table() const { return m_table; }
    const Entry& entry(int index) const { return m_table.at(index); }

    int count() const override { return m_table.count(); }
    QString key(int index) const override { return isValidRow(index) ? Format::Key(m_table.at(index)) : QString(); }
    QString cellText(int index, int column) const override
    {
        return isValidRow(index) && column >= 0 ? Format::Cell(m_table.at(index), column) : QString();
    }
    qint64 subItemNumber(int index, int subItem) const override
    {
        return isValidRow(index) ? Format::Number(m_table.at(index), subItem) : 0;
    }
    int findKey(const QString& key) const override { return Format::Find(m_table, key); }

private:
    void tableAboutToBeReset() override { beginResetModel(); }
    void tableReset() override
    {
        forgetSelection();
        endResetModel();
    }
    void rowsAboutToBeInserted(int first, int rows) override
    {
        beginInsertRows({}, first, first + rows - 1);
        followInsertedRows(first, rows);
    }
    void rowsInserted() override { endInsertRows(); }
    void rowAboutToBeRemoved(int index) override { beginRemoveRows({}, index, index); }
    void rowRemoved(int index) override
    {
        followRemovedRow(index);
        endRemoveRows();
    }
    void rowChanged(int index) override
    {
        emit dataChanged(this->index(index, 0), this->index(index, columnCount() - 1));
    }

    RecordTable<Entry>& m_table;
};
