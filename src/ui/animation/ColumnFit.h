#pragma once

class QTreeView;

// Column widths of the pages' list views.
namespace ColumnFit {

// Gives every column of view the width its header caption needs to read in
// full, and at least narrowest pixels.
void FitColumnsToHeaders(QTreeView& view, int narrowest = 48);

} // namespace ColumnFit
