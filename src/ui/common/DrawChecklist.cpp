#include "ui/common/DrawChecklist.h"

#include "ui/common/ListView.h"
#include "common/ListViewModel.h"

namespace {

const QString None = QStringLiteral("None");
const QString All = QStringLiteral("All");
constexpr int FirstNumberedRow = 2;

} // namespace

DrawChecklist::DrawChecklist(ListView& view, ListViewModel& rows, QObject* parent)
    : QObject(parent)
    , m_rows(rows)
{
    connect(&view, &ListView::MouseDown, this, [this] { m_userClick = true; });
    connect(&rows, &ListViewModel::dataChanged, this,
            [this](const QModelIndex& topLeft, const QModelIndex&, const QList<int>& roles) {
                if (roles.contains(Qt::CheckStateRole))
                    OnCheckChanged(topLeft.row());
            });
}

QStringList DrawChecklist::TickedKeys() const
{
    QStringList keys;
    for (int row = FirstNumberedRow; row < m_rows.count(); ++row) {
        if (m_rows.checkState(row) == Qt::Checked)
            keys.append(m_rows.key(row));
    }
    return keys;
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
