// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane::commission {

/// SHA-256 of the bytes ("FIPS PUB 180-4: Secure Hash Standard", 6.2) as 64 hexadecimal digits in lower case.
/// It tells whether two files are the same; it isn't a signature.
[[nodiscard]] std::string sha256(std::string_view bytes);

/// The CRC-32 of the bytes, as Ethernet and zip files have it (polynomial 04C11DB7, reflected).
[[nodiscard]] std::uint32_t crc32(std::string_view bytes) noexcept;

/// Eight hexadecimal digits in lower case.
[[nodiscard]] std::string hex8(std::uint32_t value);

} // namespace zorvane::commission
