#include "runtime/text.h"

#include <gtest/gtest.h>

#include <QStringConverter>

#include <random>
#include <string>

namespace lookfar::testing {
namespace {

TEST(Texts, AreReadAsUtf8WhereAnotherDecoderFindsNoFaultAndByteByByteOtherwise) {
    const std::string bytes =
        "a\x80\x8F\x90\x9F\xA0\xBB\xBF\xC1\xC2\xDF\xE0\xE1\xED\xEF\xF0\xF4\xF5\xFF";
    std::mt19937 random(1);
    for (int run = 0; run < 100'000; ++run) {
        std::string text;
        for (auto length = random() % 7; length > 0; --length)
            text += bytes[random() % bytes.size()];
        QStringDecoder decoder(QStringConverter::Utf8,
                               QStringConverter::Flag::Stateless |
                                   QStringConverter::Flag::ConvertInitialBom);
        const QString decoded = decoder(QByteArrayView(text));
        const std::string shown = as_utf8(text);
        if (decoder.hasError()) {
            ASSERT_EQ(QString::fromStdString(shown).toStdU32String().size(), text.size()) << text;
        } else {
            ASSERT_EQ(shown, decoded.toStdString()) << text;
        }
        ASSERT_EQ(as_utf8(shown), shown) << "what is shown is the same text";
    }
}

TEST(Texts, SortWithoutRegardToCase) {
    EXPECT_EQ(caseless_key("ABC z"), caseless_key("abc Z"));
    EXPECT_EQ(caseless_key("\xC3\x84RGER"), caseless_key("\xE4rger")) << "across encodings";
    EXPECT_EQ(caseless_key("\xC5\x81\xC3\xB3"), caseless_key("\xC5\x82\xC3\x93"));
    EXPECT_EQ(caseless_key("\xD0\x96"), caseless_key("\xD0\xB6"));
    EXPECT_NE(caseless_key("\xC3\x97"), caseless_key("\xC3\xB7")) << "times and divide are no case";
}

} // namespace
} // namespace lookfar::testing
