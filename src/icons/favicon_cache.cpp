#include "icons/favicon_cache.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <utility>

#include "base/fnv.h"
#include "base/program_identity.h"

namespace rondora {
namespace {

constexpr double kMinute = 60;
constexpr double kDay = 24 * 60 * kMinute;
constexpr double kPictureLifetime = 30 * kDay;
constexpr double kNoneLifetime = 7 * kDay;
constexpr double kFirstRetry = 10 * kMinute;  // doubled each time
constexpr double kMaxRetry = kDay;
constexpr double kForgottenAfter = 90 * kDay;
constexpr std::size_t kMaxNameLength = 100;

std::string hexadecimal(std::uint64_t number) {
  std::string text(16, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number >>= 4)
    *digit = "0123456789abcdef"[number & 15];
  return text;
}

/// Readable for people; the hash makes the name unique.
std::string readableName(const std::string& host) {
  std::string name = host.substr(0, kMaxNameLength);
  std::replace_if(
      name.begin(), name.end(),
      [](char c) { return !((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '.' || c == '-'); }, '_');
  return name;
}

constexpr char kFoundLetter = 'f';
constexpr char kNoneLetter = 'n';
constexpr char kUnreachableLetter = 'u';

char letterOf(FaviconOutcome outcome) {
  switch (outcome) {
    case FaviconOutcome::found:
      return kFoundLetter;
    case FaviconOutcome::none:
      return kNoneLetter;
    case FaviconOutcome::unreachable:
      break;
  }
  return kUnreachableLetter;
}

}  // namespace

FaviconCache::FaviconCache(FileSystem& files, const Clock& clock, Log& log)
    : files_(files), clock_(clock), log_(log), folder_(files.cachesFolder() / program_identity::kName / "favicons") {}

std::filesystem::path FaviconCache::fileOf(const WebAddress& site) const {
  return folder_ / (readableName(site.host()) + "-" + hexadecimal(fnv1a(site.origin())) + ".png");
}

double FaviconCache::lifetime(const Record& record) {
  switch (record.outcome) {
    case FaviconOutcome::found:
      return kPictureLifetime;
    case FaviconOutcome::none:
      return kNoneLifetime;
    case FaviconOutcome::unreachable:
      break;
  }
  return std::min(kFirstRetry * std::exp2(std::clamp(record.failures - 1, 0, 16)), kMaxRetry);
}

double FaviconCache::secondsUntilDue(const std::filesystem::path& file) {
  load();
  const auto found = records_.find(file.filename().string());
  if (found == records_.end()) return 0;
  const Record& record = found->second;
  if (record.outcome == FaviconOutcome::found && !has(file)) return 0;
  const double age = clock_.now() - record.fetchedAt;
  if (!(age >= 0)) return 0;  // the clock was set back
  return std::max(lifetime(record) - age, 0.0);
}

bool FaviconCache::note(const std::filesystem::path& file, const FaviconResult& result) {
  load();
  Record& record = records_[file.filename().string()];
  record.fetchedAt = clock_.now();
  record.outcome = result.outcome;
  const bool isPicture = result.outcome == FaviconOutcome::found;
  if (isPicture) noteProblem(pictureProblem_, files_.replaceCached(file, result.picture));
  const bool isWritten = isPicture && !pictureProblem_;
  if (isPicture && !isWritten) record.outcome = FaviconOutcome::unreachable;
  record.failures = record.outcome == FaviconOutcome::unreachable ? record.failures + 1 : 0;
  isIndexOutdated_ = true;
  return isWritten;
}

void FaviconCache::save() {
  if (!isIndexOutdated_) return;
  noteProblem(indexProblem_, writeIndex());
  isIndexOutdated_ = indexProblem_.has_value();
}

void FaviconCache::noteProblem(FileError& last, FileError problem) {
  const FileError before = this->problem();
  last = std::move(problem);
  const FileError& present = this->problem();
  if (present && present != before) log_.error("failed to keep a web site's icon: " + *present);
}

/// One line per file: name, letter of the outcome, failures, time. Malformed lines are skipped.
void FaviconCache::load() {
  if (isLoaded_) return;
  isLoaded_ = true;
  files_.removeTemporaries(folder_);
  files_.removeTemporaries(folder_.parent_path());
  std::istringstream lines(files_.read(folder_ / "index").value_or(std::string()));
  lines.imbue(std::locale::classic());
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    fields.imbue(std::locale::classic());
    std::string name;
    char letter = 0;
    Record record;
    if (!(fields >> name >> letter >> record.failures >> record.fetchedAt)) continue;
    if (letter == kFoundLetter) record.outcome = FaviconOutcome::found;
    if (letter == kNoneLetter) record.outcome = FaviconOutcome::none;
    records_[name] = record;
  }
}

FileError FaviconCache::writeIndex() {
  std::ostringstream lines;
  lines.imbue(std::locale::classic());
  lines << std::fixed;
  lines.precision(0);
  std::erase_if(records_,
                [this](const auto& entry) { return clock_.now() - entry.second.fetchedAt > kForgottenAfter; });
  for (const auto& [name, record] : records_) {
    lines << name << ' ' << letterOf(record.outcome) << ' ' << record.failures << ' ' << record.fetchedAt << '\n';
  }
  return files_.replaceCached(folder_ / "index", lines.str());
}

}  // namespace rondora
