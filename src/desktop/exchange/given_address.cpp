#include "desktop/exchange/given_address.h"

#include <QMimeData>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>

namespace lookfar::desktop {

namespace {

bool is_address(const QString& line) {
    // Nobody can read a longer one, and to edit it would take seconds.
    constexpr qsizetype max_characters = 8192;
    const auto begins_with = [&line](QLatin1String scheme) {
        return line.size() > scheme.size() && line.startsWith(scheme, Qt::CaseInsensitive);
    };
    return line.size() <= max_characters &&
           (begins_with(QLatin1String("http://")) || begins_with(QLatin1String("https://"))) &&
           std::ranges::all_of(line, [](QChar character) { return character.isPrint(); });
}

std::optional<GivenAddress> address_in(const QString& text, const QString& title = {}) {
    const QString line = text.trimmed();
    if (!is_address(line))
        return std::nullopt;
    return GivenAddress{.address = line.toStdString(), .title = title.simplified().toStdString()};
}

/// A format of links: an address on the first line, and a title, if there is one, on the second.
struct LinkFormat {
    const char* name;
    bool is_utf16;
};

/// Browsers offer all of them. Where Qt gives their own two under the name of the third, the title
/// is there too.
constexpr std::array link_formats{LinkFormat{"_NETSCAPE_URL", false},
                                  LinkFormat{"text/x-moz-url", true},
                                  LinkFormat{"text/uri-list", false}};

QString text_in(const QMimeData& data, const LinkFormat& format) {
    const QByteArray bytes = data.data(QLatin1String(format.name));
    if (!format.is_utf16)
        return QString::fromUtf8(bytes);
    QString text(bytes.size() / 2, QChar());
    std::copy_n(bytes.begin(), text.size() * 2, reinterpret_cast<char*>(text.data()));
    return text;
}

std::optional<GivenAddress> link_in(QString text) {
    const QStringList lines =
        text.remove(QChar()).trimmed().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QString second = lines.value(1);
    const bool has_more_addresses = lines.size() > 2 || second.contains(QLatin1String("://"));
    return has_more_addresses ? std::nullopt : address_in(lines.value(0), second);
}

} // namespace

std::optional<GivenAddress> given_address(const QMimeData& data) {
    for (const LinkFormat& format : link_formats)
        if (auto link = link_in(text_in(data, format)))
            return link;
    return data.hasUrls() ? std::nullopt : address_in(data.text());
}

} // namespace lookfar::desktop
