#include "desktop/key_logger.h"

#include <poll.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace rondora::live {

KeyLogger::KeyLogger(const std::string& display, const WindowLook& look)
    : client_(display), window_(xcb_generate_id(client_.get())) {
  constexpr std::uint32_t kWhiteWithKeys[] = {0xFFFFFF, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
  xcb_create_window(client_.get(), XCB_COPY_FROM_PARENT, window_, client_.root(), 20, 20,
                    static_cast<std::uint16_t>(look.width), static_cast<std::uint16_t>(look.height), 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK,
                    kWhiteWithKeys);
  describe(look);
  xcb_map_window(client_.get(), window_);
  take();
}

void KeyLogger::describe(const WindowLook& look) {
  const auto setText = [this](xcb_atom_t name, const std::string& text) {
    xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, window_, name, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
  };
  const std::string& applicationClass = look.applicationClass.empty() ? look.title : look.applicationClass;
  setText(XCB_ATOM_WM_NAME, look.title);
  setText(XCB_ATOM_WM_CLASS, applicationClass + '\0' + applicationClass + '\0');
  if (look.isFixed) {
    constexpr std::uint32_t kMinimumAndMaximumSize = 16 | 32;  // ICCCM 4.1.2.3
    const auto width = static_cast<std::uint32_t>(look.width), height = static_cast<std::uint32_t>(look.height);
    std::vector<std::uint32_t> hints{kMinimumAndMaximumSize, 0, 0, 0, 0, width, height, width, height};
    hints.resize(18);
    setValues(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, hints);
  }
  if (look.isTransparent) setValues(client_.atom("_NET_WM_WINDOW_OPACITY"), XCB_ATOM_CARDINAL, {0});
  if (!look.icon.empty()) setValues(client_.atom("_NET_WM_ICON"), XCB_ATOM_CARDINAL, look.icon);
  if (!look.type.empty()) setValues(client_.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, {client_.atom(look.type)});
}

void KeyLogger::setValues(xcb_atom_t name, xcb_atom_t type, const std::vector<std::uint32_t>& values) const {
  xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, window_, name, type, 32,
                      static_cast<std::uint32_t>(values.size()), values.data());
}

void KeyLogger::takeFocus() {
  xcb_set_input_focus(client_.get(), XCB_INPUT_FOCUS_POINTER_ROOT, window_, XCB_CURRENT_TIME);
  take();
}

std::vector<LoggedKey> KeyLogger::take() {
  client_.sync();
  readEvents();
  return std::exchange(keys_, {});
}

std::vector<LoggedKey> KeyLogger::takeUntilReleaseOf(std::uint8_t code,
                                                     std::chrono::steady_clock::time_point deadline) {
  const auto isThere = [&] {
    return std::any_of(keys_.begin(), keys_.end(), [&](const auto& key) { return key.code == code && !key.isPress; });
  };
  for (readEvents(); !isThere() && std::chrono::steady_clock::now() < deadline; readEvents()) {
    pollfd waiting{xcb_get_file_descriptor(client_.get()), POLLIN, 0};
    poll(&waiting, 1, 100);
  }
  return std::exchange(keys_, {});
}

void KeyLogger::readEvents() {
  while (const UniqueCPtr<xcb_generic_event_t, std::free> event{xcb_poll_for_event(client_.get())}) {
    const int type = event->response_type & 0x7F;
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE) continue;
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(*event);
    keys_.push_back({key.detail, type == XCB_KEY_PRESS, key.state, std::chrono::steady_clock::now()});
  }
}

}  // namespace rondora::live
