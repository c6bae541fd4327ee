#include "platform/linux/desktop/own_image.h"

#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace rondora::desktop {

// By its own path, from which the system takes the process name. A file that was replaced meanwhile has none.
void executeOwnImage(char** arguments) {
  constexpr const char* kImage = "/proc/self/exe";
  std::error_code error;
  const auto path = std::filesystem::read_symlink(kImage, error);
  if (!error) execv(path.c_str(), arguments);
  execv(kImage, arguments);
}

}  // namespace rondora::desktop
