#pragma once

#include <QString>

#include <limits>

// The number a row's key names, when the key is spelt exactly as the rows
// spell theirs (spell(number) == key): "T12" names 12, "T012" nothing.
// -1 for a key no row of the table can have.
template <class Spell>
qint32 KeyNumber(const QString& key, QChar letter, Spell spell)
{
    if (key.size() < 2 || key.front() != letter)
        return -1;
    bool ok = false;
    const qint64 number = QStringView(key).mid(1).toLongLong(&ok);
    if (!ok || number < 0 || number > std::numeric_limits<qint32>::max() || spell(number) != key)
        return -1;
    return qint32(number);
}
