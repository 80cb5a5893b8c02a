# Writes the C++ source OUTPUT with a function for each FILE=FUNCTION of EMBEDDED, which returns the
# bytes of the file.
foreach(pair IN LISTS EMBEDDED)
    string(REGEX MATCH "^(.*)=(.*)$" pair "${pair}")
    set(file ${CMAKE_MATCH_1})
    set(function ${CMAKE_MATCH_2})
    file(READ ${file} digits HEX)
    string(REGEX REPLACE "(..)" "0x\\1," bytes "${digits}")
    string(APPEND functions "
std::span<const std::uint8_t> ${function}() {
    static constexpr std::uint8_t bytes[] = {${bytes}};
    return bytes;
}
")
endforeach()
file(WRITE ${OUTPUT} "#include \"resources/resources.h\"

namespace lookfar::resources {
${functions}
} // namespace lookfar::resources
")
