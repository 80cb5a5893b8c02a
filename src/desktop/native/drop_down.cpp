#include "desktop/native/drop_down.h"

#include "desktop/native/owned_by_qt.h"
#include "desktop/style/colours.h"
#include "desktop/style/geometry.h"
#include "desktop/style/rimmed_text.h"

#include <QListView>
#include <QPainter>
#include <QStyleOption>
#include <QStyledItemDelegate>

namespace lookfar::desktop {

namespace {

constexpr int text_margin = 3;

/// An entry that takes no more room than the list has: a longer one would be cut at the list's
/// edge.
class NarrowEntry : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

void draw_text(QPainter& painter, const QRect& room, const QString& text, const QColor& colour) {
    draw_rimmed(painter, colour, [&](const QPoint& offset) {
        painter.drawText(room.translated(offset), Qt::AlignVCenter | Qt::TextSingleLine, text);
    });
}

void draw_arrow_down(QPainter& painter, const QPoint& middle, const QColor& colour) {
    const QPolygon arrow({{-4, -2}, {4, -2}, {0, 2}});
    draw_rimmed(painter, colour, [&](const QPoint& offset) {
        painter.setBrush(painter.pen().color());
        painter.drawPolygon(arrow.translated(middle + offset));
    });
    painter.setBrush(Qt::NoBrush);
}

void draw_frame(QPainter& painter, const QRect& box, const QColor& colour) {
    painter.setPen(colour);
    painter.drawRect(outline_of(box));
}

class FlatEntry : public NarrowEntry {
  public:
    using NarrowEntry::NarrowEntry;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QColor text = option.palette.color(QPalette::Text);
        const bool is_current = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setFont(option.font);
        painter->fillRect(option.rect,
                          is_current ? rim_colour(text) : option.palette.color(QPalette::Base));
        if (is_current)
            draw_frame(*painter, option.rect, text);
        const QRect room = option.rect.adjusted(text_margin, 0, -text_margin, 0);
        draw_text(
            *painter, room,
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, room.width()),
            text);
        painter->restore();
    }
};

} // namespace

DropDown::DropDown(QWidget& window) : QComboBox(&window) {
    QListView& list = *owned_by_qt<QListView>();
    list.setUniformItemSizes(true);
    setView(&list);
    setItemDelegate(owned_by_qt<NarrowEntry>(this));
    // Without this the box measures every entry.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void DropDown::initStyleOption(QStyleOptionComboBox* option) const {
    QComboBox::initStyleOption(option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight,
                                                   room.width() - 2 * text_margin);
}

FlatDropDown::FlatDropDown(QWidget& window) : DropDown(window) {
    setItemDelegate(owned_by_qt<FlatEntry>(this));
}

void FlatDropDown::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const auto place_of = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_ComboBox, &option, part, this);
    };
    const QColor text = palette().color(QPalette::ButtonText);
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    draw_frame(painter, rect(), rim_colour(text));
    if (hasFocus())
        draw_frame(painter, rect().adjusted(1, 1, -1, -1), text);
    draw_text(painter, place_of(QStyle::SC_ComboBoxEditField).adjusted(text_margin, 0, 0, 0),
              option.currentText, text);
    draw_arrow_down(painter, place_of(QStyle::SC_ComboBoxArrow).center(), text);
}

} // namespace lookfar::desktop
