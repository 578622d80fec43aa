// A failure of the store: a run-time failure that also tells in words what went wrong and with which file, for the
// status line and the command line.
#pragma once

#include <string>
#include <utility>

#include "platform/failure.h"

namespace noldarz {

class StoreFailure : public RuntimeFailure {
 public:
  StoreFailure(FailureNumber reason, std::string text) : RuntimeFailure(reason), text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

}  // namespace noldarz
