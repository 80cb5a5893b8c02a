#include "desktop/style/texts.h"

#include "runtime/text.h"

#include <QRegularExpression>

namespace lookfar::desktop {

namespace {

/// More than any window has room for. Laying out a line of a megabyte takes seconds.
constexpr qsizetype longest_shown = 1000;

} // namespace

QString shown_text(std::string_view bytes) {
    QString text = whole_text(bytes);
    if (text.size() > longest_shown) {
        text.truncate(longest_shown);
        text += QChar(0x2026);
    }
    return text;
}

QString whole_text(std::string_view bytes) {
    return QString::fromStdString(as_utf8(bytes));
}

QString on_one_line(QString text, const QString& in_place_of_breaks) {
    static const QRegularExpression line_break(QStringLiteral("\\R"));
    return text.replace(line_break, in_place_of_breaks);
}

const std::string& name_or(const std::string& accessible_name, const std::string& seen_text) {
    return accessible_name.empty() ? seen_text : accessible_name;
}

} // namespace lookfar::desktop
