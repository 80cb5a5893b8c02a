# Writes the C++ source OUTPUT with the definition of FUNCTION, which HEADER declares and which
# gives the bytes of the file INPUT.
file(READ ${INPUT} digits HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${digits}")
file(WRITE ${OUTPUT} "#include \"${HEADER}\"

std::span<const std::uint8_t> ${FUNCTION}() {
    static constexpr std::uint8_t bytes[] = {${bytes}};
    return bytes;
}
")
