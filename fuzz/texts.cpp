// Bytes are shown as another decoder of UTF-8 shows them where it finds no fault, and otherwise
// character by character; sorting sees the same characters.
#include "fuzz/support/expect.h"
#include "runtime/text.h"

#include <QString>
#include <QStringConverter>

#include <cstdint>
#include <optional>
#include <string>

namespace lookfar::fuzz {
namespace {

/// Nothing where the bytes are no UTF-8.
std::optional<std::u32string> from_utf8(const std::string& bytes) {
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(QByteArrayView(bytes));
    if (decoder.hasError())
        return std::nullopt;
    return text.toStdU32String();
}

void check(const std::string& bytes) {
    const auto expected = from_utf8(bytes);
    const std::u32string points = as_code_points(bytes);
    const std::string shown = as_utf8(bytes);
    if (expected) {
        expect(points == *expected, "UTF-8 is read as the other decoder reads it");
        expect(shown == bytes, "UTF-8 is shown as it is");
    }
    expect(expected || points.size() == bytes.size(), "otherwise a byte is a character");
    expect(from_utf8(shown) == points, "what is shown is UTF-8 of these characters");
    expect(as_utf8(shown) == shown, "what is shown is shown as it is");
    const std::u32string key = caseless_key(bytes);
    expect(key.size() == points.size(), "a key has a character for each");
    expect(caseless_key(shown) == key, "a key is that of the characters, not of their bytes");
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lookfar::fuzz::check({reinterpret_cast<const char*>(data), size});
    return 0;
}
