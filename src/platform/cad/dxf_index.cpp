#include "platform/cad/dxf_index.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <utility>

#include "platform/cad/dxf_tags.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr std::string_view byteOrderMark{"\xEF\xBB\xBF"};

constexpr std::array<std::string_view, 2> beforeTables{"HEADER", "CLASSES"};
constexpr std::array<std::string_view, 3> behindEntities{"OBJECTS", "THUMBNAILIMAGE", "ACDSDATA"};

constexpr std::array<std::pair<std::string_view, DxfVersion>, 9> versions{{{"AC1009", DxfVersion::R12},
                                                                           {"AC1012", DxfVersion::R13},
                                                                           {"AC1014", DxfVersion::R14},
                                                                           {"AC1015", DxfVersion::R2000},
                                                                           {"AC1018", DxfVersion::R2004},
                                                                           {"AC1021", DxfVersion::R2007},
                                                                           {"AC1024", DxfVersion::R2010},
                                                                           {"AC1027", DxfVersion::R2013},
                                                                           {"AC1032", DxfVersion::R2018}}};
/// Those of the years before R12 are read as it.
constexpr std::array<std::string_view, 10> olderVersions{
    "MC0.0", "AC1.2", "AC1.40", "AC1.50", "AC2.10", "AC2.21", "AC2.22", "AC1002", "AC1004", "AC1006"};

std::uint64_t handleNumber(std::string_view handle) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(handle.data(), handle.data() + handle.size(), number, 16);
  return error == std::errc{} && end == handle.data() + handle.size() ? number : 0;
}

/// The walk. Sections and records are told apart as they begin; a field is looked at where its record matters.
class Walk {
 public:
  explicit Walk(std::string_view text)
      : text_(text), tags_(text, text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0) {}

  DxfIndex index() {
    DxfTag tag;
    if (!tags_.next(tag) || !(tag.is(0, "SECTION") || tag.is(0, "EOF")))
      throw CadFailure("is no drawing. Choose an ASCII DXF.");
    do {
      if (tag.code != 0)
        field(tag);
      else if (tag.is(0, "EOF"))
        return finished(tag.begin);
      else
        begin(tag);
    } while (tags_.next(tag));
    cutOff(text_.size() - 1);
  }

 private:
  enum class Section : std::uint8_t { none, unnamed, other, header, tables, blocks, entities };
  enum class Record : std::uint8_t { other, tableHead, layer, dimensionStyle, blockRecord, block };

  struct NamedLayer {
    std::string_view name;
    DxfLayer layer;
  };
  struct NamedBlock {
    std::string_view name;
    DxfBlock block;
  };

  DxfPlaces& places() { return index_.places; }
  bool isOpenLayers() const { return table_ == "LAYER" && !index_.places.layersEnd; }

  [[noreturn]] void cutOff(std::size_t at) const {
    const std::string where =
        section_ == Section::none ? "before its EOF" : fmt::format("within the section {}", name_);
    throw CadFailure(fmt::format("is cut off at line {}, {}. Get a whole copy of it.", lineAt(text_, at), where));
  }

  void begin(const DxfTag& tag) {
    const std::string_view kind = tag.word();
    endRecord(tag.begin);
    if (kind == "SECTION") {
      if (section_ != Section::none) cutOff(tag.begin);
      section_ = Section::unnamed;
      name_ = {};
      sectionBegin_ = tag.begin;
    } else if (kind == "ENDSEC") {
      endSection(tag.begin);
    } else if (section_ == Section::tables) {
      beginInTables(kind, tag.begin);
    } else if (section_ == Section::blocks) {
      beginInBlocks(kind, tag.begin);
    }
  }

  void endRecord(std::size_t at) {
    if (record_ == Record::layer) {
      layers_.back().layer.tags.end = at;
      if (layers_.back().name.empty()) layers_.pop_back();
    }
    if (record_ == Record::blockRecord && places().modelSpace.empty() && lowerCase(recordName_) == "*model_space")
      places().modelSpace = handle_;
    if (record_ == Record::block) blocks_.back().block.entities = {at, at};
    record_ = Record::other;
    handle_ = {};
    recordName_ = {};
  }

