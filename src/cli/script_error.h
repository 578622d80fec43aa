// The fault of a script's line.
#pragma once

#include <stdexcept>

namespace noldarz {

/// A line of a script that can't be understood or carried out; the text names the word at fault.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace noldarz
