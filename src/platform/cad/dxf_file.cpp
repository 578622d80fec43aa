#include "platform/cad/dxf_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/cad/dwg.h"
#include "platform/input_file.h"

namespace noldarz {

namespace {

constexpr std::size_t headSize = 4096;

/// Refuses what the first bytes show to be no ASCII DXF.
void checkHead(std::string_view head, const std::string& name) {
  if (head.empty()) throw CadFailure(fmt::format("{} is empty. Choose a drawing.", name));
  if (head.starts_with("AutoCAD Binary DXF"))
    throw CadFailure(fmt::format("{} is a binary DXF. Save it as an ASCII DXF in your CAD.", name));
  if (beginsAsDwg(head)) throw CadFailure(fmt::format("{} is a DWG. Save it as an ASCII DXF in your CAD.", name));
  std::string_view line = head.substr(0, head.find('\n'));
  line.remove_prefix(std::min(line.find_first_not_of("\xEF\xBB\xBF \t"), line.size()));
  line.remove_suffix(line.size() - 1 - std::min(line.find_last_not_of(" \t\r"), line.size() - 1));
  if (line.empty() || line.find_first_not_of("0123456789") != std::string_view::npos)
    throw CadFailure(fmt::format("{} is no drawing. Choose an ASCII DXF.", name));
}

void checkSize(std::uintmax_t size, const std::string& name) {
  if (size > DxfFile::mostBytes)
    throw CadFailure(fmt::format("{} is larger than 1 GiB, the most that is read here. Split it in your CAD.", name));
}

}  // namespace

DxfFile DxfFile::read(const std::filesystem::path& path) {
  const std::string name = path.string();
  InputFile file{path};
  const auto refuseUnread = [&] {
    if (file.error() == ENOENT || file.error() == ENOTDIR)
      throw CadFailure(fmt::format("There is no drawing {}. Check its name and folder.", name));
    throw CadFailure(fmt::format("{} can't be read: {}. Check the file and its permissions.",
                                 name,
                                 std::generic_category().message(file.error())));
  };
  if (file.error() != 0 && file.error() != ENXIO) refuseUnread();
  if (!file.isRegular())
    throw CadFailure(fmt::format("{} is a folder, a device or a pipe, not a drawing. Choose a file.", name));
  const auto head = file.bytes(headSize);
  if (!head) refuseUnread();
  checkHead(*head, name);
  checkSize(file.size(), name);
  auto all = file.bytes(mostBytes);
  if (!all) refuseUnread();
  return {std::move(*all), name};
}

DxfFile::DxfFile(std::string bytes, const std::string& name)
    : bytes_(std::make_shared<const std::string>(std::move(bytes))) {
  checkHead(*bytes_, name);
  checkSize(bytes_->size(), name);
  try {
    index_ = indexOf(*bytes_);
  } catch (const CadFailure& failure) {
    throw CadFailure(fmt::format("{} {}", name, failure.what()));
  }
}

std::string_view DxfFile::lineEnd() const {
  const std::size_t first = bytes().find('\n');
  return first > 0 && bytes()[first - 1] == '\r' ? "\r\n" : "\n";
}

const DxfLayer* DxfFile::layer(std::string_view name) const {
  const auto found = index_.layerByName.find(lowerCase(name));
  return found == index_.layerByName.end() ? nullptr : &index_.layers[found->second];
}

}  // namespace noldarz
