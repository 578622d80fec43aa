#include "platform/cad/dwg.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>
#include <vector>

#include "platform/cad/drawing.h"
#include "platform/cad/dxf_text.h"
#include "platform/input_file.h"
#include "platform/process.h"
#include "platform/scratch_folder.h"

namespace noldarz {

bool beginsAsDwg(std::string_view bytes) {
  constexpr std::string_view mark{"AC1"};
  constexpr std::size_t size = 6;
  return bytes.size() >= size && bytes.starts_with(mark) &&
         std::all_of(bytes.begin() + mark.size(), bytes.begin() + size, [](char c) { return c >= '0' && c <= '9'; });
}

bool isDwg(const std::filesystem::path& file) {
  InputFile input{file};
  const auto head = input.bytes(16);
  return head && beginsAsDwg(*head);
}

bool isDwgName(const std::filesystem::path& file) { return lowerCase(file.extension().string()) == ".dwg"; }

namespace {

/// Why it did not work, behind the name of the program; empty when it did.
std::string faultOf(const ProgramEnd& end, const std::filesystem::path& made) {
  std::error_code error;
  const std::string reason = end.lastLine.empty() ? "" : ": " + end.lastLine;
  if (end.startError != 0) return "can't be started: " + std::generic_category().message(end.startError);
  if (end.outOfTime) return "took too long and was ended" + reason;
  if (end.exitCode != 0) return fmt::format("failed with exit code {}{}", end.exitCode, reason);
  if (!std::filesystem::is_regular_file(made, error) || std::filesystem::is_empty(made, error))
    return "left no file" + reason;
  return {};
}

}  // namespace

void DwgConverter::convert(const std::filesystem::path& from, const std::filesystem::path& to,
                           const std::filesystem::path& named) const {
  const std::string shown = (named.empty() ? from : named).string();
  const bool toDxf = isDwg(from);
  std::filesystem::path in = std::filesystem::absolute(from);
  std::optional<ScratchFolder> folder;
  if (toDxf != isDwgName(from)) {  // a name that belies the content
    const std::filesystem::path link = folder.emplace().path() / (toDxf ? "drawing.dwg" : "drawing.dxf");
    std::filesystem::create_symlink(in, link);
    in = link;
  }
  const std::string out = std::filesystem::absolute(to).string();
  const bool own = program_.empty();
  const std::string program = own ? (toDxf ? "dwg2dxf" : "dxf2dwg") : program_;
  const std::vector<std::string> files{in.string(), out};
  const std::vector<std::string> options{"-y", "-o", out, in.string()};
  const ProgramEnd end = runAndWait(program, own ? options : files, patience_);
  if (own && end.startError == ENOENT)
    throw CadFailure(
        fmt::format("{} {} a DWG, and no converter is installed. Save it as a DXF{}, install dwg2dxf "
                    "and dxf2dwg, or name a converter in the setting noldarz / drawing / dwgConverter.",
                    shown,
                    toDxf ? "is" : "is to be",
                    toDxf ? " (ASCII) in your CAD" : ", under a name that ends in .dxf"));
  const std::string fault = faultOf(end, to);
  if (fault.empty()) return;
  std::error_code error;
  std::filesystem::remove(to, error);
  throw CadFailure(fmt::format("{} can't be converted. The converter {} {}.", shown, program, fault));
}

}  // namespace noldarz
