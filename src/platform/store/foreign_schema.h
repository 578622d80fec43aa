// What another program has put into the schema of a file that would act on the tables of the layout: compute while they
// are read or written, or change a row in the moment in which it is stored.
#pragma once

#include <string>
#include <string_view>

#include "platform/store/layout.h"

namespace noldarz {

/// Kind and name of what the statement of the schema makes, when it acts on a table of the layout: a trigger, a view, a
/// virtual table, an index by an expression or on a part of the rows, a check, a generated column, a computed default,
/// a conflict clause. Empty for all else: plain tables and indexes, and the program's own triggers.
std::string foreignActor(std::string_view statement, const Layout& layout);

/// Why the program can't work on the table that the statement makes, to follow its name; empty when it can.
std::string faultOfTable(std::string_view statement);

}  // namespace noldarz
