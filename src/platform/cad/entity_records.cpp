#include "platform/cad/entity_records.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/text.h"

namespace noldarz {

namespace {

constexpr int kindCode = 0;
constexpr int embeddedCode = 101;
constexpr int groupCode = 102;
constexpr int firstForeignCode = 1000;

}  // namespace

double cadNumber(std::string_view text) {
  constexpr double most = 1e12;
  const ParsedNumber parsed = parseNumber(text);
  if (!parsed.isNumber() || !(std::fabs(parsed.value) <= most)) fail(FailureNumber::typeMismatch);
  return parsed.value;
}

int cadInteger(const DxfTag& tag) {
  const double value = cadNumber(tag);
  if (std::trunc(value) != value || std::fabs(value) > std::numeric_limits<int>::max())
    fail(FailureNumber::typeMismatch);
  return static_cast<int>(value);
}

const DxfTag* EntityRecord::find(int code) const {
  const auto found = std::find_if(tags.begin(), tags.end(), [code](const DxfTag& tag) { return tag.code == code; });
  return found == tags.end() ? nullptr : &*found;
}

double EntityRecord::number(int code) const {
  const DxfTag* tag = find(code);
  if (!tag) fail(FailureNumber::typeMismatch);
  return cadNumber(*tag);
}

double EntityRecord::number(int code, double otherwise) const { return find(code) ? number(code) : otherwise; }

int EntityRecord::integer(int code, int otherwise) const {
  const DxfTag* tag = find(code);
  return tag ? cadInteger(*tag) : otherwise;
}

CadPoint EntityRecord::point(int code) const { return {number(code), number(code + 10), number(code + 20, 0)}; }

CadPoint EntityRecord::point(int code, const CadPoint& otherwise) const { return find(code) ? point(code) : otherwise; }

std::string_view EntityRecord::word(int code) const {
  const DxfTag* tag = find(code);
  return tag ? tag->word() : std::string_view{};
}

EntityRecords::EntityRecords(std::string_view bytes, DxfRange range) : tags_(bytes, range.begin, range.end) {
  do more_ = tags_.next(ahead_);
  while (more_ && ahead_.code != kindCode);
}

bool EntityRecords::next(EntityRecord& record) {
  if (!more_) return false;
  record.kind = ahead_.word();
  record.tags.clear();
  bool inGroup = false;
  bool embedded = false;
  while ((more_ = tags_.next(ahead_)) && ahead_.code != kindCode) {
    if (ahead_.code == groupCode) inGroup = ahead_.word().starts_with('{');
    embedded = embedded || ahead_.code == embeddedCode;
    if (inGroup || embedded || ahead_.code == groupCode || ahead_.code >= firstForeignCode) continue;
    record.tags.push_back(ahead_);
  }
  return true;
}

}  // namespace noldarz
