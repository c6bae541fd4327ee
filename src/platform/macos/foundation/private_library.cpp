#include "platform/macos/foundation/private_library.h"

#include <dlfcn.h>

namespace rondora::macos {

PrivateLibrary::PrivateLibrary(const char* path) : handle_(dlopen(path, RTLD_LAZY)) {}

void* PrivateLibrary::symbol(const char* name) const { return handle_ == nullptr ? nullptr : dlsym(handle_, name); }

}  // namespace rondora::macos
