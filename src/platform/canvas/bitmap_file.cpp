#include "platform/canvas/bitmap_file.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

#include "platform/canvas/metafile_records.h"

namespace noldarz {

namespace {

constexpr double mostScanPixels = 1e9;  // of a JPEG that comes in scans, each over the whole picture

std::size_t byteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }
std::size_t bigEndian(std::string_view bytes, std::size_t at, std::size_t width) {
  std::size_t value = 0;
  for (std::size_t i = 0; i < width; ++i) value = value << 8 | byteAt(bytes, at + i);
  return value;
}

/// What a file claims before anything is decoded.
struct Claim {
  double width = 0;
  double height = 0;
  std::string bytes;  ///< all that the picture needs; what comes after, as further frames, is left out
};

/// The end of the sub-blocks that begin there; nothing when they don't end.
std::optional<std::size_t> endOfBlocks(std::string_view gif, std::size_t at) {
  while (at < gif.size()) {
    const std::size_t size = byteAt(gif, at);
    at += 1 + size;
    if (size == 0) return at;
  }
  return {};
}

/// Up to the end of the first frame.
std::optional<Claim> claimOfGif(std::string_view gif) {
  constexpr std::size_t head = 13, descriptor = 10;
  const auto tableSize = [](std::size_t flags) { return (flags & 0x80) != 0 ? std::size_t{6} << (flags & 7) : 0; };
  if (gif.size() < head) return {};
  double width = littleEndian(gif, 6, 2);
  double height = littleEndian(gif, 8, 2);
  std::optional<std::size_t> at = head + tableSize(byteAt(gif, 10));
  while (at && *at + descriptor <= gif.size()) {
    const char kind = gif[*at];
    if (kind == '!') {  // an extension
      at = endOfBlocks(gif, *at + 2);
      continue;
    }
    if (kind != ',') return {};
    width = std::max<double>(width, littleEndian(gif, *at + 1, 2) + littleEndian(gif, *at + 5, 2));
    height = std::max<double>(height, littleEndian(gif, *at + 3, 2) + littleEndian(gif, *at + 7, 2));
    at = endOfBlocks(gif, *at + descriptor + tableSize(byteAt(gif, *at + 9)) + 1);
    if (!at) return {};
    return Claim{width, height, std::string{gif.substr(0, *at)} + ';'};
  }
  return {};
}

/// Up to the end-of-image mark.
std::optional<Claim> claimOfJpeg(std::string_view jpeg) {
  Claim claim;
  double scans = 0;
  for (std::size_t at = 2; at + 1 < jpeg.size();) {
    if (byteAt(jpeg, at) != 0xFF) {  // the bits of a scan
      at = std::min(jpeg.find('\xFF', at), jpeg.size());
      continue;
    }
    const std::size_t mark = byteAt(jpeg, at + 1);
    const bool bare = mark == 0 || mark == 1 || (mark >= 0xD0 && mark <= 0xD8) || mark == 0xFF;
    if (mark == 0xD9) {
      claim.bytes = jpeg.substr(0, at + 2);
      const bool within = claim.width * claim.height * scans <= std::max(mostScanPixels, claim.width * claim.height);
      return within && scans > 0 ? std::optional{claim} : std::nullopt;
    }
    at += mark == 0xFF ? 1 : 2;
    if (bare) continue;
    if (at + 8 > jpeg.size()) return {};
    const bool frame = mark >= 0xC0 && mark <= 0xCF && mark != 0xC4 && mark != 0xC8 && mark != 0xCC;
    if (frame) {
      claim.height = static_cast<double>(bigEndian(jpeg, at + 3, 2));
      claim.width = static_cast<double>(bigEndian(jpeg, at + 5, 2));
    }
    if (mark == 0xDA) ++scans;
    at += bigEndian(jpeg, at, 2);
  }
  return {};
}

/// Whether the runs of a compressed bitmap, of 8 or 4 bits a pixel, go on to their end mark.
bool endsItsRuns(std::string_view runs, std::uint32_t pixelBits) {
  constexpr std::size_t endMark = 1, jump = 2;
  for (std::size_t at = 0; at + 2 <= runs.size();) {
    const std::size_t count = byteAt(runs, at);
    const std::size_t code = byteAt(runs, at + 1);
    at += 2;
    if (count != 0 || code == 0) continue;
    if (code == endMark) return true;
    at += code == jump ? 2 : (code * pixelBits + 15) / 16 * 2;
  }
  return false;
}

/// A bitmap holds all its rows.
std::optional<Claim> claimOfBmp(std::string_view bmp) {
  constexpr std::size_t coreHead = 12, head = 40, longestHead = 124, fileHead = 14;
  if (bmp.size() < fileHead + coreHead) return {};
  const std::size_t told = littleEndian(bmp, fileHead, 4);
  const bool core = told == coreHead;
  if (!core && (told < head || told > longestHead || bmp.size() < fileHead + told)) return {};
  if (!core && littleEndian(bmp, 46, 4) > bmp.size() / 4) return {};  // colours in its palette
  const auto side = [&](std::size_t axis) {
    return core ? littleEndian(bmp, 18 + 2 * axis, 2)
                : std::abs(static_cast<double>(static_cast<std::int32_t>(littleEndian(bmp, 18 + 4 * axis, 4))));
  };
  Claim claim{side(0), side(1), std::string{bmp}};
  const double bits = littleEndian(bmp, core ? 24 : 28, 2);
  const std::uint32_t compression = core ? 0 : littleEndian(bmp, 30, 4);
  const double row = std::ceil(claim.width * bits / 32) * 4;
  const std::size_t start = littleEndian(bmp, 10, 4);
  const bool packed = compression == 1 || compression == 2;
  const bool whole = packed ? start < bmp.size() && endsItsRuns(bmp.substr(start), compression == 1 ? 8 : 4)
                            : static_cast<double>(start) + row * claim.height <= static_cast<double>(bmp.size());
  if (!whole) return {};
  return claim;
}

/// Up to the last chunk.
std::optional<Claim> claimOfPng(std::string_view png) {
  constexpr std::size_t signature = 8, around = 12;
  if (png.size() < 33) return {};
  Claim claim{static_cast<double>(bigEndian(png, 16, 4)), static_cast<double>(bigEndian(png, 20, 4)), {}};
  for (std::size_t at = signature; at + around <= png.size();) {
    const std::size_t next = at + around + bigEndian(png, at, 4);
    if (png.substr(at + 4, 4) == "IEND" && next <= png.size()) {
      claim.bytes = png.substr(0, next);
      return claim;
    }
    at = next;
  }
  return {};
}

/// A kind of picture: how it begins, what gdk-pixbuf calls it, how its claim is read.
struct Kind {
  std::string_view begin;
  const char* name;
  std::optional<Claim> (*claim)(std::string_view);
};
constexpr Kind kinds[]{{"GIF8", "gif", claimOfGif},
                       {"\xFF\xD8\xFF", "jpeg", claimOfJpeg},
                       {"BM", "bmp", claimOfBmp},
                       {"\x89PNG\r\n\x1A\n", "png", claimOfPng}};

struct Free {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using Loader = std::unique_ptr<GdkPixbufLoader, Free>;
using Pixels = std::unique_ptr<GdkPixbuf, Free>;

/// The size that the loader finds; more than the claim ends the loading.
void checkSize(GdkPixbufLoader* loader, int width, int height, gpointer claim) {
  const auto& told = *static_cast<const Claim*>(claim);
  if (width > told.width || height > told.height) gdk_pixbuf_loader_set_size(loader, 0, 0);
}

Pixels decoded(const char* kind, Claim& claim) {
  const Loader loader{gdk_pixbuf_loader_new_with_type(kind, nullptr)};
  if (!loader) return nullptr;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(checkSize), &claim);
  const auto* first = reinterpret_cast<const guchar*>(claim.bytes.data());
  const bool written = gdk_pixbuf_loader_write(loader.get(), first, claim.bytes.size(), nullptr) != FALSE;
  const bool closed = gdk_pixbuf_loader_close(loader.get(), nullptr) != FALSE;
  GdkPixbuf* pixels = written && closed ? gdk_pixbuf_loader_get_pixbuf(loader.get()) : nullptr;
  return Pixels{pixels == nullptr ? nullptr : gdk_pixbuf_apply_embedded_orientation(pixels)};
}

/// What a bitmap tells where gdk-pixbuf does not look; 0: nothing.
double dotsPerInchOf(std::string_view bmp, std::size_t axis) {
  if (!bmp.starts_with("BM") || littleEndian(bmp, 14, 4) < 40) return 0;
  return littleEndian(bmp, 38 + 4 * axis, 4) * 0.0254;  // from dots a metre
}

/// From the resolution of the file where that is the same both ways and such as people use.
std::optional<double> pixelSizeOf(GdkPixbuf* pixels, std::string_view bytes) {
  constexpr double fewest = 20, most = 4800;
  const auto dots = [&](const char* option, std::size_t axis) {
    const char* text = gdk_pixbuf_get_option(pixels, option);
    if (text == nullptr) return dotsPerInchOf(bytes, axis);
    double value = 0;
    std::from_chars(text, text + std::strlen(text), value);
    return value;
  };
  const double x = dots("x-dpi", 0);
  const double y = dots("y-dpi", 1);
  if (!(x >= fewest && x <= most && std::abs(x - y) <= 0.02 * x)) return {};
  return 25.4 / x;
}

std::uint32_t premultiplied(const guchar* pixel, bool transparency) {
  const std::uint32_t alpha = transparency ? pixel[3] : 255;
  const auto part = [&](int i) { return (pixel[i] * alpha + 127) / 255; };
  return alpha << 24 | part(0) << 16 | part(1) << 8 | part(2);
}

}  // namespace

