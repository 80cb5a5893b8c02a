#include "runtime/desktop/drawn_accessibility.h"

#include "runtime/desktop/texts.h"
#include "runtime/desktop/window_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <algorithm>
#include <memory>
#include <ranges>
#include <unordered_map>
#include <vector>

namespace lookfar::desktop {

namespace {

/// A drawn control. It looks its control up at every question, since that may be hidden or gone.
class DrawnInterface : public QAccessibleInterface {
  public:
    DrawnInterface(WindowView& view, const Control& control) : view_(&view), control_(&control) {}

    bool isValid() const override { return find().has_value(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(view_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        const auto drawn = find();
        return drawn && kind == QAccessible::Name ? shown_text(drawn->name) : QString();
    }

    QRect rect() const override {
        const auto drawn = find();
        if (!drawn)
            return {};
        const QRect area = drawn->area.toAlignedRect();
        return {view_->mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::Role role() const override {
        const auto drawn = find();
        const bool is_picture = drawn && drawn->role == DrawnControl::Role::picture;
        return is_picture ? QAccessible::Graphic : QAccessible::StaticText;
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        state.invalid = !isValid();
        return state;
    }

  private:
    std::optional<DrawnControl> find() const {
        if (!view_)
            return std::nullopt;
        auto named = view_->named_drawn_controls();
        const auto own = std::ranges::find(named, control_, &DrawnControl::control);
        return own == named.end() ? std::nullopt : std::optional(*own);
    }

    QPointer<WindowView> view_;
    const Control* control_;
};

/// A window: its native widgets first, then what it draws itself.
class WindowInterface : public QAccessibleWidget {
  public:
    explicit WindowInterface(WindowView& view)
        : QAccessibleWidget(&view, QAccessible::Window), view_(view) {}
    WindowInterface(const WindowInterface&) = delete;
    WindowInterface& operator=(const WindowInterface&) = delete;
    ~WindowInterface() override {
        for (const QAccessible::Id identity : std::views::values(drawn_))
            QAccessible::deleteAccessibleInterface(identity);
    }

    int childCount() const override {
        return QAccessibleWidget::childCount() +
               static_cast<int>(view_.named_drawn_controls().size());
    }

    QAccessibleInterface* child(int index) const override {
        const int first_drawn = QAccessibleWidget::childCount();
        if (index < first_drawn)
            return QAccessibleWidget::child(index);
        const auto named = view_.named_drawn_controls();
        const auto place = static_cast<std::size_t>(index - first_drawn);
        return place < named.size() ? interface_of(*named[place].control) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (int index = 0; index < childCount(); ++index)
            if (child(index) == wanted)
                return index;
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        if (QAccessibleInterface* const native = QAccessibleWidget::childAt(x, y))
            return native;
        for (const DrawnControl& drawn : view_.named_drawn_controls())
            if (QAccessibleInterface* const found = interface_of(*drawn.control);
                found->rect().contains(x, y))
                return found;
        return nullptr;
    }

  private:
    /// Qt keeps the interface until it is deleted by its identity.
    QAccessibleInterface* interface_of(const Control& control) const {
        const auto [place, is_new] = drawn_.try_emplace(&control);
        if (is_new)
            place->second = QAccessible::registerAccessibleInterface(
                std::make_unique<DrawnInterface>(view_, control).release());
        return QAccessible::accessibleInterface(place->second);
    }

    WindowView& view_;
    mutable std::unordered_map<const Control*, QAccessible::Id> drawn_;
};

QAccessibleInterface* make_window_interface(const QString&, QObject* object) {
    auto* const view = dynamic_cast<WindowView*>(object);
    return view ? std::make_unique<WindowInterface>(*view).release() : nullptr;
}

} // namespace

DrawnAccessibility::DrawnAccessibility() {
    QAccessible::installFactory(make_window_interface);
}

DrawnAccessibility::~DrawnAccessibility() {
    QAccessible::removeFactory(make_window_interface);
}

} // namespace lookfar::desktop
