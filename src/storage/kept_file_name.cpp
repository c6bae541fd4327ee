#include "storage/kept_file_name.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace rondora {
namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kReferenceDate{std::chrono::year{2001} / 1 / 1};
constexpr std::string_view kBrokenPrefix = "config.broken-";
constexpr std::string_view kEditedPrefix = "config.edited-";
constexpr std::string_view kSuffix = ".json";
constexpr std::string_view kStampForm = "dddd-dd-ddTdddddd";

/// Such as 2026-11-14T211548.
std::string stamp(WallTime time) {
  const auto moment = kReferenceDate + seconds(static_cast<std::int64_t>(std::floor(time)));
  const auto midnight = std::chrono::floor<days>(moment);
  const year_month_day date(midnight);
  const std::chrono::hh_mm_ss clock(moment - midnight);
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d%02d%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

int number(std::string_view digits) {
  int value = 0;
  for (const char digit : digits) value = value * 10 + (digit - '0');
  return value;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool hasForm(std::string_view text) {
  if (text.size() != kStampForm.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kStampForm[i] == 'd' ? !isDigit(text[i]) : text[i] != kStampForm[i]) return false;
  }
  return true;
}

std::optional<WallTime> timeOf(std::string_view stamp) {
  if (!hasForm(stamp)) return std::nullopt;
  const auto part = [stamp](std::size_t at, std::size_t length) { return number(stamp.substr(at, length)); };
  const year_month_day date(std::chrono::year(part(0, 4)), std::chrono::month(static_cast<unsigned>(part(5, 2))),
                            std::chrono::day(static_cast<unsigned>(part(8, 2))));
  if (!date.ok()) return std::nullopt;
  const auto moment = seconds(sys_days(date) - kReferenceDate) + std::chrono::hours(part(11, 2)) +
                      std::chrono::minutes(part(13, 2)) + seconds(part(15, 2));
  return static_cast<WallTime>(moment.count());
}

bool isNumber(std::string_view text) {
  if (text.empty()) return true;
  if (text.size() < 2 || text.front() != '-') return false;
  for (const char c : text.substr(1)) {
    if (!isDigit(c)) return false;
  }
  return true;
}

}  // namespace

std::string KeptFileName::text(int number) const {
  const bool isEdited = cause == KeptDocument::Cause::edited;
  std::string name(isEdited ? kEditedPrefix : kBrokenPrefix);
  name += stamp(time);
  if (number > 1) name += "-" + std::to_string(number);
  return name.append(kSuffix);
}

std::optional<KeptFileName> KeptFileName::parse(std::string_view name) {
  const bool isEdited = name.starts_with(kEditedPrefix);
  if ((!isEdited && !name.starts_with(kBrokenPrefix)) || !name.ends_with(kSuffix)) return std::nullopt;
  static_assert(kEditedPrefix.size() == kBrokenPrefix.size());
  name.remove_prefix(kEditedPrefix.size());
  name.remove_suffix(kSuffix.size());
  const auto time = timeOf(name.substr(0, kStampForm.size()));
  if (!time || !isNumber(name.substr(kStampForm.size()))) return std::nullopt;
  return KeptFileName{isEdited ? KeptDocument::Cause::edited : KeptDocument::Cause::unreadable, *time};
}

}  // namespace rondora
