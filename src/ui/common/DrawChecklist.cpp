#include "ui/common/DrawChecklist.h"

#include "ui/common/ListView.h"
#include "list/rows/IndexRows.h"

#include <QMenu>
#include <QSet>

namespace {

const QString None = QStringLiteral("None");
const QString All = QStringLiteral("All");
constexpr int FirstNumberedRow = 2;

} // namespace

DrawChecklist::DrawChecklist(ListView& view, IndexRows& rows, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_rows(rows)
{
    view.setSelectionMode(QAbstractItemView::ExtendedSelection);
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&view, &QWidget::customContextMenuRequested, this, &DrawChecklist::ShowMenu);
    connect(&view, &ListView::MouseDown, this, [this] { m_userClick = true; });
    connect(&rows, &IndexRows::dataChanged, this,
            [this](const QModelIndex& topLeft, const QModelIndex&, const QList<int>& roles) {
                if (roles.contains(Qt::CheckStateRole))
                    OnCheckChanged(topLeft.row());
            });
}

std::vector<qint32> DrawChecklist::TickedNumbers() const
{
    return m_rows.tickedNumbers();
}

void DrawChecklist::OnCheckChanged(int row)
{
    if (!m_userClick)
        return;
    // Cleared first: the marker changes below are not the user's.
    m_userClick = false;
    const QString key = m_rows.key(row);
    if (key == None)
        MarkPair(true);
    else if (key == All)
        MarkPair(false);
    else {
        m_rows.setCheckState(m_rows.findKey(None), Qt::Unchecked);
        m_rows.setCheckState(m_rows.findKey(All), Qt::Unchecked);
    }
}

void DrawChecklist::MarkPair(bool noneTicked)
{
    m_rows.setCheckState(m_rows.findKey(None), noneTicked ? Qt::Checked : Qt::Unchecked);
    m_rows.setCheckState(m_rows.findKey(All), noneTicked ? Qt::Unchecked : Qt::Checked);
}

void DrawChecklist::ShowMenu(const QPoint& position)
{
    QMenu menu(&m_view);
    menu.setObjectName(QStringLiteral("mnuChecklist"));
    const bool numbered = m_rows.count() > FirstNumberedRow;
    menu.addAction(tr("Tick All"), this, &DrawChecklist::TickAll)->setEnabled(numbered);
    menu.addAction(tr("Untick All"), this, &DrawChecklist::UntickAll)->setEnabled(numbered);
    menu.addAction(tr("Tick Selected Only"), this, &DrawChecklist::TickSelectedOnly)
        ->setEnabled(numbered && m_view.selectionModel() && m_view.selectionModel()->hasSelection());
    menu.exec(m_view.viewport()->mapToGlobal(position));
}

template <typename Rule> void DrawChecklist::TickWhere(Rule ticked)
{
    if (m_rows.count() <= FirstNumberedRow)
        return;
    for (int row = FirstNumberedRow; row < m_rows.count(); ++row) {
        const Qt::CheckState state = ticked(row) ? Qt::Checked : Qt::Unchecked;
        if (m_rows.checkState(row) != state)
            m_rows.setCheckState(row, state);
    }
    m_rows.setCheckState(m_rows.findKey(None), Qt::Unchecked);
    m_rows.setCheckState(m_rows.findKey(All), Qt::Unchecked);
}

void DrawChecklist::TickAll()
{
    TickWhere([](int) { return true; });
}

void DrawChecklist::UntickAll()
{
    TickWhere([](int) { return false; });
}

void DrawChecklist::TickSelectedOnly()
{
    QSet<int> selected;
    for (int row : m_view.selectedModelRows())
        selected.insert(row);
    TickWhere([&selected](int row) { return selected.contains(row); });
}
