#include "desktop/exchange/given_address.h"

#include <QMimeData>

#include <gtest/gtest.h>

namespace lookfar::desktop {
namespace {

/// The address and the title, with a blank between them.
std::string given(const QMimeData& data) {
    const auto found = given_address(data);
    return found ? found->address + " " + found->title : "nothing";
}

TEST(GivenAddress, IsOneLineOfTheWebOrALinkWithItsTitle) {
    const QString link = QStringLiteral("http://a/\nOld  Quay\u00e9");
    const QByteArray utf16(reinterpret_cast<const char*>(link.utf16()), link.size() * 2);
    const struct {
        const char* format = "";
        QByteArray bytes;
        const char* given = "";
    } cases[] = {{"text/plain", " http://a.example/b c.jpg\n", "http://a.example/b c.jpg "},
                 {"text/plain", "HTTPS://a", "HTTPS://a "},
                 {"text/plain", "http://a\nhttp://b", "nothing"},
                 {"text/plain", "http://", "nothing"},
                 {"text/plain", "ftp://a", "nothing"},
                 {"text/plain", "a.example", "nothing"},
                 {"text/plain", "", "nothing"},
                 {"text/uri-list", "https://a/%20b\r\n", "https://a/%20b "},
                 {"text/uri-list", "file:///a.jpg\r\n", "nothing"},
                 {"text/uri-list", "http://a/\r\nhttp://b/\r\n", "nothing"},
                 {"text/x-moz-url", utf16, "http://a/ Old Quay\u00e9"},
                 {"text/x-moz-url", utf16 + '\0', "http://a/ Old Quay\u00e9"},
                 {"text/x-moz-url", utf16 + utf16, "nothing"},
                 {"_NETSCAPE_URL", link.toUtf8(), "http://a/ Old Quay\u00e9"},
                 {"_NETSCAPE_URL", "http://a/\nOld\nQuay", "nothing"},
                 {"_NETSCAPE_URL", "http://a/" + QByteArray(8192, 'a'), "nothing"},
                 {"_NETSCAPE_URL", "http://a/\n", "http://a/ "}};
    for (const auto& [format, bytes, expected] : cases) {
        QMimeData data;
        data.setData(format, bytes);
        EXPECT_EQ(given(data), expected) << format << bytes.toStdString();
    }
}

} // namespace
} // namespace lookfar::desktop
