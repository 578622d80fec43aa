#include "platform/visible_text.h"

#include <fmt/format.h>
#include <unictype.h>
#include <unistr.h>

#include <algorithm>

namespace noldarz {

namespace {

/// Control and format characters, line and paragraph separators; the soft hyphen and what joins letters are among them.
bool isUnseen(ucs4_t character) {
  return uc_is_general_category_withtable(
      character, UC_CATEGORY_MASK_Cc | UC_CATEGORY_MASK_Cf | UC_CATEGORY_MASK_Zl | UC_CATEGORY_MASK_Zp);
}

/// The text with `shown(character, byte)` in place of each character that is not seen; `byte`: it is no UTF-8.
template <class Shown>
std::string replaceUnseen(std::string_view text, Shown&& shown) {
  std::string result;
  while (!text.empty()) {
    ucs4_t character = 0;
    const int length = u8_mbtoucr(&character, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    const std::size_t size = length > 0 ? static_cast<std::size_t>(length) : 1;
    if (length <= 0)
      result += shown(static_cast<unsigned char>(text.front()), true);
    else if (isUnseen(character))
      result += shown(character, false);
    else
      result += text.substr(0, size);
    text.remove_prefix(size);
  }
  return result;
}

bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7f'; });
}

}  // namespace

std::string visibleText(std::string_view text, std::string_view kept) {
  if (isPlain(text)) return std::string{text};
  return replaceUnseen(text, [&](ucs4_t character, bool byte) {
    const bool stays = !byte && character < 0x80 && kept.find(static_cast<char>(character)) != std::string_view::npos;
    if (stays) return std::string{static_cast<char>(character)};
    return byte ? fmt::format("\\x{{{:02X}}}", character) : fmt::format("\\u{{{:04X}}}", character);
  });
}

std::string escapedText(std::string_view quoted, Escapes escapes) {
  if (isPlain(quoted)) return std::string{quoted};
  return replaceUnseen(quoted, [&](ucs4_t character, bool byte) {
    if (byte || character < 0x7f) return std::string{static_cast<char>(character)};
    if (character <= 0xffff) return fmt::format("\\u{:04X}", character);
    if (escapes == Escapes::toml) return fmt::format("\\U{:08X}", character);
    const ucs4_t rest = character - 0x10000;
    return fmt::format("\\u{:04X}\\u{:04X}", 0xd800 + (rest >> 10U), 0xdc00 + (rest & 0x3ffU));
  });
}

bool isPlainText(std::string_view bytes) noexcept {
  return bytes.find('\0') == std::string_view::npos &&
         u8_check(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) == nullptr;
}

}  // namespace noldarz
