#include "decoder/decoder_place.h"

namespace lookfar::decoder {

std::filesystem::path decoder_of_this_program() {
    std::error_code ignored;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    const auto beside = folder / "lookfar-decoder";
    return std::filesystem::exists(beside, ignored) ? beside : folder / LOOKFAR_INSTALLED_DECODER;
}

} // namespace lookfar::decoder
