#include "ui/common/ListView.h"

#include "list/rows/ListRows.h"
#include "ui/common/ListSortProxy.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

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
            emit ItemClick(modelRow(index));
    });
}

void ListView::setListModel(ListRows* model)
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
    connect(model, &ListRows::selectedRowChanged, this, &ListView::followModelSelection);
}

QModelIndex ListView::shownIndex(int row, int column) const
{
    if (!m_model || row < 0 || row >= m_model->count())
        return {};
    const QModelIndex index = m_model->index(row, column);
    return m_proxy ? m_proxy->mapFromSource(index) : index;
}

int ListView::modelRow(const QModelIndex& shown) const
{
    if (!shown.isValid())
        return -1;
    return m_proxy ? m_proxy->mapToSource(shown).row() : shown.row();
}

QList<int> ListView::selectedModelRows() const
{
    QList<int> rows;
    if (!selectionModel())
        return rows;
    QModelIndexList shown = selectionModel()->selectedRows();
    std::sort(shown.begin(), shown.end(), [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    for (const QModelIndex& index : shown)
        rows << modelRow(index);
    return rows;
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
        const QModelIndex index = shownIndex(row);
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
    const Qt::SortOrder order = m_ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
    if (m_model->count() > 0) {
        ShowThroughSortProxy();
        m_proxy->sort(section, order);
    }
    emit ShownSorted(section, order);
}

void ListView::ShowThroughSortProxy()
{
    // A list never sorted is shown as it is, which costs nothing however
    // many rows it holds; the first sort puts the proxy between them.
    if (m_proxy)
        return;
    const QByteArray columns = header()->saveState();
    const int chosen = m_model->selectedRow();
    m_proxy = new ListSortProxy(this);
    m_proxy->setSourceModel(m_model);
    setModel(m_proxy);
    header()->restoreState(columns);
    followModelSelection(chosen);
}

void ListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QList<int>& roles)
{
    if (!uniformRowHeights() || !isVisible()) {
        QTreeView::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    // The rows on screen are found from the scroll position; rows changed
    // out of sight are painted when they come into it.
    const QModelIndex firstShown = indexAt(QPoint(0, 0));
    const QModelIndex lastShown = indexAt(QPoint(0, viewport()->height() - 1));
    if (!firstShown.isValid() || bottomRight.row() < firstShown.row()
        || (lastShown.isValid() && topLeft.row() > lastShown.row()))
        return;
    viewport()->update();
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
    const int row = modelRow(current);
    m_model->setSelectedRow(row);
    // Arrow keys choose a row as a click does.
    if (m_keyboardMove && current.isValid() && row != modelRow(previous))
        emit ItemClick(row);
}
