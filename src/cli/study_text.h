// A study as a text: TOML whose tables and columns are named as the database names them, `[[scenr1]]`, `[["dsptbl-1"]]`.
// Written in the order of the layout, so that the same study is the same text.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "platform/store/database.h"

namespace noldarz {

/// A fault of a study's text: "FILE:LINE: what is wrong".
class StudyTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Fills an empty study from the text, in one change. Throws StudyTextError for a text that is no TOML, an unknown table or
/// column, a value of the wrong type, a key that is missing, doubled or holds a single quote, no or two active projects, no
/// working scenario. `name`: of the file, for errors.
void fillStudy(const Database& study, const std::string& text, const std::string& name);

/// The study as a text. A cell without a value is left out.
std::string studyText(const std::shared_ptr<Database>& study);

}  // namespace noldarz
