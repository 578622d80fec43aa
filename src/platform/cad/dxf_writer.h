// Writes a drawing with what was added to it: the bytes of its file as they are, new layers, entities and handles
// spliced in where they belong.
#pragma once

#include <deque>
#include <span>

#include "platform/cad/dxf_records.h"

namespace noldarz {

/// The pieces of the new file in their order. Without changes they are the bytes of the file. Pieces of the file point
/// into it.
class DxfPieces {
 public:
  /// Of two colours for a layer the last one counts. Fails with CadFailure when the drawing has no handles left.
  DxfPieces(const DxfFile& file, std::span<const ChangedLayer> layers, const std::deque<AddedEntity>& entities);
  DxfPieces(const DxfPieces&) = delete;
  DxfPieces& operator=(const DxfPieces&) = delete;
  ~DxfPieces() = default;

  /// Writes them as saveDrawing() does.
  void write(const std::filesystem::path& file) const;
  std::string joined() const;

 private:
  /// A stretch of the file and what stands there instead.
  struct Edit {
    DxfRange old;
    std::string text;
  };

  void insert(std::size_t at, std::string text) { edits_.push_back({{at, at}, std::move(text)}); }
  void recolour(const DxfFile& file, const DxfLayer& layer, int colour, DxfRecords& records);
  void addLayers(const DxfFile& file, std::span<const ChangedLayer> layers, DxfRecords& records);
  void addEntities(const DxfFile& file, const std::deque<AddedEntity>& entities, DxfRecords& records);
  void seedHandles(const DxfFile& file, DxfRecords& records);
  void assemble(std::string_view bytes);

  std::vector<Edit> edits_;
  std::vector<std::string_view> pieces_;
};

/// Writes a drawing as a file in one step: it is wholly old or wholly new. Its permissions stay; a link stays, and what
/// it leads to is replaced. Fails with CadFailure: a file that may not be written, a folder that doesn't take it, a
/// full disk.
void saveDrawing(const std::filesystem::path& file, std::span<const std::string_view> pieces);

}  // namespace noldarz