  void endSection(std::size_t at) {
    if (section_ == Section::header) places().headerEnd = at;
    if (section_ == Section::tables) {
      endTable(at);
      if (!places().tablesEnd) places().tablesEnd = at;
    }
    if (section_ == Section::blocks) endBlock(at);
    if (section_ == Section::entities) {
      index_.entities.end = at;
      places().entitiesEnd = at;
    }
    section_ = Section::none;
  }

  void beginInTables(std::string_view kind, std::size_t at) {
    constexpr std::array<std::pair<std::string_view, Record>, 3> kinds{
        {{"LAYER", Record::layer}, {"DIMSTYLE", Record::dimensionStyle}, {"BLOCK_RECORD", Record::blockRecord}}};
    if (kind == "TABLE" || kind == "ENDTAB") endTable(at);
    if (kind == "TABLE") record_ = Record::tableHead;
    for (const auto& [word, record] : kinds)
      if (kind == word && table_ == word) record_ = record;
    if (record_ == Record::layer) layers_.push_back({{}, {.name = {}, .tags = {at, at}}});
  }

  void endTable(std::size_t at) {
    if (isOpenLayers()) places().layersEnd = at;
    table_ = {};
  }

  void beginInBlocks(std::string_view kind, std::size_t at) {
    if (kind != "BLOCK" && kind != "ENDBLK") return;
    endBlock(at);
    if (kind != "BLOCK") return;
    record_ = Record::block;
    inBlock_ = true;
    blocks_.emplace_back();
  }

  void endBlock(std::size_t at) {
    if (inBlock_) blocks_.back().block.entities.end = at;
    inBlock_ = false;
  }

  void field(const DxfTag& tag) {
    if (section_ == Section::unnamed && tag.code == 2) return nameSection(tag);
    if (section_ == Section::header) return headerField(tag);
    if (tag.code == (record_ == Record::dimensionStyle ? 105 : 5) && handle_.empty()) takeHandle(tag.word());
    switch (record_) {
      case Record::tableHead: return tableField(tag);
      case Record::layer: return layerField(tag);
      case Record::block: return blockField(tag);
      case Record::blockRecord:
        if (tag.code == 2) recordName_ = tag.word();
        return;
      default: return;
    }
  }

  void takeHandle(std::string_view handle) {
    handle_ = handle;
    mostHandle_ = std::max(mostHandle_, handleNumber(handle));
    if (section_ == Section::entities) places().handles = true;
    if (record_ == Record::layer) places().layerHandles = true;
  }

  void nameSection(const DxfTag& tag) {
    name_ = tag.word();
    section_ = Section::other;
    if (name_ == "HEADER") section_ = Section::header;
    if (name_ == "TABLES") section_ = Section::tables;
    if (name_ == "BLOCKS") section_ = Section::blocks;
    if (name_ == "ENTITIES" && !places().entitiesEnd) {
      section_ = Section::entities;
      index_.entities.begin = tag.end;
    }
    if (!newTables_ && !isOneOf(beforeTables, name_)) newTables_ = sectionBegin_;
    if (!newEntities_ && isOneOf(behindEntities, name_)) newEntities_ = sectionBegin_;
  }

  void headerField(const DxfTag& tag) {
    if (tag.code == 9) variable_ = tag.word();
    if (variable_ == "$ACADVER" && tag.code == 1) setVersion(tag.word());
    if (variable_ == "$DWGCODEPAGE" && tag.code == 3) codePage_ = tag.word();
    if (variable_ == "$HANDLING" && tag.code == 70 && tag.integer() != 0) places().handles = true;
    if (variable_ != "$HANDSEED" || tag.code != 5) return;
    places().handleSeed = wordOf(tag);
    seed_ = handleNumber(tag.word());
  }

