#pragma once

// The header of libxcb-xkb names fields `explicit`, which C++ reserves.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
