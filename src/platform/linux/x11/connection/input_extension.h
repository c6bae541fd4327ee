#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace rondora::x11 {

/// Announces version 2.2 of the X Input extension: from 2.1 on raw events reach a client during another client's grab.
/// One round trip. Returns the extension's major opcode, 0 when the server lacks it.
std::uint8_t setUpInputExtension(xcb_connection_t* connection);

}  // namespace rondora::x11
