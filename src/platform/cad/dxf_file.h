// A drawing in the ASCII drawing exchange format, R12 to 2018, as bytes and an index of what matters for adding to it:
// layers, blocks, where entities lie, handles. All bytes stay; what is added is spliced in (dxf_writer.h).
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cad/dxf_index.h"
#include "platform/cad/dxf_tags.h"

namespace noldarz {

class DxfFile {
 public:
  /// Reads a file. Fails with CadFailure, a sentence that names the file and what is wrong with it: none, empty, larger
  /// than mostBytes, binary, truncated, no drawing, a version that is not known.
  static DxfFile read(const std::filesystem::path& file);
  /// The same of bytes, which are named so in a failure.
  DxfFile(std::string bytes, const std::string& name);

  static constexpr std::size_t mostBytes = std::size_t{1} << 30U;

  std::string_view bytes() const { return *bytes_; }
  DxfVersion version() const { return index_.version; }
  const std::vector<DxfLayer>& layers() const { return index_.layers; }
  /// By the name in lower case (lowerCase() of dxf_text.h).
  const std::map<std::string, DxfBlock, std::less<>>& blocks() const { return index_.blocks; }
  /// The records of the section ENTITIES; empty where there is none.
  DxfRange entities() const { return index_.entities; }
  /// A layer by its name, whatever the case; null when there is none.
  const DxfLayer* layer(std::string_view name) const;
  /// A text of the drawing, in UTF-8: from its code page, with \U+XXXX and ^J decoded.
  std::string decoded(std::string_view value) const { return index_.decoded(value); }
  bool isInUtf8() const { return index_.inUtf8; }
  /// As its first line has it.
  std::string_view lineEnd() const;
  const DxfPlaces& places() const { return index_.places; }

 private:
  std::shared_ptr<const std::string> bytes_;  // a copy shares them, so that views into them stay
  DxfIndex index_;
};

}  // namespace noldarz
