#include "platform/macos/conversions/file_extensions.h"

namespace rondora::macos {

std::vector<std::string> extensionsOf(const std::vector<FileKind>& kinds) {
  std::vector<std::string> extensions;
  for (const FileKind& kind : kinds) {
    for (const std::string& pattern : kind.patterns) {
      const auto dot = pattern.rfind('.');
      if (dot == std::string::npos) return {};
      extensions.push_back(pattern.substr(dot + 1));
    }
  }
  return extensions;
}

}  // namespace rondora::macos
