#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/virtual_time.h"
#include "require.h"
#include "storage/config_manager.h"
#include "storage/configuration_json.h"

// Every document that is read must be written and read back equal; so must a single item. A start of the program must
// leave a document that the next start does not change, and must lose nothing of an unreadable one.

namespace rondora {
namespace {

template <class T>
struct Coding {
  CodingResult<T> (*decode)(std::string_view, RandomSource&);
  CodingResult<std::string> (*encode)(const T&);
};

template <class T>
std::string written(const Coding<T>& coding, const T& value) {
  const CodingResult<std::string> text = coding.encode(value);
  require(std::holds_alternative<std::string>(text), "what is read can be written");
  return std::get<std::string>(text);
}

template <class T>
void requireFixedPoint(const Coding<T>& coding, const T& value, RandomSource& random) {
  const std::string text = written(coding, value);
  const CodingResult<T> again = coding.decode(text, random);
  require(std::holds_alternative<T>(again), "what is written can be read");
  require(std::get<T>(again) == value, "what is written is read back equal");
  require(written(coding, std::get<T>(again)) == text, "what is read back is written the same");
}

/// Items of the old single-menu form are repaired or refused only on the second read.
bool mayComeFromSingleMenuForm(const PieConfiguration& value) {
  return value.menus.size() == 1 && value.menus[0].name == "Main" && value.lastModified == kDistantPast;
}
bool mayComeFromSingleMenuForm(const PieMenuItem& /*value*/) { return false; }

template <class T>
void checkCoding(const Coding<T>& coding, std::string_view bytes) {
  SeededRandom random;
  CodingResult<T> value = coding.decode(bytes, random);
  if (std::holds_alternative<T>(value) && mayComeFromSingleMenuForm(std::get<T>(value))) {
    value = coding.decode(written(coding, std::get<T>(value)), random);
  }
  if (std::holds_alternative<T>(value)) requireFixedPoint(coding, std::get<T>(value), random);
}

/// The program's folder with the bytes as its document.
class Starts {
 public:
  explicit Starts(std::string_view bytes) { files_.put(kDocument, std::string(bytes)); }

  /// The document that a start leaves behind.
  std::string start() {
    const std::string before = files_.files[kDocument];
    log_.lines.clear();
    time_.advance(1);
    const ConfigManager manager({files_, time_, log_, random_, notifications_});
    require(log_.lines.empty() || isKeptAside(before), "a document that cannot be read is kept aside");
    return files_.files[kDocument];
  }

 private:
  static constexpr const char* kDocument = "/home/user/.config/Rondora/config.json";

  bool isKeptAside(const std::string& bytes) const {
    return std::any_of(files_.files.begin(), files_.files.end(),
                       [&](const auto& file) { return file.first != kDocument && file.second == bytes; });
  }

  FakeFileSystem files_;
  VirtualTime time_;
  FakeLog log_;
  SeededRandom random_;
  NotificationCenter notifications_;
};

void checkStarts(std::string_view bytes) {
  Starts starts(bytes);
  const std::string first = starts.start();
  const std::string second = starts.start();
  if (second != first) require(starts.start() == second, "a start leaves a repaired document as it is");
}

/// Most inputs are no documents; a start with each of them would repeat one slow test.
bool isWorthStarting(std::string_view bytes) {
  SeededRandom random;
  return bytes.size() % 32 == 0 || std::holds_alternative<PieConfiguration>(decodeConfiguration(bytes, random));
}

}  // namespace
}  // namespace rondora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  rondora::checkCoding<rondora::PieConfiguration>({rondora::decodeConfiguration, rondora::encodeConfiguration}, bytes);
  rondora::checkCoding<rondora::PieMenuItem>({rondora::decodeMenuItem, rondora::encodeMenuItem}, bytes);
  if (rondora::isWorthStarting(bytes)) rondora::checkStarts(bytes);
  return 0;
}
