# Writes the C++ source OUTPUT, whose FUNCTION returns the bytes of the file INPUT.
file(READ ${INPUT} digits HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${digits}")
file(WRITE ${OUTPUT} "#include \"resources/resources.h\"

namespace lookfar::resources {

std::span<const std::uint8_t> ${FUNCTION}() {
    static constexpr std::uint8_t bytes[] = {${bytes}};
    return bytes;
}

} // namespace lookfar::resources
")
