#pragma once

#include <QComboBox>

namespace lookfar::desktop {

/// The native widget of a drop-down list. A text that it has no room for ends in an ellipsis, in
/// the box and in the list.
class DropDown : public QComboBox {
  public:
    explicit DropDown(QWidget& window);

  protected:
    void initStyleOption(QStyleOptionComboBox* option) const override;
};

/// One that is painted flat in the colours of its palette, with a rim around its texts. The current
/// entry stands white on black, or the other way round; so does the frame of the box that has the
/// keyboard.
class FlatDropDown : public DropDown {
  public:
    explicit FlatDropDown(QWidget& window);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace lookfar::desktop
