#include "platform/canvas/metafile.h"

#include <cairo.h>
#include <libwmf/api.h>
#include <libwmf/ipa.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <vector>

#include "platform/canvas/metafile_painter.h"
#include "platform/canvas/metafile_records.h"

namespace noldarz {

namespace {

using Frame = MetafilePainter::Frame;
using Line = MetafilePainter::Line;

constexpr double pixelsPerInch = 96;

/// Inches of a unit, by mapping mode from 2 on: 0.1 mm, 0.01 mm, 0.01 inch, 0.001 inch, twips. Their y grows upwards.
constexpr double metricUnits[]{0.1 / 25.4, 0.01 / 25.4, 0.01, 0.001, 1.0 / 1440};

/// The memory that the player takes, of which there is an end.
struct PlayerMemory {
  static constexpr std::size_t most = std::size_t{128} << 20;
  static constexpr std::size_t head = alignof(std::max_align_t);  // before each block: its size

  static void* give(void* context, std::size_t size) { return resize(context, nullptr, size); }
  static void* resize(void* context, void* block, std::size_t size) {
    auto& memory = *static_cast<PlayerMemory*>(context);
    const std::size_t before = block == nullptr ? 0 : sizeOf(block);
    if (size > most || memory.used - before + size + head > most) return nullptr;
    void* whole = std::realloc(block == nullptr ? nullptr : static_cast<char*>(block) - head, size + head);
    if (whole == nullptr) return nullptr;
    memory.used += size + (block == nullptr ? head : 0) - before;
    if (block == nullptr) std::memset(whole, 0, size + head);
    std::memcpy(whole, &size, sizeof size);
    return static_cast<char*>(whole) + head;
  }
  static void take(void* context, void* block) {
    if (block == nullptr) return;
    static_cast<PlayerMemory*>(context)->used -= sizeOf(block) + head;
    std::free(static_cast<char*>(block) - head);
  }
  static std::size_t sizeOf(const void* block) {
    std::size_t size = 0;
    std::memcpy(&size, static_cast<const char*>(block) - head, sizeof size);
    return size;
  }

