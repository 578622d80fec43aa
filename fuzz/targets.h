// What the fuzzer does to the program: one function a target, one random case a call. A case that fails throws a std::logic_error
// or crashes; failures that the program tells by its own means are no faults.
#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace noldarz::fuzz {

namespace fs = std::filesystem;

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}
  /// 0 to below - 1.
  std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>{0, count - 1}(random_); }
  bool once(std::size_t in) { return below(in) == 0; }
  template <class Range>
  const auto& oneOf(const Range& range) {
    return range[below(std::size(range))];
  }

 private:
  std::mt19937 random_;
};

/// A text as a careless or hostile hand enters it: numbers, near-numbers, marks, bytes.
std::string anyText(Chance& chance);
/// The text with pieces lost, doubled, exchanged or replaced.
std::string damaged(std::string text, Chance& chance);

/// A folder for the life of the fuzzer.
const std::filesystem::path& scratch();
/// Throws std::logic_error with the text unless it holds.
inline void demand(bool holds, const std::string& what) {
  if (!holds) throw std::logic_error(what);
}

void readNumber(Chance& chance);
void readScript(Chance& chance);
void readStudyText(Chance& chance);
/// A file from a stranger: foreign schema, damaged bytes, a journal beside it. No file elsewhere may change.
void openStranger(Chance& chance);
void runQuery(Chance& chance);
void useProgram(Chance& chance);

struct Target {
  std::string_view name;
  void (*run)(Chance&);
};

inline constexpr Target targets[]{{"number", readNumber},
                                  {"script", readScript},
                                  {"study-text", readStudyText},
                                  {"stranger", openStranger},
                                  {"query", runQuery},
                                  {"session", useProgram}};

}  // namespace noldarz::fuzz
