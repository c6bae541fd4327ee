#pragma once

#include <xcb/xcb.h>

#include <cstdlib>

#include "base/owned.h"

namespace rondora::live {

/// The reply to the request `xcb_NAME`, read with `xcb_NAME_reply`; null on an error.
template <class Cookie, class Answer, class... Wanted, class... Given>
UniqueCPtr<Answer, std::free> ask(xcb_connection_t* connection, Cookie (*request)(xcb_connection_t*, Wanted...),
                                  Answer* (*reply)(xcb_connection_t*, Cookie, xcb_generic_error_t**), Given... given) {
  return UniqueCPtr<Answer, std::free>(reply(connection, request(connection, static_cast<Wanted>(given)...), nullptr));
}

}  // namespace rondora::live
