// Little-endian numbers, as BMP and ICO files hold them.
#pragma once

#include <cstdint>
#include <stdexcept>

#include "image.h"

namespace solvanta::pictures {

inline void put_16(Bytes& bytes, unsigned value) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFFU));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8U & 0xFFU));
}

inline void put_32(Bytes& bytes, std::uint32_t value) {
    put_16(bytes, value & 0xFFFFU);
    put_16(bytes, value >> 16U);
}

// The byte at a position. Throws std::runtime_error beyond the end.
inline std::uint8_t get_8(const Bytes& bytes, std::size_t position) {
    if (position >= bytes.size()) {
        throw std::runtime_error("file too short");
    }
    return bytes[position];
}

inline unsigned get_16(const Bytes& bytes, std::size_t position) {
    return get_8(bytes, position) | static_cast<unsigned>(get_8(bytes, position + 1)) << 8U;
}

inline std::uint32_t get_32(const Bytes& bytes, std::size_t position) {
    return get_16(bytes, position) | static_cast<std::uint32_t>(get_16(bytes, position + 2)) << 16U;
}

inline std::int32_t get_signed_32(const Bytes& bytes, std::size_t position) {
    return static_cast<std::int32_t>(get_32(bytes, position));
}

}  // namespace solvanta::pictures
