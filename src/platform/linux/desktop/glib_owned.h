#pragma once

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "base/owned.h"

namespace rondora::desktop {

template <class T>
using GOwned = UniqueCPtr<T, g_object_unref>;
using GText = UniqueCPtr<char, g_free>;
using GTextList = UniqueCPtr<char*, g_strfreev>;

}  // namespace rondora::desktop
