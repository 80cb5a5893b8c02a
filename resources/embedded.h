#pragma once

#include <cstdint>
#include <span>

namespace lookfar::resources {

// One function for every icon file. The build generates what they return from the files.

std::span<const std::uint8_t> icon_16();
std::span<const std::uint8_t> icon_22();
std::span<const std::uint8_t> icon_24();
std::span<const std::uint8_t> icon_32();
std::span<const std::uint8_t> icon_48();
std::span<const std::uint8_t> icon_64();
std::span<const std::uint8_t> icon_128();
std::span<const std::uint8_t> icon_256();

} // namespace lookfar::resources
