#include "platform/cad/dxf_text.h"

#include <fmt/format.h>
#include <iconv.h>

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "platform/text.h"

namespace noldarz {

namespace {

constexpr char32_t unknown = 0xFFFD;
constexpr char32_t firstSurrogate = 0xD800;
constexpr char32_t secondSurrogate = 0xDC00;
constexpr char32_t endOfSurrogates = 0xE000;
constexpr char32_t beyondPlane = 0x10000;

bool isAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
}

void append(std::string& text, char32_t c) {
  const auto add = [&](char32_t value) { text += static_cast<char>(value); };
  if (c < 0x80) return add(c);
  if (c < 0x800) {
    add(0xC0 | c >> 6U);
  } else if (c < beyondPlane) {
    add(0xE0 | c >> 12U);
    add(0x80 | (c >> 6U & 0x3F));
  } else {
    add(0xF0 | c >> 18U);
    add(0x80 | (c >> 12U & 0x3F));
    add(0x80 | (c >> 6U & 0x3F));
  }
  add(0x80 | (c & 0x3F));
}

/// The character at a place of a text that goes on there; goes behind it, behind one byte where it is none.
char32_t nextCharacter(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(at++);
  if (first < 0x80) return first;
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  constexpr std::array<char32_t, 4> least{0, 0x80, 0x800, beyondPlane};
  if (first < 0xC2 || first > 0xF4 || text.size() - at < more) return unknown;
  char32_t c = first & (0x3FU >> more);
  for (std::size_t i = at; i < at + more; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return unknown;
    c = c << 6U | (byte(i) & 0x3FU);
  }
  if (c < least[more] || c > 0x10FFFF || (c >= firstSurrogate && c < endOfSurrogates)) return unknown;
  at += more;
  return c;
}

/// The name of a code page as the converter knows it.
std::string converterName(std::string_view name) {
  std::string page = lowerCase(name);
  std::erase_if(page, [](char c) { return c == '_' || c == '-' || c == ' '; });
  for (const std::string_view family : {"ansi", "dos"})
    if (page.starts_with(family) && page.size() > family.size()) return "CP" + page.substr(family.size());
  if (page.starts_with("iso8859")) return "ISO-8859-" + page.substr(7);
  constexpr std::array<std::pair<std::string_view, const char*>, 5> others{
      {{"johab", "CP1361"}, {"big5", "CP950"}, {"ksc5601", "CP949"}, {"gb2312", "CP936"}, {"macroman", "MACINTOSH"}}};
  const auto* other =
      std::find_if(others.begin(), others.end(), [&](const auto& known) { return known.first == page; });
  return other != others.end() ? other->second : "CP1252";
}

class Converter {
 public:
  explicit Converter(const std::string& from) : handle_(iconv_open("UTF-32LE", from.c_str())) {
    if (!known()) handle_ = iconv_open("UTF-32LE", "CP1252");
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (known()) iconv_close(handle_);
  }
  /// One character; `unknown` for bytes that are none, or more than one.
  char32_t operator()(std::string bytes) const {
    if (!known()) return unknown;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char32_t c = 0;
    char* in = bytes.data();
    char* out = reinterpret_cast<char*>(&c);
    std::size_t inLeft = bytes.size();
    std::size_t outLeft = sizeof c;
    const std::size_t result = iconv(handle_, &in, &inLeft, &out, &outLeft);
    // Some pages keep a letter back that a mark may follow.
    if (result != static_cast<std::size_t>(-1) && outLeft > 0) iconv(handle_, nullptr, nullptr, &out, &outLeft);
    return result == static_cast<std::size_t>(-1) || outLeft > 0 ? unknown : c;
  }

 private:
  bool known() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }
  iconv_t handle_;
};

/// The four digits of an escape \U+XXXX at that place; -1 where there is none.
int escapeAt(std::string_view text, std::size_t at) {
  constexpr std::size_t digits = 4;
  if (text.size() - at < 3 + digits || text[at] != '\\' || (text[at + 1] | 0x20) != 'u' || text[at + 2] != '+')
    return -1;
  const char* const begin = text.data() + at + 3;
  int value = 0;
  const auto [end, error] = std::from_chars(begin, begin + digits, value, 16);
  return error == std::errc{} && end == begin + digits && value >= 0 ? value : -1;
}

