// The records of a metafile (wmf), checked before any player sees them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace noldarz {

/// What is needed to play a metafile.
struct MetafileRecords {
  std::string bytes;             ///< a plain metafile of the records that paint, one unit a pixel, all sizes true
  std::size_t count = 0;         ///< of records
  std::array<int, 2> origin{};   ///< of the window: x, y
  std::array<int, 2> extent{};   ///< of the window; 0: none is told; below 0: the axis is reversed
  std::array<double, 2> size{};  ///< inches; 0: it has none of its own
  int mapMode = 1;
};

/// Nothing when a header or a record is damaged or the end is missing.
std::optional<MetafileRecords> metafileRecords(std::string_view bytes);

/// Byte order of all that Windows writes. The bytes must reach that far.
std::uint32_t littleEndian(std::string_view bytes, std::size_t at, std::size_t width);

}  // namespace noldarz
