#include "platform/failure.h"

namespace noldarz {

const char* RuntimeFailure::what() const noexcept {
  switch (reason_) {
    case FailureNumber::invalidArgument: return "invalid argument";
    case FailureNumber::overflow: return "overflow";
    case FailureNumber::divisionByZero: return "division by zero";
    case FailureNumber::typeMismatch: return "the text is no number";
    case FailureNumber::noSuchFolder: return "no such folder";
    case FailureNumber::listRefuses: return "the list has no such entry";
    case FailureNumber::invalidPicture: return "the file is no picture";
    case FailureNumber::updateUnopened: return "nothing is open for writing";
    case FailureNumber::noCurrentRow: return "no current row";
    case FailureNumber::duplicateKey: return "a row with this key exists";
    case FailureNumber::noSuchFile: return "no such file";
    case FailureNumber::readOnly: return "the file is read-only";
    case FailureNumber::storeDamaged: return "the file is damaged";
    case FailureNumber::querySyntax: return "the query is refused";
    case FailureNumber::storeLocked: return "another program holds the file";
    case FailureNumber::noSuchColumn: return "no such column";
    case FailureNumber::notAStudy: return "the file is no study";
    case FailureNumber::storeFull: return "the disk is full";
    case FailureNumber::cadFailed: return "the CAD failed";
    case FailureNumber::storeFailed: return "the database engine failed";
    case FailureNumber::cancelled: return "cancelled by the user";
  }
  return "run-time failure";
}

void fail(FailureNumber reason) { throw RuntimeFailure{reason}; }

}  // namespace noldarz
