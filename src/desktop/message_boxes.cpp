#include "desktop/message_boxes.h"

#include "desktop/style/texts.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>

namespace lookfar::desktop {

namespace {

bool has(const MessageBox& box, MessageBoxFlag flag) {
    return (static_cast<int>(box.flags) & static_cast<int>(flag)) != 0;
}

QMessageBox::Icon icon_of(const MessageBox& box) {
    if (has(box, MessageBoxFlag::information))
        return QMessageBox::Information;
    if (has(box, MessageBoxFlag::question))
        return QMessageBox::Question;
    return has(box, MessageBoxFlag::critical) ? QMessageBox::Critical : QMessageBox::NoIcon;
}

void add_yes_and_no(QMessageBox& native, bool no_is_default) {
    native.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    native.setDefaultButton(no_is_default ? QMessageBox::No : QMessageBox::Yes);
    native.setEscapeButton(QMessageBox::No);
}

/// Window managers don't give the keyboard back to a tool window by themselves.
int run(QMessageBox& native) {
    const QPointer<QWidget> asker = native.parentWidget();
    const int answer = native.exec();
    if (asker && asker->isVisible())
        asker->activateWindow();
    return answer;
}

} // namespace

MessageBoxAnswer ask(const MessageBox& box, QWidget* parent) {
    const QString title =
        box.title.empty() ? QCoreApplication::applicationName() : shown_text(box.title);
    QMessageBox native(icon_of(box), title, shown_text(box.text), QMessageBox::Ok, parent);
    native.setTextFormat(Qt::PlainText);
    if (!has(box, MessageBoxFlag::yes_no)) {
        run(native);
        return MessageBoxAnswer::ok;
    }
    add_yes_and_no(native, has(box, MessageBoxFlag::second_button_default));
    return run(native) == QMessageBox::Yes ? MessageBoxAnswer::yes : MessageBoxAnswer::no;
}

} // namespace lookfar::desktop
