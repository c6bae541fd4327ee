#include "platform/linux/x11/connection/input_extension.h"

#include <xcb/xinput.h>

#include "platform/linux/x11/connection/x11_connection.h"

namespace rondora::x11 {
namespace {

constexpr std::uint16_t kMajor = 2;
constexpr std::uint16_t kMinor = 2;

}  // namespace

std::uint8_t setUpInputExtension(xcb_connection_t* connection) {
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(connection, &xcb_input_id);
  if (extension == nullptr || !extension->present) return 0;
  const auto cookie = xcb_input_xi_query_version(connection, kMajor, kMinor);
  const Reply<xcb_input_xi_query_version_reply_t> reply(xcb_input_xi_query_version_reply(connection, cookie, nullptr));
  return reply ? extension->major_opcode : std::uint8_t{0};
}

}  // namespace rondora::x11
