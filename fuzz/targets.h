// What the fuzzer does to the program: one function a target, one random case a call. A case that fails throws a
// std::logic_error or crashes; failures that the program tells by its own means are no faults.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/chance.h"

namespace noldarz::fuzz {

namespace fs = std::filesystem;

/// A text as a careless or hostile hand enters it: numbers, near-numbers, marks, bytes.
std::string anyText(Chance& chance);
/// The text with pieces lost, doubled, exchanged or replaced.
std::string mangled(std::string text, Chance& chance);

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
/// The bytes of the case are the file, here and below.
void readDrawing(Chance& chance);
void readPicture(Chance& chance);

}  // namespace noldarz::fuzz
