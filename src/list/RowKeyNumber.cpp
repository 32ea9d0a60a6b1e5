#include "list/RowKeyNumber.h"

#include "common/ListViewModel.h"
#include "common/m_Code.h"

qint64 RowKeyNumber::FirstFree(const ListViewModel& rows, QChar prefix, qint64 from)
{
    qint64 number = qMax<qint64>(0, from);
    while (rows.findKey(Key(prefix, number)) >= 0)
        ++number;
    return number;
}

QString RowKeyNumber::Key(QChar prefix, qint64 number)
{
    return prefix + QString::number(number);
}

QString RowKeyNumber::RowText(qint64 number, qint64 count)
{
    const QString digits = QString::number(number);
    return m_Code::PadLeft(digits, QStringLiteral("0"), qMax(digits.size(), QString::number(count).size()));
}
