#include "desktop/x11_window.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace noldarz {

namespace {

constexpr std::uint32_t wholeProperty = 1U << 16;  // more 32-bit units than a title or a list of windows has

struct Free {
  void operator()(void* reply) const { std::free(reply); }  // NOLINT(*-no-malloc)
};
using PropertyReply = std::unique_ptr<xcb_get_property_reply_t, Free>;

xcb_atom_t atomOf(xcb_connection_t* connection, std::string_view name) {
  const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply{xcb_intern_atom_reply(connection, cookie, nullptr)};
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

PropertyReply propertyOf(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property) {
  const auto cookie = xcb_get_property(connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, wholeProperty);
  return PropertyReply{xcb_get_property_reply(connection, cookie, nullptr)};
}

std::vector<xcb_window_t> topLevelWindows(xcb_connection_t* connection, xcb_window_t root) {
  const auto list = propertyOf(connection, root, atomOf(connection, "_NET_CLIENT_LIST"));
  if (!list || list->format != 32) return {};
  const auto* windows = static_cast<const xcb_window_t*>(xcb_get_property_value(list.get()));
  return {windows, windows + list->value_len};
}

bool hasTitle(xcb_connection_t* connection, xcb_window_t window, std::string_view title) {
  for (const xcb_atom_t name : {atomOf(connection, "_NET_WM_NAME"), static_cast<xcb_atom_t>(XCB_ATOM_WM_NAME)}) {
    const auto text = propertyOf(connection, window, name);
    if (!text || text->format != 8) continue;
    const auto* begin = static_cast<const char*>(xcb_get_property_value(text.get()));
    if (std::string_view{begin, text->value_len} == title) return true;
  }
  return false;
}

void askToActivate(xcb_connection_t* connection, xcb_window_t root, xcb_window_t window) {
  constexpr std::uint32_t byUser = 2;  // the user has closed a window; an application alone may be refused
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = atomOf(connection, "_NET_ACTIVE_WINDOW");
  message.data.data32[0] = byUser;
  constexpr std::uint32_t toManager = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  // NOLINTNEXTLINE(*-reinterpret-cast): an event goes as its 32 bytes
  xcb_send_event(connection, 0, root, toManager, reinterpret_cast<const char*>(&message));
  xcb_flush(connection);
}

}  // namespace

std::uint64_t activateTopLevel(const std::string& title) {
  auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11 || QGuiApplication::platformName() != "xcb") return 0;  // other screens may offer one without a connection
  xcb_connection_t* connection = x11->connection();
  for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection)); screen.rem > 0; xcb_screen_next(&screen))
    for (const xcb_window_t window : topLevelWindows(connection, screen.data->root))
      if (hasTitle(connection, window, title)) {
        askToActivate(connection, screen.data->root, window);
        return window;
      }
  return 0;
}

}  // namespace noldarz
