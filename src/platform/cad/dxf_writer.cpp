#include "platform/cad/dxf_writer.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>
#include <tuple>

#include "platform/durable_file.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

/// The file that is to be written, at the end of all links. Fails with CadFailure for what may not be replaced.
fs::path endOfLinks(fs::path file) {
  constexpr int mostLinks = 40;
  std::error_code error;
  for (int i = 0; i < mostLinks && fs::is_symlink(fs::symlink_status(file, error)); ++i)
    file = file.parent_path() / fs::read_symlink(file, error);
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) return file;
  if (!fs::is_regular_file(status))
    throw CadFailure(fmt::format("{} is a folder, a device or a pipe; save under another name.", file.string()));
  constexpr fs::perms writable = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  const bool mayWrite = (status.permissions() & writable) != fs::perms::none && access(file.c_str(), W_OK) == 0;
  if (!mayWrite) throw CadFailure(fmt::format("{} is read-only; save under another name.", file.string()));
  return file;
}

}  // namespace

void saveDrawing(const fs::path& file, std::span<const std::string_view> pieces) {
  try {
    replaceFile(endOfLinks(file), pieces);
  } catch (const fs::filesystem_error& error) {
    const bool full = error.code() == std::errc::no_space_on_device || error.code() == std::errc::file_too_large;
    throw CadFailure(fmt::format("{} can't be saved: {}. {} under another name.",
                                 file.string(),
                                 error.code().message(),
                                 full ? "Make room, or save" : "Save"));
  }
}

DxfPieces::DxfPieces(const DxfFile& file, std::span<const ChangedLayer> layers,
                     const std::deque<AddedEntity>& entities) {
  if (!layers.empty() || !entities.empty()) {
    DxfRecords records{file};
    addLayers(file, layers, records);
    addEntities(file, entities, records);
    if (records.gaveHandles()) seedHandles(file, records);
  }
  assemble(file.bytes());
}

void DxfPieces::seedHandles(const DxfFile& file, DxfRecords& records) {
  const DxfPlaces& places = file.places();
  const DxfRange seed = places.handleSeed;
  if (seed.begin != seed.end) {
    edits_.push_back({seed, records.nextHandle()});
  } else if (file.version() >= DxfVersion::R13 && places.headerEnd) {
    records.tag(9, "$HANDSEED");
    records.tag(5, records.nextHandle());
    insert(*places.headerEnd, records.taken());
  }
}

void DxfPieces::addLayers(const DxfFile& file, std::span<const ChangedLayer> layers, DxfRecords& records) {
  std::map<std::string, const ChangedLayer*> last;
  for (const ChangedLayer& layer : layers) last[lowerCase(layer.name)] = &layer;
  std::vector<const ChangedLayer*> added;
  for (const ChangedLayer& layer : layers) {
    if (last[lowerCase(layer.name)] != &layer) continue;
    if (const DxfLayer* old = file.layer(layer.name))
      recolour(file, *old, layer.colour, records);
    else
      added.push_back(&layer);
  }
  if (added.empty()) return;
  const DxfPlaces& places = file.places();
  if (!places.layersEnd && !places.tablesEnd) records.beginSection("TABLES");
  if (!places.layersEnd) records.beginLayerTable(added.size());
  for (const ChangedLayer* layer : added) records.add(*layer);
  if (!places.layersEnd) records.endTable();
  if (!places.layersEnd && !places.tablesEnd) records.endSection();
  insert(places.layersEnd.value_or(places.tablesEnd.value_or(places.newTables)), records.taken());
}

void DxfPieces::recolour(const DxfFile& file, const DxfLayer& layer, int colour, DxfRecords& records) {
  if (colour == layer.colour) return;
  constexpr int index = 62, trueColour = 420, colourName = 430;
  bool hasIndex = false;
  std::size_t behindName = layer.tags.end;
  DxfTags tags{file.bytes(), layer.tags.begin, layer.tags.end};
  for (DxfTag tag; tags.next(tag);) {
    if (tag.code == index) {
      const auto begin = static_cast<std::size_t>(tag.word().data() - file.bytes().data());
      edits_.push_back({{begin, begin + tag.word().size()}, std::to_string(layer.off ? -colour : colour)});
      hasIndex = true;
    }
    if (tag.code == 2) behindName = tag.end;
    if (tag.code == trueColour || tag.code == colourName) edits_.push_back({{tag.begin, tag.end}, {}});
  }
  if (hasIndex) return;
  records.tag(index, colour);
  insert(behindName, records.taken());
}

void DxfPieces::addEntities(const DxfFile& file, const std::deque<AddedEntity>& entities, DxfRecords& records) {
  if (entities.empty()) return;
  const DxfPlaces& places = file.places();
  if (!places.entitiesEnd) records.beginSection("ENTITIES");
  for (const AddedEntity& entity : entities) records.add(entity);
  if (!places.entitiesEnd) records.endSection();
  insert(places.entitiesEnd.value_or(places.newEntities), records.taken());
}

void DxfPieces::assemble(std::string_view bytes) {
  std::stable_sort(edits_.begin(), edits_.end(), [](const Edit& a, const Edit& b) {
    return std::tie(a.old.begin, a.old.end) < std::tie(b.old.begin, b.old.end);
  });
  std::size_t at = 0;
  const auto add = [&](std::string_view piece) {
    if (!piece.empty()) pieces_.push_back(piece);
  };
  for (const Edit& edit : edits_) {
    add(bytes.substr(at, edit.old.begin - at));
    add(edit.text);
    at = edit.old.end;
  }
  add(bytes.substr(at));
}

void DxfPieces::write(const fs::path& file) const { saveDrawing(file, pieces_); }

std::string DxfPieces::joined() const {
  std::string all;
  for (const auto piece : pieces_) all += piece;
  return all;
}

}  // namespace noldarz
