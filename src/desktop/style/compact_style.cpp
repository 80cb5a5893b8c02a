#include "desktop/style/compact_style.h"

namespace lookfar::desktop {

CompactStyle::CompactStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int CompactStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                              const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 13;
    case PM_CheckBoxLabelSpacing:
        return 4;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int CompactStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* data) const {
    // A drop-down list opens below its box and scrolls, instead of covering the window.
    if (hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

} // namespace lookfar::desktop
