#include "platform/failure.h"

namespace noldarz {

const char* RuntimeFailure::what() const noexcept {
  switch (reason_) {
    case FailureNumber::invalidArgument: return "invalid argument";
    case FailureNumber::overflow: return "overflow";
    case FailureNumber::divisionByZero: return "division by zero";
    case FailureNumber::typeMismatch: return "the text is no number";
    case FailureNumber::cancelled: return "cancelled by the user";
  }
  return "run-time failure";
}

void fail(FailureNumber reason) { throw RuntimeFailure{reason}; }

}  // namespace noldarz
