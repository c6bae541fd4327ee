#include "platform/linux/x11/overlay/pixel_surface.h"

#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace rondora::x11 {
namespace {

/// A memory file of that many zero bytes; negative on failure.
int memoryDescriptor(std::size_t bytes) {
  const int descriptor = memfd_create("rondora-pixels", MFD_CLOEXEC);
  if (descriptor >= 0 && ftruncate(descriptor, static_cast<off_t>(bytes)) != 0) {
    close(descriptor);
    return -1;
  }
  return descriptor;
}

// Passing a descriptor to a server across the network would end the connection.
bool canPassDescriptors(xcb_connection_t* connection) {
  sockaddr_storage address{};
  socklen_t length = sizeof(address);
  const int socket = xcb_get_file_descriptor(connection);
  return getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length) == 0 && address.ss_family == AF_UNIX;
}

bool knowsDescriptors(xcb_connection_t* connection) {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_shm_id);
  if (extension == nullptr || !extension->present) return false;
  const Reply<xcb_shm_query_version_reply_t> version(
      xcb_shm_query_version_reply(connection, xcb_shm_query_version(connection), nullptr));
  return version && (version->major_version > 1 || version->minor_version >= 2);
}

}  // namespace

PixelTransport bestTransport(const X11Connection& connection) {
  xcb_connection_t* xcb = connection.get();
  if (!canPassDescriptors(xcb) || !knowsDescriptors(xcb)) return PixelTransport::requests;
  const int descriptor = memoryDescriptor(static_cast<std::size_t>(sysconf(_SC_PAGESIZE)));
  if (descriptor < 0) return PixelTransport::requests;
  const xcb_shm_seg_t segment = xcb_generate_id(xcb);
  const auto cookie = xcb_shm_attach_fd_checked(xcb, segment, descriptor, 0);  // takes the descriptor
  const Reply<xcb_generic_error_t> error(xcb_request_check(xcb, cookie));
  if (error) return PixelTransport::requests;
  xcb_shm_detach(xcb, segment);
  return PixelTransport::sharedMemory;
}

PixelSurface::PixelSurface(const X11Connection& connection, PixelTransport transport, int width, int height)
    : connection_(connection), width_(width), height_(height) {
  if (transport == PixelTransport::sharedMemory && share()) return;
  ownPixels_.resize(byteCount() / sizeof(std::uint32_t));
  pixels_ = ownPixels_.data();
}

PixelSurface::~PixelSurface() {
  if (segment_ == 0) return;
  xcb_shm_detach(connection_.get(), segment_);
  munmap(pixels_, byteCount());
}

std::size_t PixelSurface::byteCount() const {
  return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * sizeof(std::uint32_t);
}

bool PixelSurface::share() {
  const int descriptor = memoryDescriptor(byteCount());
  if (descriptor < 0) return false;
  void* memory = mmap(nullptr, byteCount(), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
  if (memory == MAP_FAILED) {
    close(descriptor);
    return false;
  }
  pixels_ = static_cast<std::uint32_t*>(memory);
  segment_ = xcb_generate_id(connection_.get());
  xcb_shm_attach_fd(connection_.get(), segment_, descriptor, 0);  // the server may write, too
  return true;
}

std::uint32_t PixelSurface::put(xcb_drawable_t target, xcb_gcontext_t context, std::uint8_t depth,
                                const PixelRect& rect) {
  return segment_ != 0 ? putBySegment(target, context, depth, rect) : putByRequests(target, context, depth, rect);
}

std::uint32_t PixelSurface::putBySegment(xcb_drawable_t target, xcb_gcontext_t context, std::uint8_t depth,
                                         const PixelRect& rect) {
  const auto x = static_cast<std::uint16_t>(rect.x);
  const auto y = static_cast<std::uint16_t>(rect.y);
  const auto cookie = xcb_shm_put_image(
      connection_.get(), target, context, static_cast<std::uint16_t>(width_), static_cast<std::uint16_t>(height_), x, y,
      static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height), static_cast<std::int16_t>(x),
      static_cast<std::int16_t>(y), depth, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment_, 0);
  return cookie.sequence;
}

// Each request carries as many rows as the server accepts.
std::uint32_t PixelSurface::putByRequests(xcb_drawable_t target, xcb_gcontext_t context, std::uint8_t depth,
                                          const PixelRect& rect) {
  constexpr std::size_t kHeaderBytes = 64;
  const std::size_t limit = std::size_t{4} * xcb_get_maximum_request_length(connection_.get()) - kHeaderBytes;
  const auto rowPixels = static_cast<std::size_t>(rect.width);
  const int rowsAtOnce = std::max(1, static_cast<int>(limit / (rowPixels * sizeof(std::uint32_t))));
  std::optional<std::uint32_t> first;
  for (int y = rect.y; y < rect.bottom(); y += rowsAtOnce) {
    const int count = std::min(rowsAtOnce, rect.bottom() - y);
    rows_.resize(rowPixels * static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) {
      const std::uint32_t* from = pixels_ + static_cast<std::ptrdiff_t>(y + row) * width_ + rect.x;
      std::copy_n(from, rowPixels, rows_.begin() + static_cast<std::ptrdiff_t>(rowPixels) * row);
    }
    const auto cookie = xcb_put_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, target, context,
                                      static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(count),
                                      static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(y), 0, depth,
                                      static_cast<std::uint32_t>(rows_.size() * sizeof(std::uint32_t)),
                                      reinterpret_cast<const std::uint8_t*>(rows_.data()));
    if (!first) first = cookie.sequence;
  }
  return first.value_or(0);
}

xcb_shm_get_image_cookie_t PixelSurface::request(xcb_drawable_t source, const PixelRect& part) const {
  return xcb_shm_get_image(connection_.get(), source, static_cast<std::int16_t>(part.x),
                           static_cast<std::int16_t>(part.y), static_cast<std::uint16_t>(width_),
                           static_cast<std::uint16_t>(height_), ~0U, XCB_IMAGE_FORMAT_Z_PIXMAP, segment_, 0);
}

void PixelSurface::findOpaqueParts(std::uint8_t leastAlpha, std::vector<xcb_rectangle_t>& parts) const {
  const std::uint32_t least = static_cast<std::uint32_t>(leastAlpha) << 24;
  const auto isSeen = [least](std::uint32_t pixel) { return pixel >= least; };
  parts.clear();
  for (int y = 0; y < height_; ++y) {
    const std::uint32_t* row = pixels_ + static_cast<std::ptrdiff_t>(y) * width_;
    const std::uint32_t* end = row + width_;
    for (const std::uint32_t* from = std::find_if(row, end, isSeen); from != end;) {
      const std::uint32_t* to = std::find_if_not(from, end, isSeen);
      parts.push_back({static_cast<std::int16_t>(from - row), static_cast<std::int16_t>(y),
                       static_cast<std::uint16_t>(to - from), 1});
      from = std::find_if(to, end, isSeen);
    }
  }
}

}  // namespace rondora::x11