constexpr std::size_t escapeSize = 7;

/// The character of the escape, or of the two of a surrogate pair, at that place; goes behind it.
char32_t escapedCharacter(std::string_view text, std::size_t& at, int value) {
  at += escapeSize;
  const auto first = static_cast<char32_t>(value);
  if (first < firstSurrogate || first >= endOfSurrogates) return first;
  const int next = first < secondSurrogate && at < text.size() ? escapeAt(text, at) : -1;
  const auto second = static_cast<char32_t>(next);
  if (next < 0 || second < secondSurrogate || second >= endOfSurrogates) return unknown;
  at += escapeSize;
  return beyondPlane + ((first - firstSurrogate) << 10U) + (second - secondSurrogate);
}

}  // namespace

CodePage::CodePage(std::string_view name) {
  const std::string page = lowerCase(name);
  utf8_ = page == "utf-8" || page == "utf8";
  if (utf8_) return;
  const std::string known = converterName(name);
  const Converter converter{known};
  const auto byte = [](std::size_t value) { return std::string(1, static_cast<char>(value)); };
  for (std::size_t i = 0; i < half; ++i) single_[i] = converter(byte(half + i));
  constexpr std::array<std::string_view, 5> withPairs{"CP932", "CP936", "CP949", "CP950", "CP1361"};
  if (!isOneOf(withPairs, known)) return;
  pairs_.assign(half * 256, unknown);
  for (std::size_t i = 0; i < half; ++i)
    for (std::size_t j = 0x30; single_[i] == unknown && j < 256; ++j)
      pairs_[i * 256 + j] = converter(byte(half + i) + byte(j));
}

std::string CodePage::toUtf8(std::string_view bytes) const {
  if (isAscii(bytes)) return std::string{bytes};
  std::string text;
  text.reserve(2 * bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const auto byte = static_cast<unsigned char>(bytes[at]);
    char32_t c = byte;
    if (utf8_) {
      c = nextCharacter(bytes, at);
    } else if (++at; byte >= half) {
      c = single_[byte - half];
      if (c == unknown && !pairs_.empty() && at < bytes.size())
        c = pairs_[(byte - half) * 256 + static_cast<unsigned char>(bytes[at])];
      if (c != single_[byte - half]) ++at;
    }
    append(text, c);
  }
  return text;
}

std::string withoutEscapes(std::string_view text) {
  if (text.find_first_of("\\^") == std::string_view::npos) return std::string{text};
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    if (const int value = escapeAt(text, at); value >= 0) {
      append(result, escapedCharacter(text, at, value));
      continue;
    }
    constexpr std::string_view marks{"JIM "};
    constexpr std::string_view meant{"\n\t\r^"};
    const auto mark = text[at] == '^' && at + 1 < text.size() ? marks.find(text[at + 1]) : std::string_view::npos;
    result += mark == std::string_view::npos ? text[at] : meant[mark];
    at += mark == std::string_view::npos ? 1 : 2;
  }
  return result;
}

std::string asDxfText(std::string_view text, bool inUtf8) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const bool likeAnEscape = escapeAt(text, at) >= 0;
    const char32_t c = nextCharacter(text, at);
    const bool breaks = c < ' ' || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
    if (breaks)
      result += ' ';
    else if (c == '^')
      result += "^ ";
    else if (likeAnEscape)
      result += "\\U+005C";
    else if (c < 0x80 || inUtf8)
      append(result, c);
    else if (c < beyondPlane)
      result += fmt::format("\\U+{:04X}", static_cast<unsigned>(c));
    else
      result += fmt::format("\\U+{:04X}\\U+{:04X}",
                            static_cast<unsigned>(firstSurrogate + ((c - beyondPlane) >> 10U)),
                            static_cast<unsigned>(secondSurrogate + (c & 0x3FFU)));
  }
  return result;
}

std::string lowerCase(std::string_view name) {
  std::string lower{name};
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lower;
}

}  // namespace noldarz
