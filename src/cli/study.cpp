#include "cli/study.h"

#include <fmt/format.h>

#include <array>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>

#include "cli/study_text.h"
#include "platform/durable_file.h"
#include "platform/store/recordset.h"
#include "platform/store/store_failure.h"
#include "scenario/queries.h"
#include "scenario/study_layout.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

/// Runs the work; a fault of a file becomes one line.
template <class Work>
ExitStatus reporting(std::ostream& errors, Work&& work) {
  try {
    return work();
  } catch (const RuntimeFailure& failure) {
    errors << failure.what() << '\n';
  } catch (const StudyTextError& error) {
    errors << error.what() << '\n';
  } catch (const fs::filesystem_error& error) {
    errors << error.path1().string() << ": " << error.code().message() << '\n';
  }
  return ExitStatus::refused;
}

std::string readText(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::error_code error;
  if (!stream || fs::is_directory(file, error)) throw StudyTextError(file.string() + ": can't be read");
  return {std::istreambuf_iterator<char>(stream), {}};
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

/// The study that stands in the file, whole again after a change that was cut off and held against other processes; null
/// when there is none. Fails with storeLocked when another process holds it.
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

/// The first key that several rows of a table bear, told with the table; empty when there is none.
std::string doubleKey(const std::shared_ptr<Database>& study) {
  for (const Table& table : studyLayout().tables) {
    std::string columns;
    std::string groups;
    std::string known;
    for (const auto column : table.key) {
      const std::string name = quotedName(column);
      columns += name + ", ";
      groups += (groups.empty() ? "" : ", ") + name + " COLLATE NOCASE";
      known += (known.empty() ? "" : " AND ") + name + " IS NOT NULL";
    }
    if (table.key.empty()) continue;
    Recordset found{study,
                    fmt::format("SELECT {}count(*) FROM {} WHERE {} GROUP BY {} HAVING count(*) > 1",
                                columns,
                                quotedName(table.name),
                                known,
                                groups),
                    Recordset::Access::read};
    if (found.eof()) continue;
    std::string key;
    for (int i = 0; i < static_cast<int>(table.key.size()); ++i)
      key += (i == 0 ? "\"" : ", \"") + textOf(found.value(i)) + "\"";
    return fmt::format(
        "{} rows of {} with the key {}", textOf(found.value(static_cast<int>(table.key.size()))), table.name, key);
  }
  return {};
}

/// What the active project lacks for a press, and can be given in the window; empty when it lacks nothing.
std::string lackOf(const std::shared_ptr<Database>& study) {
  Recordset heights{study,
                    "SELECT htrel, htsmul, terrain FROM Disptbl WHERE refNo = "
                    "(SELECT refNo FROM [dsptbl-1] WHERE actvproj=-1) COLLATE NOCASE",
                    Recordset::Access::read};
  constexpr std::array names{"height of release", "height of simulation", "terrain"};
  std::string lack;
  for (int i = 0; i < static_cast<int>(names.size()); ++i)
    if (heights.eof() || textOf(heights.value(i)).empty())
      lack += (lack.empty() ? "" : ", ") + std::string{names.at(static_cast<std::size_t>(i))};
  return lack;
}

/// What keeps the program from working on a sound file; empty when nothing does.
std::string faultOf(const std::shared_ptr<Database>& study) {
  const auto read = Recordset::Access::read;
  Recordset projects{study, "SELECT OrgName, refNo FROM [dsptbl-1] WHERE actvproj=-1", read};
  if (projects.recordCount() != 1)
    return projects.recordCount() == 0 ? "has no active project" : "has more than one active project";
  Recordset scenarios{study, "SELECT scenariotxt FROM scenr1", read};
  if (scenarios.eof()) return "has no working scenario";
  for (const std::string& name : {textOf(projects.value(0)), textOf(projects.value(1)), textOf(scenarios.value(0))})
    if (const std::string fault = faultOfName(name); !fault.empty())
      return fmt::format("holds the name \"{}\", and it {}", name, fault);
  const std::string key = doubleKey(study);
  return key.empty() ? key : "holds " + key;
}

}  // namespace

ExitStatus createStudy(const fs::path& file, const fs::path& source, bool force, std::ostream& errors) {
  return reporting(errors, [&] {
    const std::string text = readText(source);
    if (!force && (fs::exists(file) || fs::exists(journalOf(file)))) {
      errors << file.string() << ": there is a study already; --force replaces it\n";
      return ExitStatus::refused;
    }
    NewFile made{file};
    createDatabase(made.path(), studyLayout());
    try {
      const Database study{made.path(), studyLayout()};
      fillStudy(study, text, source.string());
    } catch (...) {
      removeIfThere(journalOf(made.path()));
      throw;
    }
    const auto old = force ? heldStudy(file) : nullptr;
    if (force) removeIfThere(journalOf(file));  // of a file that is no study: it must not be taken for the new one's
    made.putInPlace(force ? NewFile::Existing::replace : NewFile::Existing::keep);
    return ExitStatus::done;
  });
}

ExitStatus exportStudy(const fs::path& file, std::ostream& out, std::ostream& errors) {
  return reporting(errors, [&] {
    out << studyText(std::make_shared<Database>(file, studyLayout()));
    return ExitStatus::done;
  });
}

ExitStatus checkStudy(const fs::path& file, std::ostream& out, std::ostream& errors) {
  return reporting(errors, [&] {
    const auto study = std::make_shared<Database>(file, studyLayout(), Database::Check::full);
    if (const std::string fault = faultOf(study); !fault.empty()) {
      errors << file.string() << " " << fault << '\n';
      return ExitStatus::refused;
    }
    out << fmt::format("{}: a sound study (projects: {}, runs: {}, working scenario \"{}\")\n",
                       file.string(),
                       cellAt(study, "SELECT count(*) FROM [dsptbl-1]"),
                       cellAt(study, "SELECT count(*) FROM maimTbl4All"),
                       cellAt(study, "SELECT scenariotxt FROM scenr1"));
    if (const std::string lack = lackOf(study); !lack.empty())
      out << file.string() << ": the active project has no " << lack << ": to be entered before a run\n";
    return ExitStatus::done;
  });
}

}  // namespace noldarz
