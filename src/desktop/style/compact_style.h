#pragma once

#include <QProxyStyle>

namespace lookfar::desktop {

/// The look of the native widgets. The controls have small, fixed rectangles, in which the usual
/// styles cut texts.
class CompactStyle : public QProxyStyle {
  public:
    CompactStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};

} // namespace lookfar::desktop
