#include "platform/linux/evdev/trackpad_nodes.h"

#include <linux/input-event-codes.h>
#include <unistd.h>

#include <charconv>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace rondora::desktop {
namespace {

/// A sysfs bitmap: hexadecimal words as wide as the kernel's long, the most significant first.
class Bitmap {
 public:
  explicit Bitmap(const std::filesystem::path& file) {
    std::ifstream stream(file);
    for (std::string word; stream >> word;) {
      unsigned long value = 0;
      std::from_chars(word.data(), word.data() + word.size(), value, 16);
      words_.push_back(value);
    }
  }

  bool operator[](unsigned bit) const {
    constexpr unsigned kWordBits = 8 * sizeof(unsigned long);
    const std::size_t word = bit / kWordBits;
    return word < words_.size() && (words_[words_.size() - 1 - word] >> (bit % kWordBits) & 1) != 0;
  }

 private:
  std::vector<unsigned long> words_;
};

/// Touch screens report fingers too but are direct devices; tablets have a pen.
bool isTrackpad(const std::filesystem::path& device) {
  const Bitmap keys(device / "capabilities" / "key");
  const Bitmap absolute(device / "capabilities" / "abs");
  const Bitmap properties(device / "properties");
  return keys[BTN_TOOL_FINGER] && !keys[BTN_TOOL_PEN] && absolute[ABS_X] && !properties[INPUT_PROP_DIRECT];
}

/// N of "eventN"; other names are the same devices in older protocols.
std::optional<unsigned> eventNumber(std::string_view name) {
  constexpr std::string_view kPrefix = "event";
  if (!name.starts_with(kPrefix)) return std::nullopt;
  name.remove_prefix(kPrefix.size());
  unsigned number = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
  if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
  return number;
}

}  // namespace

std::vector<TrackpadNode> findTrackpads(const InputFolders& folders) {
  std::vector<TrackpadNode> found;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folders.classes, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    const auto number = eventNumber(name);
    if (!number || !isTrackpad(entry->path() / "device")) continue;
    const auto node = folders.nodes / name;
    found.push_back({*number, node, ::access(node.c_str(), R_OK) == 0});
  }
  return found;
}

}  // namespace rondora::desktop
