#include "list/rows/IndexRows.h"

#include "common/NumberText.h"

namespace {

const QString None = QStringLiteral("None");
const QString All = QStringLiteral("All");

} // namespace

IndexRows::IndexRows(const QStringList& columns, QObject* parent)
    : ListRows(columns, parent)
{
}

void IndexRows::fill(qint64 count, QChar prefix, bool withNoneAll)
{
    beginResetModel();
    m_prefix = prefix;
    m_withNoneAll = withNoneAll;
    m_checks.assign(size_t(fixedRows() + qMax<qint64>(0, count)), quint8(firstTick()));
    forgetSelection();
    endResetModel();
}

void IndexRows::resize(qint64 count, QChar prefix, bool withNoneAll)
{
    const qint64 wanted = qMax<qint64>(0, count);
    if (this->count() == 0 || prefix != m_prefix || withNoneAll != m_withNoneAll) {
        fill(count, prefix, withNoneAll);
        return;
    }
    const int rows = fixedRows() + int(wanted);
    if (rows < this->count()) {
        for (int last = this->count() - 1; last >= rows; --last) {
            beginRemoveRows({}, last, last);
            m_checks.pop_back();
            followRemovedRow(last);
            endRemoveRows();
        }
    } else if (rows > this->count()) {
        beginInsertRows({}, this->count(), rows - 1);
        m_checks.resize(size_t(rows), quint8(firstTick()));
        endInsertRows();
    }
}

void IndexRows::clear()
{
    beginResetModel();
    m_checks.clear();
    forgetSelection();
    endResetModel();
}

void IndexRows::setCheckState(int index, Qt::CheckState state)
{
    if (!isValidRow(index))
        return;
    m_checks[size_t(index)] = quint8(state);
    emit dataChanged(this->index(index, 0), this->index(index, 0), {Qt::CheckStateRole});
}

std::vector<qint32> IndexRows::tickedNumbers() const
{
    std::vector<qint32> numbers;
    numbers.reserve(m_checks.size());
    for (int index = fixedRows(); index < count(); ++index) {
        if (m_checks[size_t(index)] == quint8(Qt::Checked))
            numbers.push_back(number(index));
    }
    return numbers;
}

QString IndexRows::key(int index) const
{
    if (!isValidRow(index))
        return {};
    if (index < fixedRows())
        return index == 0 ? None : All;
    return m_prefix + NumberText::of(number(index));
}

QString IndexRows::cellText(int index, int column) const
{
    if (!isValidRow(index) || column != 0)
        return {};
    if (index < fixedRows())
        return index == 0 ? None : All;
    return NumberText::of(number(index));
}

qint64 IndexRows::subItemNumber(int /*index*/, int /*subItem*/) const
{
    return 0;
}

Qt::CheckState IndexRows::checkState(int index) const
{
    return isValidRow(index) ? Qt::CheckState(m_checks[size_t(index)]) : Qt::Unchecked;
}

int IndexRows::findKey(const QString& key) const
{
    if (m_withNoneAll && (key == None || key == All))
        return key == None ? 0 : 1;
    if (key.size() < 2 || key.front() != m_prefix)
        return -1;
    bool ok = false;
    const qint64 number = QStringView(key).mid(1).toLongLong(&ok);
    if (!ok || number < 1 || NumberText::of(number) != QStringView(key).mid(1))
        return -1;
    const qint64 row = fixedRows() + number - 1;
    return row < count() ? int(row) : -1;
}

