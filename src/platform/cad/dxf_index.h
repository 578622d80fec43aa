// The index of a drawing: what matters for showing it and adding to it, found in one walk over its tags.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/cad/drawing.h"
#include "platform/cad/dxf_text.h"

namespace noldarz {

/// A stretch of bytes, from a tag to a tag.
struct DxfRange {
  std::size_t begin = 0;
  std::size_t end = 0;
};

struct DxfLayer {
  std::string name;  ///< UTF-8
  int colour = 7;    ///< index, above 0
  bool off = false;
  bool frozen = false;
  bool locked = false;
  DxfRange tags;
};

struct DxfBlock {
  std::string name;  ///< UTF-8
  CadPoint base;
  DxfRange entities;
};

/// The format of a drawing, by $ACADVER; values in the order of the years.
enum class DxfVersion : std::uint8_t { R12, R13, R14, R2000, R2004, R2007, R2010, R2013, R2018 };

/// Where in the bytes additions go, and the handles that they need.
struct DxfPlaces {
  std::optional<std::size_t> layersEnd;    ///< of the records of the table LAYER
  std::optional<std::size_t> tablesEnd;    ///< of the tables in their section
  std::size_t newTables = 0;               ///< where that section would begin
  std::optional<std::size_t> entitiesEnd;  ///< of the records of the section ENTITIES
  std::size_t newEntities = 0;             ///< where that section would begin
  std::optional<std::size_t> headerEnd;    ///< of the variables in the section HEADER
  DxfRange handleSeed;                     ///< the value of $HANDSEED; empty: not told
  std::uint64_t nextHandle = 1;            ///< above all handles, and not below $HANDSEED; 0: none is left
  bool handles = false;                    ///< whether entities have handles
  bool layerHandles = false;               ///< whether layers have them
  std::string_view layerTable;             ///< handle of the table LAYER; empty: none
  std::string_view modelSpace;             ///< handle of the block record *Model_Space; empty: none
};

/// Views lead into the text of the drawing.
struct DxfIndex {
  DxfVersion version = DxfVersion::R12;
  std::vector<DxfLayer> layers;
  std::unordered_map<std::string, std::size_t> layerByName;  ///< in lower case
  std::map<std::string, DxfBlock, std::less<>> blocks;       ///< by the name in lower case
  DxfRange entities;
  DxfPlaces places;
  std::shared_ptr<const CodePage> page;
  bool inUtf8 = false;  ///< by its version: what is new is written so

  std::string decoded(std::string_view value) const { return withoutEscapes(page->toUtf8(value)); }
};

/// Fails with CadFailure, the sentence of DxfFile behind the name of the file: cut off, damaged, no drawing, a version
/// that is not known.
DxfIndex indexOf(std::string_view text);

}  // namespace noldarz
