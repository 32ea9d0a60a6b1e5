#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <utility>

// A record put together from values typed into a page, column by column:
// a value its field cannot hold is refused, and the refusal names the
// column and the values it holds, so nothing is stored cut to fit.
template <class Record>
class RecordBuilder
{
public:
    explicit RecordBuilder(const Record& start = {}) : m_record(start) {}

    // Sets the columns in order; stops at the first value out of its range.
    RecordBuilder& set(std::initializer_list<std::pair<int, qint64>> columns)
    {
        for (const auto& [column, value] : columns) {
            if (!m_refusal.isEmpty())
                break;
            const auto [low, high] = Record::columnRange(column);
            if (value < low || value > high) {
                m_refusal = QStringLiteral("%1 holds %2 to %3, not %4")
                                .arg(Record::headers().value(column))
                                .arg(low)
                                .arg(high)
                                .arg(value);
                break;
            }
            m_record.setColumn(column, int(value));
        }
        return *this;
    }

    bool ok() const { return m_refusal.isEmpty(); }
    // "X2 holds 0 to 255, not 300"; "" when every value fit.
    const QString& refusal() const { return m_refusal; }
    const Record& record() const { return m_record; }

private:
    Record m_record;
    QString m_refusal;
};
