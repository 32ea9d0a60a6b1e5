#pragma once

#include <QAbstractTableModel>
#include <QStringList>

// What a list view shows and every reader of a list asks for: rows counted
// from 0, each with a key (empty for none), a text (the first column), the
// texts of the further columns (sub-items, from 1) and a check state; the
// column headers; the chosen row. How the rows are kept is the subclass's
// business: a table of the open list formats its records when a cell is
// asked for, a page's own small list keeps its texts.
class ListRows : public QAbstractTableModel
{
    Q_OBJECT

public:
    struct Row
    {
        QString key;
        QString text;
        QStringList subItems;
        Qt::CheckState check = Qt::Unchecked;
    };

    explicit ListRows(const QStringList& columns = {}, QObject* parent = nullptr);

    void setColumns(const QStringList& headers);
    const QStringList& columns() const { return m_columns; }

    virtual int count() const = 0;
    virtual QString key(int index) const = 0;
    // Column 0 is the text, column n sub-item n; "" past the row's cells.
    virtual QString cellText(int index, int column) const = 0;
    // The leading integer of a sub-item, as NumberText::valueOf reads it.
    virtual qint64 subItemNumber(int index, int subItem) const;
    virtual Qt::CheckState checkState(int index) const;
    // Ticks or unticks a row of a list with check boxes; nothing otherwise.
    virtual void setCheckState(int index, Qt::CheckState state);
    virtual int findKey(const QString& key) const = 0; // index, or -1

    QString text(int index) const { return cellText(index, 0); }
    QString subItem(int index, int subItem) const { return subItem < 1 ? QString() : cellText(index, subItem); }
    virtual Row row(int index) const;

    int selectedRow() const { return m_selected; }
    void setSelectedRow(int index);

    // QAbstractItemModel
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // A click on a check box ticks or unticks its row.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    static constexpr int KeyRole = Qt::UserRole + 1;

signals:
    // The selected row changed by a call, not by a view: views follow it.
    void selectedRowChanged(int index);

protected:
    bool isValidRow(int index) const { return index >= 0 && index < count(); }
    // The chosen row follows rows put in or taken out before it.
    void followInsertedRows(int first, int rowCount);
    void followRemovedRow(int index);
    // A reordering moved the chosen row to newPlace[it].
    void followReorder(const std::vector<int>& newPlace);
    void forgetSelection() { m_selected = -1; }
    // Rows that show a check box in their first column.
    virtual bool isCheckable() const { return false; }

private:
    QStringList m_columns;
    int m_selected = -1;
};
