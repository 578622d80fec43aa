// A small layout of the store's own, for tests that need no study.
#pragma once

#include <array>

#include "platform/store/database.h"
#include "support/test_folder.h"

namespace noldarz::test {

inline const Layout& smallLayout() {
  using enum ColumnType;
  static constexpr std::array<Column, 1> organisation{{{"OrgName", text}}};
  static constexpr std::array<Column, 3> chemical{{{"OrgName", text}, {"refNo", text}, {"givnwnd1", number}}};
  static constexpr std::array<Column, 4> settings{
      {{"refNo", text}, {"htrel", number}, {"htsmul", number}, {"terrain", text}}};
  static constexpr std::array<Column, 2> scenario{{{"refno", text}, {"TemprturTemp", any}}};
  static constexpr std::array<Column, 21> run{{{"OrgName", text},         {"refNo", text},       {"scenariotxt", text},
                                               {"scenariotxtUser", text}, {"Causes", text},      {"TemptureTmp", text},
                                               {"qntystor", any},         {"prbtoptn", boolean}, {"wndvel", number},
                                               {"endptn0", number},       {"endptn1", number},   {"endptn2", number},
                                               {"endptn3", number},       {"endptn4", number},   {"endptn5", number},
                                               {"bgnptn0", number},       {"bgnptn1", number},   {"bgnptn2", number},
                                               {"bgnptn3", number},       {"bgnptn4", number},   {"bgnptn5", number}}};
  static constexpr std::array<std::string_view, 3> runKey{"OrgName", "refNo", "scenariotxt"};
  static constexpr std::array<Table, 5> tables{{{"Orgtn", organisation, {}},
                                                {"dsptbl-1", chemical, {}},
                                                {"Disptbl", settings, {}},
                                                {"scenr1", scenario, {}},
                                                {"maimTbl4All", run, runKey}}};
  static constexpr Layout layout{tables, 0x54455354, 1};
  return layout;
}

inline std::shared_ptr<Database> openStore(const fs::path& file) {
  return std::make_shared<Database>(file, smallLayout());
}

/// A store with a row in each table but that of the runs, in place of one that is there.
inline void makeStore(const fs::path& file) {
  const fs::path fresh = file.string() + ".new";
  writeFile(fresh, "");
  Database{fresh, smallLayout(), [](const Database& store) {
             store.run("INSERT INTO Orgtn VALUES ('Harbour Water Works')");
             store.run("INSERT INTO [dsptbl-1] VALUES ('Harbour Water Works', 'HW-1', 10)");
             store.run("INSERT INTO Disptbl VALUES ('HW-1', 1, 1.5, 'Level')");
             store.run("INSERT INTO scenr1 VALUES ('HW-1', 30)");
           }};
  fs::rename(fresh, file);
}

}  // namespace noldarz::test
