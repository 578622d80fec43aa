// A change of the row of a link, statement by statement: it is opened, its cells are set, it is stored, each under the
// trap of the caller. Every room that writes to the study does it through here.
#pragma once

#include <concepts>
#include <string_view>
#include <utility>

#include "platform/failure.h"
#include "platform/store/data_link.h"
#include "platform/store/store_failure.h"

namespace noldarz {

class RowEdit {
 public:
  /// Opens the row for writing.
  RowEdit(DataLink& row, Trap trap) : row_(row), trap_(std::move(trap)) {
    trap_.step([this] { row_.edit(); });
  }

  RowEdit& set(std::string_view column, const Cell& value) {
    return set(column, [&value]() -> const Cell& { return value; });
  }
  /// A value that may fail to come about.
  RowEdit& set(std::string_view column, const std::invocable auto& value) {
    trap_.step([&] { row_.set(column, value()); });
    return *this;
  }

  /// Several cells as one statement.
  RowEdit& setAll(const auto& cells) {
    trap_.step([&] {
      for (const auto& [column, value] : cells) row_.set(column, value);
    });
    return *this;
  }

  /// Stores the row. False when it failed: what is open for writing stays so, and the next refresh of the link tries
  /// again.
  bool store() {
    return trap_.holds([this] {
      row_.update();
      return true;
    });
  }

  /// The same, but a row that can't be stored is dropped, so that the next refresh does not wait for the file again.
  bool storeOrDrop() {
    return trap_.holds([this] {
      try {
        row_.update();
      } catch (const StoreFailure&) {
        row_.cancelUpdate();
        throw;
      }
      return true;
    });
  }

 private:
  DataLink& row_;
  Trap trap_;
};

}  // namespace noldarz
