#include "platform/linux/x11/overlay/screen_reader.h"

#include <xcb/randr.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <string_view>

namespace rondora::x11 {
namespace {

constexpr auto kUntilRepainted = std::chrono::milliseconds(120);

bool hasFamiliarPixels(const X11Connection& connection) {
  const xcb_setup_t* setup = xcb_get_setup(connection.get());
  const std::uint8_t order =
      std::endian::native == std::endian::little ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;
  const std::uint8_t depth = connection.screen().root_depth;
  if (setup->image_byte_order != order || depth != 24) return false;
  for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0; xcb_format_next(&format)) {
    if (format.data->depth == depth) return format.data->bits_per_pixel == 32;
  }
  return false;
}

/// XWayland names its monitors so; it leaves the root window black and keeps the windows elsewhere.
bool showsAnotherSystem(const X11Connection& connection) {
  xcb_connection_t* xcb = connection.get();
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(xcb, &xcb_randr_id);
  if (extension == nullptr || !extension->present) return false;
  const Reply<xcb_randr_get_monitors_reply_t> monitors(
      xcb_randr_get_monitors_reply(xcb, xcb_randr_get_monitors(xcb, connection.root(), 1), nullptr));
  if (!monitors) return false;
  const auto first = xcb_randr_get_monitors_monitors_iterator(monitors.get());
  if (first.rem == 0) return false;
  const Reply<xcb_get_atom_name_reply_t> name(
      xcb_get_atom_name_reply(xcb, xcb_get_atom_name(xcb, first.data->name), nullptr));
  if (!name) return false;
  const auto length = static_cast<std::size_t>(xcb_get_atom_name_name_length(name.get()));
  return std::string_view(xcb_get_atom_name_name(name.get()), length).starts_with("XWAYLAND");
}

}  // namespace

ScreenSnapshot::ScreenSnapshot(const X11Connection& connection, const PixelRect& area, const PixelRect& part)
    : connection_(connection), area_(area), part_(part) {
  received_ = std::make_unique<PixelSurface>(connection, PixelTransport::sharedMemory, part.width, part.height);
  cookie_ = received_->request(connection.root(), part);
}

ScreenSnapshot::~ScreenSnapshot() {
  if (isPending_) xcb_discard_reply(connection_.get(), cookie_.sequence);
}

std::optional<PixelBuffer> ScreenSnapshot::pixels() {
  if (isPending_ && !receive()) received_.reset();
  if (!extended_.empty()) return PixelBuffer{extended_.data(), area_.width, area_.height, area_.width};
  if (!received_) return std::nullopt;
  return received_->buffer();
}

/// Waits for the reply. Returns false when the server refused.
bool ScreenSnapshot::receive() {
  isPending_ = false;
  const Reply<xcb_shm_get_image_reply_t> reply(xcb_shm_get_image_reply(connection_.get(), cookie_, nullptr));
  if (!reply) return false;
  if (part_ != area_) extend();
  return true;
}

void ScreenSnapshot::extend() {
  const PixelBuffer part = received_->buffer();
  extended_.resize(static_cast<std::size_t>(area_.width) * static_cast<std::size_t>(area_.height));
  const int left = part_.x - area_.x;
  for (int y = 0; y < area_.height; ++y) {
    std::uint32_t* target = extended_.data() + static_cast<std::ptrdiff_t>(y) * area_.width;
    const int row = std::clamp(area_.y + y - part_.y, 0, part.height - 1);
    const std::uint32_t* source = part.pixels + static_cast<std::ptrdiff_t>(row) * part.stride;
    std::uint32_t* const end = std::copy_n(source, part.width, target + left);
    std::fill_n(target, left, *source);
    std::fill(end, target + area_.width, *(end - 1));
  }
  received_.reset();
}

std::unique_ptr<PixelSurface> ScreenSnapshot::releaseSurface() { return std::move(received_); }

ScreenReader::ScreenReader(X11Connection& connection, PixelTransport transport)
    : connection_(connection),
      transport_(transport),
      isReadable_(transport == PixelTransport::sharedMemory && hasFamiliarPixels(connection) &&
                  !showsAnotherSystem(connection)) {
  connection.selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  rootObserver_ = connection.addEventHandler([this](const xcb_generic_event_t& event) {
    const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
    if ((event.response_type & 0x7F) == XCB_CONFIGURE_NOTIFY && configured.window == connection_.root()) {
      root_ = {0, 0, configured.width, configured.height};
    }
    return false;
  });
  root_ = readRoot();
}

PixelRect ScreenReader::readRoot() const {
  const Reply<xcb_get_geometry_reply_t> root(
      xcb_get_geometry_reply(connection_.get(), xcb_get_geometry(connection_.get(), connection_.root()), nullptr));
  return root ? PixelRect{0, 0, root->width, root->height} : PixelRect{};
}

// The server refuses when the screen has just shrunk.
std::unique_ptr<ScreenSnapshot> ScreenReader::read(const PixelRect& area) const {
  if (!isReadable_ || std::chrono::steady_clock::now() - lastPanel_ < kUntilRepainted) return nullptr;
  const PixelRect part = intersection(area, root_);
  if (part.isEmpty()) return nullptr;
  return std::make_unique<ScreenSnapshot>(connection_, area, part);
}

}  // namespace rondora::x11
