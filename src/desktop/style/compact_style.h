#pragma once

#include <QProxyStyle>

namespace lookfar::desktop {

/// The look of the native widgets. The controls have small, fixed rectangles, in which the usual
/// styles cut texts. Around the one that has the keyboard lies a ring that can be told from any
/// ground.
class CompactStyle : public QProxyStyle {
  public:
    CompactStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};

} // namespace lookfar::desktop