  void setVersion(std::string_view word) {
    const auto* known = std::find_if(versions.begin(), versions.end(), [&](const auto& v) { return v.first == word; });
    if (known != versions.end())
      index_.version = known->second;
    else if (!isOneOf(olderVersions, word))
      throw CadFailure(
          fmt::format("is of the version {}, which is not known here. Save it as a DXF of 2018 or "
                      "older in your CAD.",
                      shownWord(word)));
  }

  void tableField(const DxfTag& tag) {
    if (tag.code == 2 && table_.empty()) table_ = tag.word();
    if (!isOpenLayers()) return;
    places().layerTable = handle_;
  }

  void layerField(const DxfTag& tag) {
    NamedLayer& named = layers_.back();
    if (tag.code == 2 && named.name.empty()) named.name = tag.word();
    if (tag.code == 70) {
      named.layer.frozen = (tag.integer() & 1) != 0;
      named.layer.locked = (tag.integer() & 4) != 0;
    }
    if (tag.code != 62) return;
    const int colour = tag.integer();
    named.layer.off = colour < 0;
    named.layer.colour = colour != 0 && colour >= -255 && colour <= 255 ? std::abs(colour) : 7;
  }

  void blockField(const DxfTag& tag) {
    NamedBlock& named = blocks_.back();
    if (tag.code == 2 && named.name.empty()) named.name = tag.word();
    if (tag.code == 10) named.block.base.x = tag.number();
    if (tag.code == 20) named.block.base.y = tag.number();
    if (tag.code == 30) named.block.base.z = tag.number();
  }

  DxfRange wordOf(const DxfTag& tag) const {
    const auto begin = static_cast<std::size_t>(tag.word().data() - text_.data());
    return {begin, begin + tag.word().size()};
  }

  DxfIndex finished(std::size_t eof) {
    if (section_ != Section::none) cutOff(eof);
    endRecord(eof);
    places().newTables = newTables_.value_or(eof);
    places().newEntities = newEntities_.value_or(eof);
    if (index_.version >= DxfVersion::R13) places().handles = places().layerHandles = true;
    const bool full = mostHandle_ == std::numeric_limits<std::uint64_t>::max();
    places().nextHandle = full ? 0 : std::max(mostHandle_ + 1, seed_);
    index_.inUtf8 = index_.version >= DxfVersion::R2007;
    index_.page =
        std::make_shared<const CodePage>(index_.inUtf8 || text_.starts_with(byteOrderMark) ? "UTF-8" : codePage_);
    nameThem();
    return std::move(index_);
  }

  /// The code page is known at the end.
  void nameThem() {
    index_.layers.reserve(layers_.size());
    for (auto& [name, layer] : layers_) {
      layer.name = index_.decoded(name);
      index_.layerByName.emplace(lowerCase(layer.name), index_.layers.size());
      index_.layers.push_back(std::move(layer));
    }
    for (auto& [name, block] : blocks_) {
      block.name = index_.decoded(name);
      std::string key = lowerCase(block.name);
      index_.blocks.emplace(std::move(key), std::move(block));
    }
  }

  std::string_view text_;
  DxfTags tags_;
  DxfIndex index_;
  Section section_ = Section::none;
  std::string_view name_;  // of the section
  std::size_t sectionBegin_ = 0;
  Record record_ = Record::other;
  std::string_view handle_;      // of the record
  std::string_view recordName_;  // of a block record
  std::string_view variable_;    // of the header
  std::string_view table_;
  bool inBlock_ = false;
  std::string_view codePage_;
  std::uint64_t mostHandle_ = 0;
  std::uint64_t seed_ = 0;
  std::optional<std::size_t> newTables_;
  std::optional<std::size_t> newEntities_;
  std::vector<NamedLayer> layers_;
  std::vector<NamedBlock> blocks_;
};

}  // namespace

DxfIndex indexOf(std::string_view text) { return Walk{text}.index(); }

}  // namespace noldarz
