#include "ui/painting/text_fitting.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/unicode.h"

namespace rondora {
namespace {

/// More than any label shows; limits the cost of a hostile title.
constexpr std::size_t kMaxCharacters = 1000;
constexpr double kMaxPointSize = 512;
constexpr double kTolerance = 0.5;  // points
constexpr std::string_view kWhiteSpace = " \t\n\r\f\v";
constexpr std::string_view kEllipsis = "\u2026";

using Lines = std::optional<std::vector<FittedLine>>;

std::vector<std::string_view> wordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  for (std::size_t start = text.find_first_not_of(kWhiteSpace); start != text.npos;) {
    const std::size_t end = std::min(text.find_first_of(kWhiteSpace, start), text.size());
    words.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(kWhiteSpace, end);
  }
  return words;
}

std::string joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : " ").append(word);
  return text;
}

std::string withoutSoftBreaks(std::string_view text) {
  std::string result(text);
  for (auto at = result.find(kSoftBreak); at != result.npos; at = result.find(kSoftBreak, at)) {
    result.erase(at, kSoftBreak.size());
  }
  return result;
}

std::string singleParagraph(std::string_view text) {
  std::vector<std::string> words;
  for (const std::string_view word : wordsOf(text.substr(0, 4 * kMaxCharacters))) words.emplace_back(word);
  return shortened(joined(words), kMaxCharacters);
}

bool startsRightToLeft(std::string_view text) {
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    if (hasRightToLeftLetter(character)) return true;
    const std::string key = searchKey(character);
    if (!key.empty() && (key.front() < '0' || key.front() > '9')) return false;
    text.remove_prefix(character.size());
  }
  return false;
}

/// The first `length` characters with an ellipsis, a third of them from the end if the middle is elided.
std::string elided(const std::vector<std::string_view>& characters, std::size_t length, TextElision elision) {
  const std::size_t tail = elision == TextElision::middle ? length / 3 : 0;
  std::string head;
  std::string end;
  for (std::size_t i = 0; i < length - tail; ++i) head += characters[i];
  for (std::size_t i = characters.size() - tail; i < characters.size(); ++i) end += characters[i];
  return std::string(trimmed(head)).append(kEllipsis).append(trimmed(end));
}

class Fitter {
 public:
  Fitter(const TextCommand& command, const TextMeter& meter)
      : command_(command),
        meter_(meter),
        lineHeight_(std::max(meter.lineHeight(), 1.0)),
        maximumLines_(static_cast<int>(std::clamp(command.rect.size.height / lineHeight_, 1.0,
                                                  static_cast<double>(std::max(command.maximumLines, 1))))) {}

  Lines fit(std::string_view text, bool mayBreakWords) const {
    const double top = (command_.rect.size.height - lineHeight_) / 2;
    const std::string softened = softenedFor(text, slotAt(top).size.width);
    const std::vector<std::size_t> breaks = meter_.breaks(softened);
    for (int count = 1; count <= maximumLines_; ++count) {
      if (Lines lines = fill(softened, breaks, count, mayBreakWords)) return lines;
    }
    return std::nullopt;
  }