  std::size_t used = 0;
};

MetafilePainter& painterOf(wmfAPI* api) { return *static_cast<MetafilePainter*>(api->device_data); }

void connectShapes(wmfFunctionReference& device) {
  device.draw_pixel = [](wmfAPI* api, wmfDrawPixel_t* pixel) { painterOf(api).pixel(*pixel); };
  device.draw_arc = [](wmfAPI* api, wmfDrawArc_t* arc) { painterOf(api).stroke(*arc->dc, painterOf(api).arcOf(*arc)); };
  device.draw_ellipse = [](wmfAPI* api, wmfDrawArc_t* box) {
    painterOf(api).shape(*box->dc, painterOf(api).ellipseOf(*box));
  };
  device.draw_chord = [](wmfAPI* api, wmfDrawArc_t* arc) {
    Line outline = painterOf(api).arcOf(*arc);
    outline.push_back(outline.front());
    painterOf(api).shape(*arc->dc, outline);
  };
  device.draw_pie = [](wmfAPI* api, wmfDrawArc_t* arc) {
    Line outline = painterOf(api).arcOf(*arc);
    outline.insert(outline.end(), {painterOf(api).centreOf(*arc), outline.front()});
    painterOf(api).shape(*arc->dc, outline);
  };
  device.draw_line = [](wmfAPI* api, wmfDrawLine_t* line) {
    const wmfD_Coord ends[]{line->from, line->to};
    painterOf(api).stroke(*line->dc, painterOf(api).lineOf(ends, 2));
  };
  device.poly_line = [](wmfAPI* api, wmfPolyLine_t* line) {
    painterOf(api).stroke(*line->dc, painterOf(api).lineOf(line->pt, line->count));
  };
  device.draw_polypolygon = [](wmfAPI* api, wmfPolyPoly_t* polygons) {
    std::vector<Line> outlines;
    for (std::size_t i = 0; i < polygons->npoly; ++i) {
      Line outline = painterOf(api).lineOf(polygons->pt[i], polygons->count[i]);
      if (!outline.empty()) outline.push_back(outline.front());
      outlines.push_back(std::move(outline));
    }
    painterOf(api).fill(*polygons->dc, outlines);
    for (const Line& outline : outlines) painterOf(api).stroke(*polygons->dc, outline);
  };
  device.draw_polygon = [](wmfAPI* api, wmfPolyLine_t* polygon) {
    wmfPolyPoly_t one{polygon->dc, &polygon->pt, &polygon->count, 1};
    static_cast<wmfFunctionReference*>(api->function_reference)->draw_polypolygon(api, &one);
  };
  device.draw_rectangle = [](wmfAPI* api, wmfDrawRectangle_t* box) {
    painterOf(api).shape(*box->dc, painterOf(api).rectangleOf(box->TL, box->BR));
  };
}

/// Tells the player what to call.
void connect(wmfAPI* api) {
  auto& device = *static_cast<wmfFunctionReference*>(api->function_reference);
  device.device_open = device.device_close = device.device_begin = device.device_end = [](wmfAPI*) {};
  device.udata_init = device.udata_copy = device.udata_set = device.udata_free = [](wmfAPI*, wmfUserData_t*) {};
  device.flood_interior = device.flood_exterior = [](wmfAPI*, wmfFlood_t*) {};
  device.region_frame = [](wmfAPI*, wmfPolyRectangle_t*) {};
  device.rop_draw = [](wmfAPI* api2, wmfROP_Draw_t* area) { painterOf(api2).area(*area); };
  device.bmp_draw = [](wmfAPI* api2, wmfBMP_Draw_t* bitmap) { painterOf(api2).bitmap(*bitmap); };
  device.bmp_read = [](wmfAPI* api2, wmfBMP_Read_t* bitmap) { painterOf(api2).read(*bitmap); };
  device.bmp_free = [](wmfAPI* api2, wmfBMP* bitmap) { painterOf(api2).forget(*bitmap); };
  device.draw_text = [](wmfAPI* api2, wmfDrawText_t* text) { painterOf(api2).text(*text); };
  device.region_paint = [](wmfAPI* api2, wmfPolyRectangle_t* region) { painterOf(api2).region(*region); };
  device.region_clip = [](wmfAPI* api2, wmfPolyRectangle_t* region) { painterOf(api2).clip(*region); };
  connectShapes(device);
  static wmfFontData fonts{[](wmfAPI*, wmfFont*) {},  // the painter has its own; the player places by a rough width
                           [](wmfAPI*, wmfFont*, char* text) { return 0.5F * static_cast<float>(std::strlen(text)); },
                           nullptr};
  api->font_data = &fonts;
}

/// The window on the picture; `drawn` is what the metafile paints, for one that tells no window.
Frame frameOf(const MetafileRecords& records, const wmfD_Rect& drawn) {
  const auto mode = static_cast<std::size_t>(records.mapMode);
  const bool metric = mode >= 2 && mode < 2 + std::size(metricUnits);
  const bool told = records.extent[0] != 0 && records.extent[1] != 0 && (records.size[0] > 0 || !metric);
  const double scale = metric ? metricUnits[mode - 2] * pixelsPerInch : 1;
  Frame frame{drawn.TL.x, metric ? drawn.BR.y : drawn.TL.y, scale, metric ? -scale : scale};
  frame.width = (drawn.BR.x - drawn.TL.x) * scale;
  frame.height = (drawn.BR.y - drawn.TL.y) * scale;
  if (!told) return frame;
  const auto pixels = [&](std::size_t axis) {
    return records.size[axis] > 0 ? records.size[axis] * pixelsPerInch : std::abs(records.extent[axis]);
  };
  frame = {static_cast<double>(records.origin[0]), static_cast<double>(records.origin[1])};
  frame.width = pixels(0);
  frame.height = pixels(1);
  frame.xScale = frame.width / records.extent[0];
  frame.yScale = frame.height / records.extent[1];
  return frame;
}

}  // namespace

std::shared_ptr<const Image> metafilePicture(std::string_view bytes, double mostPixels) {
  auto records = metafileRecords(bytes);
  if (!records) return nullptr;
  PlayerMemory memory;
  MetafilePainter painter{mostPixels};
  wmfAPI_Options options{};
  options.context = &memory;
  options.malloc = PlayerMemory::give;
  options.realloc = PlayerMemory::resize;
  options.free = PlayerMemory::take;
  options.function = connect;
  wmfAPI* made = nullptr;
  const unsigned long flags = WMF_OPT_ALLOC | WMF_OPT_FUNCTION | WMF_OPT_NO_ERROR | WMF_OPT_NO_DEBUG;
  const bool ready = wmf_lite_create(&made, flags, &options) == wmf_E_None;
  const std::unique_ptr<wmfAPI, wmf_error_t (*)(wmfAPI*)> api{made, wmf_lite_destroy};
  if (!ready) return nullptr;
  api->device_data = &painter;
  wmf_status_function(api.get(), &painter, [](void* context, float) {
    return static_cast<MetafilePainter*>(context)->exhausted() ? 1 : 0;
  });
  wmfD_Rect drawn{};
  auto* first = reinterpret_cast<unsigned char*>(records->bytes.data());
  if (wmf_mem_open(api.get(), first, static_cast<long>(records->bytes.size())) != wmf_E_None) return nullptr;
  if (wmf_scan(api.get(), 0, &drawn) != wmf_E_None) return nullptr;
  const Frame frame = frameOf(*records, drawn);
  Image image;
  if (!(frame.width > 0 && frame.height > 0 && std::ceil(frame.width) * std::ceil(frame.height) <= mostPixels))
    return nullptr;
  if (std::max(frame.width, frame.height) > 32767) return nullptr;  // Cairo's
  image.width = static_cast<int>(std::ceil(frame.width));
  image.height = static_cast<int>(std::ceil(frame.height));
  image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  image.pixelSize = 25.4 / pixelsPerInch;
  const std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> surface{
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(image.pixels.data()),
                                          CAIRO_FORMAT_ARGB32,
                                          image.width,
                                          image.height,
                                          image.width * 4),
      cairo_surface_destroy};
  const std::unique_ptr<cairo_t, void (*)(cairo_t*)> page{cairo_create(surface.get()), cairo_destroy};
  painter.begin(page.get(), frame);
  const bool played = wmf_play(api.get(), 0, &drawn) == wmf_E_None && !painter.exhausted();
  if (!played || cairo_status(page.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  cairo_surface_flush(surface.get());
  return std::make_shared<Image>(std::move(image));
}

}  // namespace noldarz
