#include "platform/store/data_link.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "platform/visible_text.h"

namespace noldarz {

void DataLink::bind(Field& field, std::string column, Accepts accepts, std::string words, std::string nothing) {
  std::erase_if(bindings_, [&](const Binding& b) { return b.field == &field; });
  Binding& binding = bindings_.emplace_back(
      Binding{&field, std::move(column), std::move(accepts), std::move(words), std::move(nothing), ""});
  if (!rows_ || !rows_->isAdding()) show(binding);
}

const Recordset& DataLink::recordset() const {
  if (!rows_) fail(FailureNumber::noCurrentRow);
  return *rows_;
}

Recordset& DataLink::rows() {
  if (!rows_) fail(FailureNumber::noCurrentRow);
  return *rows_;
}

bool DataLink::writes(const Binding& binding) const {
  return binding.field->kind() != FieldKind::label && binding.field->text() != binding.shown &&
         rows_->find(binding.column).has_value();
}

std::string DataLink::wordsOf(const Binding& binding) const {
  const std::string& text = binding.field->text();
  return binding.words.empty() ? binding.column + " " + text : fmt::format(fmt::runtime(binding.words), text);
}

std::string DataLink::pendingEdits() const {
  std::string edits;
  for (const Binding& binding : bindings_)
    if (rows_ && writes(binding)) edits += (edits.empty() ? "" : ", ") + wordsOf(binding);
  return edits;
}

std::vector<const DataLink::Binding*> DataLink::takePendingEdits() {
  std::vector<const Binding*> taken;
  for (const Binding& binding : bindings_) {
    if (!writes(binding)) continue;
    const std::string& text = binding.field->text();
    std::string fault;
    if (rows_->isNumber(*rows_->find(binding.column)) && !text.empty() && !binding.field->isNumeric())
      fault = "is no number";
    else if (!isPlainText(text))
      fault = "holds bytes that are no text";
    else if (binding.accepts)
      fault = binding.accepts(text);
    if (fault.empty()) {
      rows_->set(binding.column, text);
      taken.push_back(&binding);
    } else if (refused_) {
      refused_(fmt::format("\"{}\" {} and is not stored", text, fault));
    }
  }
  return taken;
}

void DataLink::save() {
  if (!rows_) return;
  const bool pending = std::any_of(bindings_.begin(), bindings_.end(), [&](const Binding& b) { return writes(b); });
  if (!rows_->isOpenForWriting()) {
    if (!pending || rows_->eof()) return;
    edit();
  }
  const auto taken = takePendingEdits();
  rows_->update();
  show();
  std::string words;
  for (const Binding* binding : taken) words += (words.empty() ? "" : ", ") + wordsOf(*binding);
  if (stored_ && !words.empty()) stored_(words);
}

void DataLink::edit() {
  if (!(rows_ && rows_->isOpenForWriting())) prepare();
  rows().edit();
}

void DataLink::insert(const std::vector<std::pair<std::string_view, Cell>>& cells) {
  Recordset added = rows();
  added.addNew();
  for (const auto& [column, cell] : cells) added.set(column, cell);
  added.update();
  rows_ = std::move(added);
  show();
}

void DataLink::update() {
  if (!rows().isOpenForWriting()) fail(FailureNumber::updateUnopened);
  save();
}

void DataLink::cancelUpdate() {
  if (rows_) rows_->cancelUpdate();
  show();
}

void DataLink::refresh() {
  std::exception_ptr unsaved;
  try {
    save();
  } catch (const RuntimeFailure& failure) {
    if (refused_) refused_(failure.what());
    if (failure.reason() == FailureNumber::storeLocked) throw;
    unsaved = std::current_exception();
  }
  readRows();
  if (unsaved) std::rethrow_exception(unsaved);
}

void DataLink::readRows() {
  // The same query that fails, such as under a lock, leaves the link on its row; another one must not.
  if (recordSource_ != rowsSource_) rows_.reset();
  cancelUpdate();
  if (recordSource_.empty()) fail(FailureNumber::noCurrentRow);
  database_ = databases_.open(file_);
  rows_.emplace(Recordset{database_, recordSource_});
  rowsSource_ = recordSource_;
  show();
}

void DataLink::close() {
  save();
  abandon();
}

void DataLink::abandon() {
  rows_.reset();
  database_.reset();
}

void DataLink::show() {
  for (Binding& binding : bindings_) show(binding);
}

void DataLink::show(Binding& binding) {
  const auto column = rows_ ? rows_->find(binding.column) : std::nullopt;
  if (column && !rows_->eof()) {
    const Cell& cell = rows_->value(*column);
    binding.field->setText(holdsNothing(cell) ? binding.nothing : textOf(cell));
  }
  binding.shown = binding.field->text();
}

void DataLink::moveFirst() {
  save();
  rows().moveFirst();
  show();
}

void DataLink::moveNext() {
  save();
  rows().moveNext();
  show();
}

void DataLink::addNew() {
  save();
  rows().addNew();
  for (Binding& binding : bindings_) {
    if (!rows_->find(binding.column)) continue;
    binding.field->setText("");
    binding.shown.clear();
  }
}

std::string textIn(const DataLink& row, std::string_view column) {
  const Cell& cell = row.value(column);
  if (holdsNothing(cell)) fail(FailureNumber::typeMismatch);
  return textOf(cell);
}

bool isTrue(const Cell& cell) { return !holdsNothing(cell) && numberOf(cell) != 0; }

}  // namespace noldarz
