#include "ui/common/ListView.h"

#include "common/ListViewModel.h"
#include "common/m_Code.h"

#include <QHeaderView>
#include <QKeyEvent>

ListView::ListView(QWidget* parent)
    : QTreeView(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    header()->setStretchLastSection(false);
    header()->setDefaultSectionSize(48);
    header()->setMinimumSectionSize(0);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::onHeaderClicked);
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
        if (index.isValid())
            emit ItemClick(index.row());
    });
}

void ListView::setListModel(ListViewModel* model)
{
    m_model = model;
    // A row taken out takes the choice with it: the row moving up into its
    // place is not chosen in its stead. The flag goes up before the view's
    // own handling moves its current row, and down after it.
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { m_rowsGoing = true; });
    setModel(model);
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this] {
        m_rowsGoing = false;
        followModelSelection(m_model->selectedRow());
    });
    // A one-column list (the checklists, the index lists) fills its width.
    header()->setStretchLastSection(model->columnCount() == 1);
    connect(model, &ListViewModel::selectedRowChanged, this, &ListView::followModelSelection);
}

void ListView::setHiddenColumns(const QList<int>& columns)
{
    for (int column : columns)
        setColumnHidden(column, true);
}

void ListView::selectRow(int row)
{
    followModelSelection(row);
}

void ListView::followModelSelection(int row)
{
    m_followingModel = true;
    if (row < 0 || !m_model || row >= m_model->count()) {
        clearSelection();
        setCurrentIndex({});
    } else {
        const QModelIndex index = m_model->index(row, 0);
        setCurrentIndex(index);
        scrollTo(index);
    }
    m_followingModel = false;
}

void ListView::onHeaderClicked(int section)
{
    if (!m_model)
        return;
    m_ascending = !m_ascending;
    if (m_sortHandler)
        m_sortHandler(section, m_ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    else
        m_Code::SortListView(*m_model, section + 1, m_ascending);
}

void ListView::mousePressEvent(QMouseEvent* event)
{
    emit MouseDown();
    QTreeView::mousePressEvent(event);
}

void ListView::keyPressEvent(QKeyEvent* event)
{
    m_keyboardMove = true;
    QTreeView::keyPressEvent(event);
    m_keyboardMove = false;
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_followingModel || m_rowsGoing || !m_model)
        return;
    m_model->setSelectedRow(current.isValid() ? current.row() : -1);
    // Arrow keys choose a row as a click does.
    if (m_keyboardMove && current.isValid() && current.row() != previous.row())
        emit ItemClick(current.row());
}
