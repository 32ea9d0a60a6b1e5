#include "common/ShownName.h"

namespace {

constexpr QChar Ellipsis(0x2026);

} // namespace

QString ShownName::of(const QString& name)
{
    // Cut first, so that a long name is not escaped whole to be cut after.
    return cut(escaped(cut(name)));
}

QString ShownName::escaped(const QString& name)
{
    QString shown;
    shown.reserve(name.size());
    for (const QChar c : name) {
        if (c.isPrint())
            shown.append(c);
        else if (c.unicode() < 0x100)
            shown.append(QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0')));
        else
            shown.append(QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0')));
    }
    return shown;
}

QString ShownName::cut(const QString& name)
{
    if (name.size() <= MaxLength)
        return name;
    // The end of a path names the file; its beginning, where it is.
    const qsizetype head = MaxLength / 2;
    const qsizetype tail = MaxLength - head - 1;
    return name.left(head) + Ellipsis + name.right(tail);
}
