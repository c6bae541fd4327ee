#include "platform/linux/desktop/file_user_defaults.h"

#include <algorithm>

#include "base/program_identity.h"

namespace rondora::desktop {
namespace {

constexpr const char* kFileName = "defaults";

}  // namespace

FileUserDefaults::FileUserDefaults(FileSystem& files, Log& log)
    : files_(files), log_(log), folder_(files.applicationSupportFolder() / program_identity::kName), isRead_(read()) {}

bool FileUserDefaults::read() {
  const auto text = files_.read(folder_ / kFileName);
  if (!text && files_.exists(folder_ / kFileName)) {
    problem_ = files_.readError(folder_ / kFileName);
    return !problem_;
  }
  values_.merge(parse(text.value_or("")));
  return true;
}

FileUserDefaults::Values FileUserDefaults::parse(const std::string& text) {
  Values values;
  for (auto begin = text.begin(); begin != text.end();) {
    const auto end = std::find(begin, text.end(), '\n');
    const auto equals = std::find(begin, end, '=');
    if (equals != begin && equals != end) values[std::string(begin, equals)] = std::string(equals + 1, end);
    begin = end == text.end() ? end : end + 1;
  }
  return values;
}

bool FileUserDefaults::hasValue(std::string_view key) const { return values_.find(key) != values_.end(); }

void FileUserDefaults::setInteger(std::string_view key, std::int64_t value) { set(key, std::to_string(value)); }

bool FileUserDefaults::boolean(std::string_view key) const {
  const auto found = values_.find(key);
  return found != values_.end() && found->second == "true";
}

void FileUserDefaults::setBoolean(std::string_view key, bool value) { set(key, value ? "true" : "false"); }

std::optional<std::string> FileUserDefaults::string(std::string_view key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

void FileUserDefaults::setString(std::string_view key, std::string_view text) { set(key, std::string(text)); }

bool FileUserDefaults::isEmpty() const { return values_.empty() && isRead_; }

bool FileUserDefaults::importDomain(const Predecessor& predecessor) {
  Values imported = parse(files_.read(files_.applicationSupportFolder() / predecessor.folder / kFileName).value_or(""));
  if (imported.empty()) return false;
  values_ = std::move(imported);
  write();
  return true;
}

void FileUserDefaults::set(std::string_view key, std::string value) {
  const auto found = values_.find(key);
  if (found != values_.end() && found->second == value && !problem_) return;
  values_.insert_or_assign(std::string(key), std::move(value));
  write();
}

void FileUserDefaults::write() {
  isRead_ = isRead_ || read();
  if (isRead_) problem_ = replace();
  if (problem_) log_.error("failed to write user defaults: " + *problem_);
}

FileError FileUserDefaults::replace() {
  std::string text;
  for (const auto& [key, value] : values_) text.append(key).append("=").append(value).append("\n");
  if (auto error = files_.createFolder(folder_)) return error;
  return files_.replaceDurably(folder_ / kFileName, text);
}

}  // namespace rondora::desktop
