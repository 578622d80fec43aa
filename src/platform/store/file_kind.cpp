#include "platform/store/file_kind.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <fstream>
#include <string_view>

namespace noldarz {

namespace {

namespace fs = std::filesystem;

/// Head of a file of the database engine: magic text, page size at 16, change counter at 24, page count at 28, the
/// change counter for which the page count holds at 92; numbers are big-endian.
constexpr std::size_t headSize = 100;
constexpr std::string_view magic{"SQLite format 3\0", 16};

/// An original Jet database says so after four bytes.
constexpr std::size_t jetMagicAt = 4;
constexpr std::array<std::string_view, 2> jetMagics{"Standard Jet DB", "Standard ACE DB"};

std::uint64_t bigEndian(std::string_view head, std::size_t at, std::size_t size) {
  std::uint64_t value = 0;
  for (const char c : head.substr(at, size)) value = value << 8U | static_cast<unsigned char>(c);
  return value;
}

bool isText(std::string_view head) {
  return std::all_of(head.begin(), head.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
  });
}

bool isTruncated(std::string_view head, std::uint64_t size, const fs::path& file) {
  if (head.size() < headSize) return true;
  if (bigEndian(head, 24, 4) != bigEndian(head, 92, 4)) return false;  // the page count is not to be relied on
  std::error_code error;
  fs::path journal = fs::canonical(file, error);
  if (fs::exists(journal += "-journal", error)) return false;  // the engine will roll a change back
  const std::uint64_t pageSize = bigEndian(head, 16, 2);
  return size < (pageSize == 1 ? 65536 : pageSize) * bigEndian(head, 28, 4);
}

}  // namespace

std::string faultOfFile(const fs::path& file) {
  std::error_code error;
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) return "is not there";
  if (!fs::is_regular_file(status)) return "is no file";
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return "can't be read";
  std::string head(headSize, '\0');
  stream.read(head.data(), static_cast<std::streamsize>(headSize));
  if (stream.bad()) return "can't be read";
  head.resize(static_cast<std::size_t>(stream.gcount()));

  if (head.empty()) return "is empty, no study";
  for (const auto jetMagic : jetMagics)
    if (head.size() > jetMagicAt && head.substr(jetMagicAt).starts_with(jetMagic))
      return "is an original Jet database, no study of this program; create one from its tables";
  if (head.starts_with(magic.substr(0, head.size())))
    return isTruncated(head, fs::file_size(file, error), file) ? "is a truncated study" : "";
  return isText(head) ? "is a text, no study" : "is no study";
}

}  // namespace noldarz
