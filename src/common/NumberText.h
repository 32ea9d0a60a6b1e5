#pragma once

#include <QString>

// Decimal text of a number. Texts of 0 to 4095 are made once and shared, so
// filling views with tens of thousands of records allocates no strings.
class NumberText
{
public:
    static QString of(qint64 value);

    // value, then at least width digits, zero-padded on the left.
    static QString padded(qint64 value, int width);

    // The leading integer of text ("12" -> 12, " 7" -> 7, "x" -> 0), as the
    // list writers read the numbers in a view's cells.
    static qint64 valueOf(QStringView text);
};
