// A study as a text: TOML whose tables and columns are named as the database names them, `[[scenr1]]`,
// `[["dsptbl-1"]]`. Written in the order of the layout, so that the same study is the same text.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>

#include "platform/store/database.h"

namespace noldarz {

/// A fault of a study's text: "FILE:LINE: what is wrong".
class StudyTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Fills an empty study from the text, row by row. Throws StudyTextError for a text that is no TOML, an unknown table
/// or column, a value of the wrong type, and what StudyRules finds. `name`: of the file, for errors.
void fillStudy(const Database& study, std::istream& text, const std::string& name);

/// Why the study can't come back from its text: row, table and what StudyRules finds; empty when it can.
std::string faultOfRows(const Database& study);

/// Writes a study without such a fault as a text. A cell without a value is left out.
void writeStudy(const Database& study, std::ostream& out);

}  // namespace noldarz
