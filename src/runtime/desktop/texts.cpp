#include "runtime/desktop/texts.h"

#include "runtime/text.h"

namespace lookfar::desktop {

QString shown_text(std::string_view bytes) {
    return QString::fromStdString(as_utf8(bytes));
}

std::string typed_bytes(const QString& text) {
    return text.toStdString();
}

} // namespace lookfar::desktop
