// Chance that can be repeated by its seed or by given bytes, and what it does to other bytes. Tests and fuzzers share
// it.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>

namespace noldarz {

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}
  /// The bytes decide, as far as they go: one a choice, two among more than 256.
  explicit Chance(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  /// 0 to count - 1.
  std::size_t below(std::size_t count) {
    const std::size_t width = count > 256 ? 2 : 1;
    if (bytes_.size() < width) return std::uniform_int_distribution<std::size_t>{0, count - 1}(random_);
    const std::size_t chosen = bytes_[0] + (width == 2 ? 256U * bytes_[1] : 0U);
    bytes_ = bytes_.subspan(width);
    return chosen % count;
  }
  /// The bytes that have not decided yet, which then decide no more.
  std::string rest() {
    std::string all{bytes_.begin(), bytes_.end()};
    bytes_ = {};
    return all;
  }
  bool once(std::size_t in) { return below(in) == 0; }
  double between(double low, double high) { return std::uniform_real_distribution<double>{low, high}(random_); }
  double betweenByOrders(double low, double high) { return std::exp(between(std::log(low), std::log(high))); }
  template <class Range>
  const auto& oneOf(const Range& range) {
    return range[below(std::size(range))];
  }

 private:
  std::span<const std::uint8_t> bytes_;
  std::mt19937 random_;
};

/// The bytes cut off, with a stretch of zeros, with others among the first 200, which hold the head of a file, or
/// anywhere.
inline std::string damaged(std::string bytes, Chance& chance) {
  const std::size_t kind = chance.below(5);
  if (kind == 0) bytes.resize(chance.below(bytes.size()));
  if (kind == 1)
    std::fill_n(
        bytes.begin() + static_cast<std::ptrdiff_t>(chance.below(bytes.size() - 600)), 1 + chance.below(600), '\0');
  for (std::size_t i = chance.below(12); kind > 1 && i < 12; ++i)
    bytes[kind == 2 ? chance.below(200) % bytes.size() : chance.below(bytes.size())] =
        static_cast<char>(chance.below(256));
  return bytes;
}

}  // namespace noldarz
