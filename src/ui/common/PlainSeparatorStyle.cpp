#include "ui/common/PlainSeparatorStyle.h"

#include <QStyleOptionMenuItem>

#include <optional>

namespace {

// The option without its caption when it is a captioned separator.
std::optional<QStyleOptionMenuItem> uncaptioned(const QStyleOption* option)
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (!item || item->menuItemType != QStyleOptionMenuItem::Separator || item->text.isEmpty())
        return std::nullopt;
    QStyleOptionMenuItem line(*item);
    line.text.clear();
    return line;
}

} // namespace

void PlainSeparatorStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                      const QWidget* widget) const
{
    if (element == CE_MenuItem) {
        if (const auto line = uncaptioned(option)) {
            QProxyStyle::drawControl(element, &*line, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

QSize PlainSeparatorStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                            const QWidget* widget) const
{
    if (type == CT_MenuItem) {
        if (const auto line = uncaptioned(option))
            return QProxyStyle::sizeFromContents(type, &*line, size, widget);
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}
