// Reads the reference figures, which were worked out outside the program (tests/reference/reference_model.py).
#pragma once

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace noldarz::test {

inline std::ifstream openReference(const std::string& name) {
  std::ifstream file(NOLDARZ_SOURCE_DIR "/tests/reference/" + name);
  if (!file) throw std::runtime_error("no reference file " + name);
  return file;
}

/// The rows of a comma-separated file without its head line.
inline std::vector<std::vector<std::string>> referenceRows(const std::string& name) {
  auto file = openReference(name);
  std::vector<std::vector<std::string>> rows;
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    std::vector<std::string> cells;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, ',');) cells.push_back(cell);
    rows.push_back(cells);
  }
  return rows;
}

inline nlohmann::json referenceRuns() {
  auto file = openReference("runs.json");
  return nlohmann::json::parse(file);
}

/// The closed formulas agree to the last few bits; the tolerance leaves room for another order of the operations.
inline constexpr double relativeTolerance = 1e-12;

}  // namespace noldarz::test
