#include "cli/study.h"

#include <fmt/format.h>

#include <array>
#include <fstream>
#include <ostream>
#include <string>

#include "cli/study_text.h"
#include "platform/durable_file.h"
#include "platform/store/any_case.h"
#include "platform/store/recordset.h"
#include "platform/store/store_failure.h"
#include "platform/visible_text.h"
#include "study/layout.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

/// Runs the work; a fault of a file becomes one line.
template <class Work>
ExitStatus reporting(std::ostream& errors, Work&& work) {
  try {
    return work();
  } catch (const RuntimeFailure& failure) {
    errors << visibleText(failure.what()) << '\n';
  } catch (const StudyTextError& error) {
    errors << visibleText(error.what()) << '\n';
  } catch (const fs::filesystem_error& error) {
    errors << visibleText(error.path1().string()) << ": " << error.code().message() << '\n';
  }
  return ExitStatus::refused;
}

/// The engine keeps the journal beside the file itself, not beside a link to it.
fs::path journalOf(const fs::path& file) {
  std::error_code error;
  fs::path journal = fs::canonical(file, error);
  if (error) journal = file;
  return journal += "-journal";
}

void removeIfThere(const fs::path& file) {
  std::error_code error;
  fs::remove(file, error);
}

/// The study that stands in the file, whole again after a change that was cut off and held against other processes;
/// null when there is none. Fails with storeLocked when another process holds it.
std::unique_ptr<Database> heldStudy(const fs::path& file) {
  for (;;) {
    std::unique_ptr<Database> study;
    try {
      study = std::make_unique<Database>(file, studyLayout());
    } catch (const StoreFailure& failure) {
      if (failure.reason() == FailureNumber::storeLocked) throw;
      return {};
    }
    study->run("PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
    if (study->isCurrent()) return study;  // else it was replaced while this process waited
  }
}

std::string cellAt(const std::shared_ptr<Database>& study, const std::string& query) {
  return textOf(Recordset{study, query, Recordset::Access::read}.value(0));
}

/// What the active project lacks for a press, and can be given in the window; empty when it lacks nothing.
std::string lackOf(const std::shared_ptr<Database>& study) {
  Recordset heights{study,
                    "SELECT htrel, htsmul, terrain FROM Disptbl WHERE refNo = "
                    "(SELECT refNo FROM [dsptbl-1] WHERE actvproj=-1) COLLATE " +
                        std::string{anyCase},
                    Recordset::Access::read};
  constexpr std::array names{"height of release", "height of simulation", "terrain"};
  std::string lack;
  for (int i = 0; i < static_cast<int>(names.size()); ++i)
    if (heights.eof() || textOf(heights.value(i)).empty())
      lack += (lack.empty() ? "" : ", ") + std::string{names.at(static_cast<std::size_t>(i))};
  return lack;
}

/// What keeps the program from working on a sound file, or its text from being one again; empty when nothing does.
std::string faultOf(const Database& study) {
  return study.foreign().empty() ? faultOfRows(study) : "it holds " + study.foreign() + ", and is not written to";
}

/// Where a study is to be put: a link stays and leads to it, though there may be nothing yet.
fs::path targetOf(const fs::path& file) {
  constexpr int mostLinks = 20;
  fs::path target = file;
  std::error_code error;
  for (int links = 0; links < mostLinks && fs::is_symlink(fs::symlink_status(target, error)); ++links)
    target = target.parent_path() / fs::read_symlink(target, error);
  return target;
}

}  // namespace

ExitStatus createStudy(const fs::path& file, const fs::path& source, bool force, std::ostream& errors) {
  return reporting(errors, [&] {
    std::error_code error;
    std::ifstream text(source, std::ios::binary);
    if (!text || fs::is_directory(source, error)) throw StudyTextError(source.string() + ": can't be read");
    if (!force && (fs::exists(fs::symlink_status(file)) || fs::exists(journalOf(file)))) {
      errors << visibleText(file.string()) << ": there is a study already; --force replaces it\n";
      return ExitStatus::refused;
    }
    const fs::path target = targetOf(file);
    NewFile made{target};
    createDatabase(made.path(), studyLayout(), [&](const Database& study) { fillStudy(study, text, source.string()); });
    const auto old = force ? heldStudy(target) : nullptr;
    if (force) removeIfThere(journalOf(target));  // of a file that is no study: it must not be taken for the new one's
    made.putInPlace(force ? NewFile::Existing::replace : NewFile::Existing::keep);
    return ExitStatus::done;
  });
}

ExitStatus exportStudy(const fs::path& file, std::ostream& out, std::ostream& errors) {
  return reporting(errors, [&] {
    const Database study{file, studyLayout()};
    study.run("BEGIN");  // one state of it, whoever writes meanwhile
    if (const std::string fault = faultOfRows(study); !fault.empty())
      throw StudyTextError(file.string() + ": " + fault);
    writeStudy(study, out);
    return ExitStatus::done;
  });
}

ExitStatus checkStudy(const fs::path& file, std::ostream& out, std::ostream& errors) {
  return reporting(errors, [&] {
    const auto study = std::make_shared<Database>(file, studyLayout(), Database::Check::full);
    if (const std::string fault = faultOf(*study); !fault.empty()) throw StudyTextError(file.string() + ": " + fault);
    out << visibleText(fmt::format("{}: a sound study (projects: {}, runs: {}, working scenario \"{}\")",
                                   file.string(),
                                   cellAt(study, "SELECT count(*) FROM [dsptbl-1]"),
                                   cellAt(study, "SELECT count(*) FROM maimTbl4All"),
                                   cellAt(study, "SELECT scenariotxt FROM scenr1")))
        << '\n';
    if (const std::string lack = lackOf(study); !lack.empty())
      out << visibleText(file.string()) << ": the active project has no " << lack << ": to be entered before a run\n";
    return ExitStatus::done;
  });
}

}  // namespace noldarz
