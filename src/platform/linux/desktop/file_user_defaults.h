#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "platform/file_system.h"
#include "platform/log.h"
#include "platform/user_defaults.h"

namespace rondora::desktop {

/// The settings in one small text file "defaults" beside the document: a line "key=value" each, where a value is
/// "true", "false" or a whole number. Keys that are not ours are kept. Every change is written at once.
class FileUserDefaults final : public UserDefaults {
 public:
  /// Reads "Rondora/defaults" in the folder for application data. `files` and `log` outlive this.
  FileUserDefaults(FileSystem& files, Log& log);

  bool hasValue(std::string_view key) const override;
  void setInteger(std::string_view key, std::int64_t value) override;
  bool boolean(std::string_view key) const override;
  void setBoolean(std::string_view key, bool value) override;
  bool isEmpty() const override;
  bool importPredecessorDomain() override;

 private:
  using Values = std::map<std::string, std::string, std::less<>>;

  Values load(const std::filesystem::path& path) const;
  void set(std::string_view key, std::string value);
  void write() const;

  FileSystem& files_;
  Log& log_;
  std::filesystem::path folder_;
  Values values_;
};

}  // namespace rondora::desktop
