#include "desktop/exchange/given_address.h"

#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

namespace lookfar::desktop {
namespace {

/// The address and the title, with a blank between them.
std::string given(const QMimeData& data) {
    const auto found = given_address(data);
    return found ? found->address + " " + found->title : "nothing";
}

TEST(GivenAddress, IsOneLineOfTheWebOrALinkWithItsTitle) {
    const struct {
        const char *text = "", *given = "";
    } texts[] = {{" http://a.example/b c.jpg\n", "http://a.example/b c.jpg "},
                 {"HTTPS://a", "HTTPS://a "},
                 {"http://a\nhttp://b", "nothing"},
                 {"http://", "nothing"},
                 {"ftp://a", "nothing"},
                 {"a.example", "nothing"},
                 {"", "nothing"}};
    for (const auto& [text, expected] : texts) {
        QMimeData data;
        data.setText(text);
        EXPECT_EQ(given(data), expected) << text;
    }
    const struct {
        QList<QUrl> urls;
        const char* given = "";
    } links[] = {{{QUrl("https://a/%20b")}, "https://a/%20b "},
                 {{QUrl("file:///a.jpg")}, "nothing"},
                 {{QUrl("http://a/"), QUrl("http://b/")}, "nothing"}};
    for (const auto& [urls, expected] : links) {
        QMimeData data;
        data.setUrls(urls);
        EXPECT_EQ(given(data), expected);
    }
    const QString link = QStringLiteral("http://a/\nOld  Quay\u00e9");
    const QByteArray utf16(reinterpret_cast<const char*>(link.utf16()), link.size() * 2);
    const struct {
        const char* format = "";
        QByteArray bytes;
        const char* given = "";
    } titled[] = {{"text/x-moz-url", utf16, "http://a/ Old Quay\u00e9"},
                  {"text/x-moz-url", utf16 + '\0', "http://a/ Old Quay\u00e9"},
                  {"text/x-moz-url", utf16 + utf16, "nothing"},
                  {"_NETSCAPE_URL", link.toUtf8(), "http://a/ Old Quay\u00e9"},
                  {"_NETSCAPE_URL", "http://a/\nOld\nQuay", "nothing"},
                  {"_NETSCAPE_URL", "http://a/" + QByteArray(8192, 'a'), "nothing"},
                  {"_NETSCAPE_URL", "http://a/\n", "http://a/ "}};
    for (const auto& [format, bytes, expected] : titled) {
        QMimeData data;
        data.setData(format, bytes);
        EXPECT_EQ(given(data), expected) << format;
    }
}

} // namespace
} // namespace lookfar::desktop
