#pragma once

#include <QProxyStyle>

// Draws a menu separator as a plain line whatever its caption. The menus'
// separators are captioned "-", and some styles would print a caption as a
// section title beside the line.
class PlainSeparatorStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget = nullptr) const override;
};