std::shared_ptr<const Image> bitmapPicture(std::string_view bytes, double mostPixels) {
  const auto* kind = std::find_if(
      std::begin(kinds), std::end(kinds), [&](const Kind& known) { return bytes.starts_with(known.begin); });
  if (kind == std::end(kinds)) return nullptr;
  auto claim = kind->claim(bytes);
  if (!claim || !(claim->width >= 1 && claim->height >= 1 && claim->width * claim->height <= mostPixels))
    return nullptr;
  const Pixels pixels = decoded(kind->name, *claim);
  if (!pixels) return nullptr;
  auto image = std::make_shared<Image>();
  image->width = gdk_pixbuf_get_width(pixels.get());
  image->height = gdk_pixbuf_get_height(pixels.get());
  const int channels = gdk_pixbuf_get_n_channels(pixels.get());
  const bool transparency = gdk_pixbuf_get_has_alpha(pixels.get()) != FALSE;
  image->pixels.reserve(static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height));
  for (int y = 0; y < image->height; ++y) {
    const guchar* row =
        gdk_pixbuf_read_pixels(pixels.get()) + std::ptrdiff_t{y} * gdk_pixbuf_get_rowstride(pixels.get());
    for (int x = 0; x < image->width; ++x)
      image->pixels.push_back(premultiplied(row + std::ptrdiff_t{x} * channels, transparency));
  }
  const auto size = pixelSizeOf(pixels.get(), bytes);
  if (size) image->pixelSize = *size;
  return image;
}

}  // namespace noldarz
