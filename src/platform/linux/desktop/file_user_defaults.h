#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "platform/file_system.h"
#include "platform/log.h"
#include "platform/user_defaults.h"

namespace rondora::desktop {

/// Settings in the text file "defaults" beside the document, one "key=value" per line; a value is "true", "false", an
/// integer or a text. Unknown keys are kept. Every change is written at once. A file that cannot be read is not written
/// either; each change tries to read it again.
class FileUserDefaults final : public UserDefaults {
 public:
  /// Reads "Rondora/defaults" in the folder for application data. Arguments must outlive the object.
  FileUserDefaults(FileSystem& files, Log& log);

  bool hasValue(std::string_view key) const override;
  void setInteger(std::string_view key, std::int64_t value) override;
  bool boolean(std::string_view key) const override;
  void setBoolean(std::string_view key, bool value) override;
  std::optional<std::string> string(std::string_view key) const override;
  void setString(std::string_view key, std::string_view text) override;
  std::optional<std::string> problem() const override { return problem_; }
  bool isEmpty() const override;
  bool importDomain(const Predecessor& predecessor) override;

 private:
  using Values = std::map<std::string, std::string, std::less<>>;

  static Values parse(const std::string& text);
  /// Adds the file's values to those that were set before. False when the file cannot be read.
  bool read();
  void set(std::string_view key, std::string value);
  void write();
  FileError replace();

  FileSystem& files_;
  Log& log_;
  std::filesystem::path folder_;
  Values values_;
  FileError problem_;
  bool isRead_ = false;
};

}  // namespace rondora::desktop
