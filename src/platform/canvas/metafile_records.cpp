#include "platform/canvas/metafile_records.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <utility>

#include "platform/canvas/metafile.h"

namespace noldarz {

namespace {

constexpr std::uint32_t placeableKey = 0x9AC6CDD7;
constexpr std::size_t placeableSize = 22;
constexpr std::size_t headSize = 18;
constexpr std::size_t mostRecords = 2'000'000;  // the player keeps lists of what some of them make

enum Function : std::uint32_t {
  setMapMode = 0x0103,
  setWindowOrigin = 0x020B,
  setWindowExtent = 0x020C,
};

/// What makes objects; all of them are played, since states name them by number.
constexpr std::uint32_t makers[]{0x00F7, 0x00F8, 0x0142, 0x01F9, 0x02FA, 0x02FB, 0x02FC, 0x02FD, 0x06FE, 0x06FF};

/// What else the player is given: states, clips, shapes, texts, areas and bitmaps.
constexpr std::uint32_t played[]{
    0x001E, 0x0127, 0x0102, 0x0104, 0x0106, 0x0108, 0x0201, 0x0209, 0x020A, 0x012E, 0x012D, 0x01F0,  // states
    0x012C, 0x0415, 0x0416, 0x0220,                                                                  // clips
    0x0213, 0x0214, 0x0324, 0x0325, 0x0538, 0x041B, 0x061C, 0x0418, 0x0817, 0x081A, 0x0830, 0x041F,  // shapes
    0x0521, 0x0A32,                                                                                  // texts
    0x061D, 0x0228, 0x012B, 0x0940, 0x0B41, 0x0F43, 0x0D33};
bool isAmong(std::span<const std::uint32_t> functions, std::uint32_t function) {
  return std::find(functions.begin(), functions.end(), function) != functions.end();
}

int signedWord(std::string_view bytes, std::size_t at) { return static_cast<std::int16_t>(littleEndian(bytes, at, 2)); }

void put(std::string& bytes, std::size_t at, std::size_t width, std::size_t value) {
  for (std::size_t i = 0; i < width; ++i) bytes[at + i] = static_cast<char>(value >> (8 * i) & 0xFFU);
}

/// The head that says where the picture lies and how large it is.
bool takePlace(std::string_view head, MetafileRecords& records) {
  const int inch = static_cast<int>(littleEndian(head, 14, 2));
  if (inch == 0) return false;
  for (std::size_t axis = 0; axis < 2; ++axis) {
    records.origin[axis] = signedWord(head, 6 + 2 * axis);
    records.extent[axis] = signedWord(head, 10 + 2 * axis) - records.origin[axis];
    records.size[axis] = std::abs(static_cast<double>(records.extent[axis])) / inch;
  }
  return records.extent[0] != 0 && records.extent[1] != 0;
}

/// A record that says how units lie on the picture: the first of its kind, which stands before all that is painted.
void takeMapping(std::uint32_t function, std::string_view record, MetafileRecords& records, bool& origin,
                 bool& extent) {
  const bool point = record.size() >= 10;  // y, then x
  if (function == setMapMode && record.size() >= 8) records.mapMode = static_cast<int>(littleEndian(record, 6, 2));
  if (function == setWindowOrigin && point && !std::exchange(origin, true))
    records.origin = {signedWord(record, 8), signedWord(record, 6)};
  if (function == setWindowExtent && point && !std::exchange(extent, true))
    records.extent = {signedWord(record, 8), signedWord(record, 6)};
}

}  // namespace

std::uint32_t littleEndian(std::string_view bytes, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return value;
}

bool isMetafile(std::string_view bytes) {
  if (bytes.size() < headSize) return false;
  if (littleEndian(bytes, 0, 4) == placeableKey) return true;
  const auto type = littleEndian(bytes, 0, 2);
  const auto version = littleEndian(bytes, 4, 2);
  return (type == 1 || type == 2) && littleEndian(bytes, 2, 2) == 9 && (version == 0x100 || version == 0x300);
}

std::optional<MetafileRecords> metafileRecords(std::string_view bytes) {
  MetafileRecords records;
  if (bytes.size() >= placeableSize && littleEndian(bytes, 0, 4) == placeableKey) {
    if (!takePlace(bytes, records)) return {};
    bytes.remove_prefix(placeableSize);
    if (!isMetafile(bytes)) return {};
  }
  if (bytes.size() < headSize) return {};
  records.bytes = bytes.substr(0, headSize);
  std::size_t largest = 3;
  std::size_t objects = 0;
  bool origin = false;
  bool extent = false;
  for (std::size_t at = headSize;;) {
    if (bytes.size() - at < 6 || ++records.count > mostRecords) return {};
    const std::size_t words = littleEndian(bytes, at, 4);
    const std::uint32_t function = littleEndian(bytes, at + 4, 2);
    if (words < 3 || words > (bytes.size() - at) / 2) return {};
    const std::string_view record = bytes.substr(at, 2 * words);
    takeMapping(function, record, records, origin, extent);
    const bool end = function == 0;
    const bool makes = isAmong(makers, function);
    if (end || makes || isAmong(played, function)) {
      largest = std::max(largest, words);
      objects += makes ? 1 : 0;
      records.bytes += record;
    }
    if (end) break;
    at += record.size();
  }
  put(records.bytes, 0, 2, 1);  // as if in memory
  put(records.bytes, 6, 4, records.bytes.size() / 2);
  put(records.bytes, 10, 2, std::min<std::size_t>(objects, 0xFFFF));
  put(records.bytes, 12, 4, largest);
  return records;
}

}  // namespace noldarz
