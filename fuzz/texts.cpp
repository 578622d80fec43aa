#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "cli/record_json.h"
#include "cli/script.h"
#include "cli/script_error.h"
#include "cli/study.h"
#include "cli/words.h"
#include "platform/failure.h"
#include "platform/store/recordset.h"
#include "platform/text.h"
#include "study/layout.h"
#include "targets.h"

namespace noldarz::fuzz {

namespace {

constexpr std::string_view pieces[]{"0",      "1",     "-",    "+",        ".",        ",",    "e",
                                    "E",      "308",   "1e",   "inf",      "nan",      "0x10", " ",
                                    "\t",     "\n",    "\"",   "'",        "#",        "\\",   ">",
                                    "N.A.",   "10000", "0.05", "50000.01", "-1",       "1e-9", "9999999999999999999",
                                    "%",      "\0",    "ß",    "\xff",     "\xe2\x82", "LEL:", "PLUME",
                                    "Custom", "[x]",   "--",   "/*",       "12.5"};

std::string fileText(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

std::string anyText(Chance& chance) {
  std::string text;
  for (std::size_t count = chance.below(6); count > 0; --count) text += chance.oneOf(pieces);
  return text;
}

std::string mangled(std::string text, Chance& chance) {
  for (std::size_t count = 1 + chance.below(4); count > 0 && !text.empty(); --count) {
    const std::size_t at = chance.below(text.size());
    const std::size_t length = chance.below(std::min<std::size_t>(text.size() - at, 30) + 1);
    switch (chance.below(4)) {
      case 0: text.erase(at, length); break;
      case 1: text.insert(chance.below(text.size()), text.substr(at, length)); break;
      case 2: text.replace(at, length, anyText(chance)); break;
      default: text[at] = static_cast<char>(chance.below(256)); break;
    }
  }
  return text;
}

void readNumber(Chance& chance) {
  const std::string text = anyText(chance);
  const ParsedNumber parsed = parseNumber(text);
  demand(isNumeric(text) == parsed.isNumber(), "isNumeric and parseNumber differ on " + text);
  if (!parsed.isNumber()) return;
  demand(std::isfinite(parsed.value), "no finite number from " + text);
  const std::string plain = plainText(parsed.value);
  demand(std::fabs(strictNumber(plain) - parsed.value) <= std::fabs(parsed.value) * 1e-14,
         "another number from " + plain);
  const std::string format = chance.once(2) ? "0.00" : "0";
  const std::string shown = Format(parsed.value, format);
  demand(isNumeric(shown) && Format(shown, format) == shown, "formatted twice: " + shown);
}

void readScript(Chance& chance) {
  static const std::vector<std::string> lines = [] {
    std::vector<std::string> all;
    for (const char* name : {"lpg-pool", "ammonia-puff", "chlorine-hose", "study"}) {
      std::istringstream script(fileText(NOLDARZ_SOURCE_DIR "/examples/" + std::string{name} + ".script"));
      for (std::string line; std::getline(script, line);) all.push_back(line);
    }
    for (const char* more : {"dump", "views", "table", "state mgc endDist", "show constn(1)", "wait 50", "answer yes"})
      all.emplace_back(more);
    return all;
  }();
  ScriptSession session{[](const RecordEntry& entry) { jsonLine(entry); }, Folders{scratch(), scratch(), scratch()}};
  for (std::size_t count = 1 + chance.below(10); count > 0; --count) {
    const std::string line = chance.once(3) ? mangled(chance.oneOf(lines), chance) : chance.oneOf(lines);
    try {
      session.runLine(line);
    } catch (const ScriptError&) {  // told to the user
    }
  }
}

void readStudyText(Chance& chance) {
  static const std::vector<std::string> texts{fileText(NOLDARZ_SOURCE_DIR "/examples/studies/lpg.toml"),
                                              fileText(NOLDARZ_SOURCE_DIR "/examples/studies/chlorine.toml")};
  const fs::path source = scratch() / "study.toml";
  const fs::path study = scratch() / "made.mdb";
  std::ofstream(source, std::ios::binary | std::ios::trunc) << mangled(chance.oneOf(texts), chance);
  std::ostringstream errors;
  const ExitStatus made = createStudy(study, source, true, errors);
  demand((made == ExitStatus::done) == errors.str().empty(), "made and reported: " + errors.str());
  if (made != ExitStatus::done) return;
  std::ostringstream first;
  demand(exportStudy(study, first, errors) == ExitStatus::done, "not exported: " + errors.str());
  std::ofstream(source, std::ios::binary | std::ios::trunc) << first.str();
  demand(createStudy(study, source, true, errors) == ExitStatus::done, "not made again: " + errors.str());
  std::ostringstream second;
  exportStudy(study, second, errors);
  demand(first.str() == second.str(), "another study came back");
}

void openStranger(Chance& chance) {
  static const std::vector<std::string> schema{
      "CREATE TRIGGER a AFTER UPDATE ON maimTbl4All BEGIN DELETE FROM scenr1; END",
      "CREATE VIEW b AS SELECT * FROM Orgtn",
      "CREATE INDEX c ON maimTbl4All (OrgName COLLATE NOCASE, refNo)",
      "CREATE INDEX d ON Disptbl (abs(htrel))",
      "ALTER TABLE Orgtn ADD COLUMN e AS (hex(OrgName))",
      "CREATE TABLE f (x CHECK (x IN (SELECT 1)))",
      "DROP TABLE scenr1",
      "CREATE TABLE scenr1 (scenariotxt, refno) WITHOUT ROWID",
      "CREATE VIRTUAL TABLE g USING fts4(maimTbl4All)",
      "PRAGMA journal_mode = WAL",
      "PRAGMA page_size = 512; VACUUM",
      "INSERT INTO maimTbl4All (OrgName, ScenarioOptn) VALUES (x'00ff', char(27))"};
  static const fs::path study = scratch() / "stranger.mdb";
  static const fs::path canary = scratch() / "canary";
  static const std::string name = canary.string();
  const std::string magic{"\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8};
  std::ostringstream errors;
  for (const char* side : {"-journal", "-wal", "-shm"}) fs::remove(study.string() + side);
  createStudy(study, NOLDARZ_SOURCE_DIR "/examples/studies/lpg.toml", true, errors);
  sqlite3* handle = nullptr;
  sqlite3_open(study.c_str(), &handle);
  for (std::size_t count = chance.below(4); count > 0; --count)
    sqlite3_exec(handle, mangled(chance.oneOf(schema), chance).c_str(), nullptr, nullptr, nullptr);
  sqlite3_exec(handle, chance.oneOf(schema).c_str(), nullptr, nullptr, nullptr);
  sqlite3_close(handle);
  if (chance.once(2)) std::ofstream(study, std::ios::binary | std::ios::in) << mangled(fileText(study), chance);
  if (chance.once(2)) {
    std::string journal = magic + std::string("\0\0\0\0\0\0\0\1\0\0\0\x9\0\0\2\0\0\0\x10\0", 20);
    journal.resize(512);
    journal += std::string(4, '\1') + name + std::string{0, 0, 0, static_cast<char>(name.size())} +
               std::string(4, '\0') + magic;
    std::ofstream(study.string() + (chance.once(4) ? "-wal" : "-journal"), std::ios::binary)
        << (chance.once(2) ? mangled(journal, chance) : journal);
  }
  std::ofstream(canary) << "as it was";
  std::ostringstream out;
  checkStudy(study, out, errors);
  exportStudy(study, out, errors);
  try {
    const Database opened{study, studyLayout()};
    opened.transact([&] { opened.run("UPDATE Disptbl SET htrel = 2"); });
  } catch (const RuntimeFailure&) {  // told to the user
  }
  demand(fileText(canary) == "as it was", "another file was touched");
}

void runQuery(Chance& chance) {
  static const std::vector<std::string> queries = [] {
    std::vector<std::string> all;
    std::istringstream lines(fileText(NOLDARZ_SOURCE_DIR "/tests/reference/queries.txt"));
    for (std::string line; std::getline(lines, line);)
      all.push_back(line.substr(line.find('\t') + 1));  // behind its name
    all.emplace_back("SELECT * FROM maimTbl4All ORDER BY rowid");
    return all;
  }();
  static const auto database = [] {
    std::ostringstream errors;
    const fs::path study = scratch() / "queried.mdb";
    createStudy(study, NOLDARZ_SOURCE_DIR "/examples/studies/lpg.toml", true, errors);
    return std::make_shared<Database>(study, studyLayout());
  }();
  try {
    Recordset found{database, mangled(chance.oneOf(queries), chance)};
    for (int rows = 0; !found.eof() && rows < 20; found.moveNext(), ++rows)
      for (int i = 0; i < static_cast<int>(found.columns().size()); ++i) textOf(found.value(i));
    if (!chance.once(3)) return;
    found.addNew();
    found.set(chance.oneOf(found.columns()), anyText(chance));
    found.update();
  } catch (const RuntimeFailure&) {  // told to the user
  }
}

}  // namespace noldarz::fuzz
