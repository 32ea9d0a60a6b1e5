#include "ui/animation/ColumnFit.h"

#include <QHeaderView>
#include <QTreeView>

namespace ColumnFit {

void FitColumnsToHeaders(QTreeView& view, int narrowest)
{
    QHeaderView& header = *view.header();
    const QAbstractItemModel* model = view.model();
    if (!model)
        return;
    // Room for the header's own padding and its sort indicator.
    const int padding = 2 * header.style()->pixelMetric(QStyle::PM_HeaderMargin) + 6;
    for (int column = 0; column < model->columnCount(); ++column) {
        const QString caption = model->headerData(column, Qt::Horizontal).toString();
        header.resizeSection(column, qMax(narrowest, header.fontMetrics().horizontalAdvance(caption) + padding));
    }
}

} // namespace ColumnFit
