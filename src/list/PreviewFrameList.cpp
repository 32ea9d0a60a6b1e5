#include "list/PreviewFrameList.h"

#include "common/NumberText.h"
#include "list/ObjectTextureRow.h"

#include <algorithm>
#include <limits>

namespace {

const QString TriadMark = QStringLiteral("Triad");

enum Column { XColumn = 1, YColumn, XwidColumn, YHiColumn, IsTriadColumn };

} // namespace

PreviewFrameList::PreviewFrameList(QObject* parent)
    : ListViewModel({QStringLiteral("Texture #"), QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Xwid"),
                     QStringLiteral("YHi"), QStringLiteral("IsTriad")},
                    parent)
{
}

void PreviewFrameList::AddFrame(const QString& number, const QString& x, const QString& y, const QString& xwid,
                                const QString& yhi, const QString& isTriad)
{
    // Frames have no key: an animation may show the same texture twice.
    addRow(QString(), number, {x, y, xwid, yhi, isTriad});
}

void PreviewFrameList::AddObjectTexture(const RecordTable<TextureEntry>& textures, qint64 texture)
{
    const QString number = NumberText::of(texture);
    if (texture < 0 || texture >= textures.count()) {
        AddFrame(number, {}, {}, {}, {});
        return;
    }
    const ObjectTextureRow geometry = ObjectTextureRow::Of(textures.at(int(texture)));
    const QRect area = geometry.Bounds();
    AddFrame(number, NumberText::of(area.x()), NumberText::of(area.y()), NumberText::of(area.width()),
             NumberText::of(area.height()), geometry.IsTriangle() ? TriadMark : QString());
}

bool PreviewFrameList::IsTriad(int row) const
{
    return subItem(row, IsTriadColumn) == TriadMark;
}

qint32 PreviewFrameList::WholeNumber(const QString& cell)
{
    const qint64 value = NumberText::valueOf(cell);
    return qint32(std::clamp<qint64>(value, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max()));
}

std::optional<PreviewFrameList::Frame> PreviewFrameList::FrameAt(int row) const
{
    if (row < 0 || row >= count())
        return std::nullopt;
    const QString x = subItem(row, XColumn);
    const QString y = subItem(row, YColumn);
    const QString width = subItem(row, XwidColumn);
    const QString height = subItem(row, YHiColumn);
    if (x.isEmpty() || y.isEmpty() || width.isEmpty() || height.isEmpty())
        return std::nullopt;
    return Frame{WholeNumber(x), WholeNumber(y), WholeNumber(width), WholeNumber(height)};
}

bool PreviewFrameList::CheckFramesIn(IndexRows& checklist, QChar keyPrefix) const
{
    return TickFrames(checklist, [&](int frame) -> QString { return keyPrefix + text(frame).trimmed(); });
}

bool PreviewFrameList::CheckPlacesIn(IndexRows& checklist, const ListRows& rows) const
{
    return TickFrames(checklist, [&](int frame) -> QString {
        const std::optional<qint64> place = NumberIn(text(frame));
        return place && *place >= 0 && *place < rows.count() ? rows.key(int(*place)) : QString();
    });
}

bool PreviewFrameList::TickFrames(IndexRows& checklist, const std::function<QString(int)>& keyOf) const
{
    if (count() == 0)
        return false;
    for (int frame = 0; frame < count(); ++frame) {
        const QString key = keyOf(frame);
        const int row = key.isEmpty() ? -1 : checklist.findKey(key);
        if (row >= 0)
            checklist.setCheckState(row, Qt::Checked);
    }
    return true;
}

std::optional<qint64> PreviewFrameList::NumberIn(const QString& cell)
{
    bool isNumber = false;
    const qint64 number = cell.trimmed().toLongLong(&isNumber);
    return isNumber ? std::optional<qint64>(number) : std::nullopt;
}
