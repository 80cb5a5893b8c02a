#include "desktop/style/compact_style.h"

#include "desktop/style/colours.h"

#include <QPainter>
#include <QStyleOption>

namespace lookfar::desktop {

namespace {

QColor ring_colour(const QPalette& palette) {
    // The Web Content Accessibility Guidelines ask for it of what is no text.
    constexpr double enough_contrast = 3;
    const QColor highlight = palette.color(QPalette::Highlight);
    return contrast(highlight, palette.color(QPalette::Window)) < enough_contrast
               ? palette.color(QPalette::WindowText)
               : highlight;
}

} // namespace

CompactStyle::CompactStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int CompactStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 13;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return 2;
    case PM_CheckBoxLabelSpacing:
        return 4;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void CompactStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    // All but the ring is masked.
    if (element == CE_FocusFrame)
        painter->fillRect(option->rect, ring_colour(option->palette));
    else
        QProxyStyle::drawControl(element, option, painter, widget);
}

int CompactStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* data) const {
    switch (hint) {
    case SH_ComboBox_Popup:
        // A drop-down list opens below its box and scrolls, instead of covering the window.
        return 0;
    case SH_FocusFrame_AboveWidget:
        // Neighbours that touch a widget don't hide its ring.
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

} // namespace lookfar::desktop
