#include "platform/linux/evdev/input_trackpads.h"

#include <unistd.h>

#include <charconv>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace rondora::desktop {
namespace {

// linux/input-event-codes.h
constexpr unsigned kAbsoluteX = 0x00;
constexpr unsigned kToolPen = 0x140;
constexpr unsigned kToolFinger = 0x145;
constexpr unsigned kIsDirect = 0x01;

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
  return keys[kToolFinger] && !keys[kToolPen] && absolute[kAbsoluteX] && !properties[kIsDirect];
}

}  // namespace

TrackpadAccess InputTrackpads::access() const {
  auto result = TrackpadAccess::none;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(classFolder_, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.starts_with("event") || !isTrackpad(entry->path() / "device")) continue;
    if (::access((deviceFolder_ / name).c_str(), R_OK) != 0) return TrackpadAccess::unreadable;
    result = TrackpadAccess::readable;
  }
  return result;
}

}  // namespace rondora::desktop