  /// As much as fits.
  std::vector<FittedLine> elide(std::string_view text) const {
    std::vector<std::string_view> characters;
    for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(characters.back().size())) {
      characters.push_back(firstCharacter(rest));
    }
    std::size_t fitting = 0;
    std::size_t tooLong = characters.size();
    while (tooLong - fitting > 1) {
      const std::size_t middle = (fitting + tooLong) / 2;
      (fit(elided(characters, middle, command_.elision), true) ? fitting : tooLong) = middle;
    }
    return fit(elided(characters, fitting, command_.elision), true).value_or(std::vector<FittedLine>());
  }

 private:
  /// Where a line from `top`, counted from the rectangle's, may lie.
  Rect slotAt(double top) const {
    constexpr double kLeading = 0.15;  // of a line, above and below its letters
    const Rect& rect = command_.rect;
    const Rect whole{{rect.left(), rect.top() + top}, {rect.size.width, lineHeight_}};
    if (!command_.disc) return whole;
    const Disc& disc = *command_.disc;
    const double fromCenter = whole.top() - disc.center.y;
    const double upper = std::abs(fromCenter + kLeading * lineHeight_);
    const double lower = std::abs(fromCenter + (1 - kLeading) * lineHeight_);
    const double far = std::min(std::max(upper, lower), disc.radius);
    const double half = std::sqrt(disc.radius * disc.radius - far * far);
    const double left = std::max(whole.left(), disc.center.x - half);
    const double right = std::min(whole.right(), disc.center.x + half);
    return {{left, whole.top()}, {std::max(1.0, right - left), lineHeight_}};
  }

  /// Without the soft breaks of words that fit into a line anyway.
  std::string softenedFor(std::string_view text, double width) const {
    if (text.find(kSoftBreak) == text.npos) return std::string(text);
    std::vector<std::string> words;
    for (const std::string_view word : wordsOf(text)) {
      std::string whole = withoutSoftBreaks(word);
      words.push_back(meter_.width(whole) <= width ? std::move(whole) : std::string(word));
    }
    return joined(words);
  }

  Lines fill(const std::string& text, const std::vector<std::size_t>& breaks, int count, bool mayBreakWords) const {
    std::vector<FittedLine> lines;
    std::size_t start = 0;
    for (int i = 0; i < count && start < text.size(); ++i) {
      const Rect slot = slotAt((command_.rect.size.height - count * lineHeight_) / 2 + i * lineHeight_);
      std::size_t end = wordsEnd(text, breaks, start, slot.size.width);
      if (end == start && mayBreakWords) end = charactersEnd(text, start, slot.size.width);
      if (end == start) return std::nullopt;
      lines.push_back({shown(text, start, end), slot});
      start = end;
    }
    return start < text.size() ? std::nullopt : Lines(std::move(lines));
  }

  static std::string shown(const std::string& text, std::size_t start, std::size_t end) {
    return withoutSoftBreaks(trimmed(std::string_view(text).substr(start, end - start)));
  }

  bool isNarrow(const std::string& text, std::size_t start, std::size_t end, double width) const {
    return meter_.width(shown(text, start, end)) <= width + kTolerance;
  }

  std::size_t wordsEnd(const std::string& text, const std::vector<std::size_t>& breaks, std::size_t start,
                       double width) const {
    std::size_t best = start;
    for (auto end = std::upper_bound(breaks.begin(), breaks.end(), start); end != breaks.end(); ++end) {
      if (!isNarrow(text, start, *end, width)) break;
      best = *end;
    }
    return best;
  }

  std::size_t charactersEnd(const std::string& text, std::size_t start, double width) const {
    std::size_t best = start;
    while (best < text.size()) {
      const std::size_t end = best + firstCharacter(std::string_view(text).substr(best)).size();
      if (!isNarrow(text, start, end, width)) break;
      best = end;
    }
    return best;
  }

  const TextCommand& command_;
  const TextMeter& meter_;
  double lineHeight_;
  int maximumLines_;
};

}  // namespace

FittedText fitText(const TextCommand& command, const MakeTextMeter& makeMeter) {
  const std::string text = singleParagraph(command.text);
  FittedText result{.pointSize = 0, .lines = {}, .isRightToLeft = startsRightToLeft(text)};
  for (const double wanted : {command.pointSize, command.smallerPointSize}) {
    if (wanted <= 0 && result.pointSize > 0) break;
    result.pointSize = std::clamp(wanted, 1.0, kMaxPointSize);
    const auto meter = makeMeter(result.pointSize);
    if (Lines lines = Fitter(command, *meter).fit(text, false)) {
      result.lines = std::move(*lines);
      return result;
    }
  }
  const auto meter = makeMeter(result.pointSize);
  const Fitter fitter(command, *meter);
  Lines lines = fitter.fit(text, true);
  result.lines = lines ? std::move(*lines) : fitter.elide(text);
  return result;
}

}  // namespace rondora
