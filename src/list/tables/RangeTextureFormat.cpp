#include "list/tables/RangeTextureFormat.h"

#include "list/tables/RangeRowFormat.h"

QString RangeTextureFormat::Key(qint64 range, qint64 place)
{
    return QLatin1Char('A') + RangeRowFormat::NumberText(range) + QString::number(place);
}

QString RangeTextureFormat::Cell(const Entry& e, int column)
{
    if (column == 0)
        return RangeRowFormat::NumberText(e.range) + QLatin1Char('-') + QString::number(e.place);
    return column == 1 ? QString::number(e.texture) : QString();
}

namespace {

constexpr int CountShift = 58; // digit count above, value below: up to 17 digits

quint64 Code(int digits, quint64 value)
{
    return quint64(digits) << CountShift | value;
}

// The code of a key's digits; 0 (no key's) for anything else.
quint64 CodeOfKey(QStringView key)
{
    if (key.size() < 4 || key.size() > 18 || key.front() != u'A')
        return 0;
    quint64 value = 0;
    for (QChar c : key.mid(1)) {
        if (!c.isDigit() || c.unicode() > u'9')
            return 0;
        value = value * 10 + quint64(c.unicode() - u'0');
    }
    return Code(int(key.size() - 1), value);
}

int Digits(quint64 value)
{
    int digits = 1;
    while (value >= 10) {
        value /= 10;
        ++digits;
    }
    return digits;
}

} // namespace

quint64 RangeTextureFormat::KeyCode(qint64 range, qint64 place)
{
    if (range < 0 || place < 0 || range > 999999 || place > 999999)
        return 0;
    const int placeDigits = Digits(quint64(place));
    quint64 scale = 1;
    for (int i = 0; i < placeDigits; ++i)
        scale *= 10;
    return Code(qMax(2, Digits(quint64(range))) + placeDigits, quint64(range) * scale + quint64(place));
}

int RangeTextureFormat::Find(const RecordTable<Entry>& table, const QString& key)
{
    const quint64 code = CodeOfKey(key);
    if (code == 0)
        return -1;
    for (int row = 0; row < table.count(); ++row) {
        const Entry& e = table.at(row);
        if (e.keyed && KeyCode(e.range, e.place) == code)
            return row;
    }
    return -1;
}
