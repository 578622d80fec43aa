// The records of a drawing: an entity with the tags that are its own. Values are read strictly: one that is missing or
// broken is a failure of the entity, which is then left out.
#pragma once

#include <string_view>
#include <vector>

#include "platform/cad/drawing.h"
#include "platform/cad/dxf_file.h"
#include "platform/cad/dxf_tags.h"

namespace noldarz {

/// Fails with typeMismatch for a text that is no number, and for one beyond 1e12, which no drawing needs.
double cadNumber(std::string_view text);
inline double cadNumber(const DxfTag& tag) { return cadNumber(tag.value); }
/// The same for a whole number. Fails with typeMismatch beyond the range of an int too.
int cadInteger(const DxfTag& tag);

struct EntityRecord {
  std::string_view kind;  ///< "LINE"
  /// Without those of other programs, of groups in braces and of objects that it embeds.
  std::vector<DxfTag> tags;

  /// The first tag of the code; null when there is none.
  const DxfTag* find(int code) const;
  // Of a code that must be there, or may be missing.
  double number(int code) const;
  double number(int code, double otherwise) const;
  int integer(int code, int otherwise) const;
  /// Codes `code`, `code` + 10 and, where it has one, `code` + 20.
  CadPoint point(int code) const;
  CadPoint point(int code, const CadPoint& otherwise) const;
  /// Without blanks around it; empty when there is none.
  std::string_view word(int code) const;
};

class EntityRecords {
 public:
  /// Those of the range, which begins and ends between records.
  EntityRecords(std::string_view bytes, DxfRange range);
  /// The next one; false at the end.
  bool next(EntityRecord& record);

 private:
  DxfTags tags_;
  DxfTag ahead_;  // the one that begins the next record
  bool more_ = false;
};

}  // namespace noldarz
