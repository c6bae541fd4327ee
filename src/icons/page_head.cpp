#include "icons/page_head.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "base/unicode.h"

namespace rondora {
namespace {

/// Sides assumed for links that state none.
constexpr int kIconSide = 32;
constexpr int kTouchIconSide = 180;
constexpr int kMaxSide = 1024;
constexpr std::size_t kMaxLinks = 16;
constexpr std::size_t kMaxNameLength = 16;
constexpr std::size_t kMaxValueLength = 4096;
constexpr std::string_view kBlanks = " \t\r\n\f";

/// Reads a text from front to back and counts the bytes that it examines. No operation examines more than it takes,
/// except for one byte or for a prefix of fixed length: so the count stays proportional to the text.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : rest_(text) {}

  std::size_t bytesExamined() const { return bytesExamined_; }
  bool isAtEnd() const { return rest_.empty(); }
  bool isAt(std::string_view prefix) {
    bytesExamined_ += prefix.size();
    return rest_.starts_with(prefix);
  }
  bool isAtIgnoringCase(std::string_view lowered) {
    bytesExamined_ += lowered.size();
    return lowerCased(rest_.substr(0, lowered.size())) == lowered;
  }

  void skip(std::string_view letters) { advance(std::min(rest_.find_first_not_of(letters), rest_.size())); }
  void skipOne() { advance(std::min<std::size_t>(1, rest_.size())); }
  /// The text before the first of the letters.
  std::string_view take(std::string_view ends) { return advance(std::min(rest_.find_first_of(ends), rest_.size())); }
  /// Like `take`, but no more than that many bytes.
  std::string_view take(std::string_view ends, std::size_t maxLength) {
    const std::string_view near = rest_.substr(0, maxLength);
    return advance(std::min(near.find_first_of(ends), near.size()));
  }
  /// False at the end of the text, when the mark does not follow.
  bool skipPast(std::string_view mark) {
    const auto found = rest_.find(mark);
    advance(found == rest_.npos ? rest_.size() : found + mark.size());
    return found != rest_.npos;
  }

 private:
  std::string_view advance(std::size_t length) {
    bytesExamined_ += length + 1;
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return taken;
  }

  std::string_view rest_;
  std::size_t bytesExamined_ = 0;
};

/// Decodes "&amp;", the only character reference of use in an address.
std::string decodedValue(std::string_view text) {
  constexpr std::string_view kAmpersand = "&amp;";
  text = text.substr(0, kMaxValueLength);
  std::string result;
  while (!text.empty()) {
    const auto end = std::min(text.find(kAmpersand), text.size());
    result.append(text.substr(0, end));
    text.remove_prefix(end);
    if (text.empty()) break;
    result += '&';
    text.remove_prefix(kAmpersand.size());
  }
  return result;
}

/// Reads the attributes between a tag's name and its ">".
class Attributes {
 public:
  explicit Attributes(Cursor& cursor) : cursor_(cursor) {}

  /// False at the end of the tag.
  bool next() {
    cursor_.skip(" \t\r\n\f/");
    if (cursor_.isAtEnd() || cursor_.isAt(">")) return false;
    name = lowerCased(cursor_.take(" \t\r\n\f/>=").substr(0, kMaxNameLength));
    if (name.empty()) cursor_.skipOne();  // a stray "="
    value.clear();
    cursor_.skip(kBlanks);
    if (!cursor_.isAt("=")) return true;
    cursor_.skipOne();
    cursor_.skip(kBlanks);
    value = readValue();
    return true;
  }

  std::string name;
  std::string value;

 private:
  std::string readValue() {
    for (const std::string_view quote : {"\"", "'"}) {
      if (!cursor_.isAt(quote)) continue;
      cursor_.skipOne();
      std::string result = decodedValue(cursor_.take(quote));
      cursor_.skipOne();
      return result;
    }
    return decodedValue(cursor_.take(" \t\r\n\f>"));
  }

  Cursor& cursor_;
};

/// The largest side, up to 1024, in "16x16 32x32"; 0 when there is none.
int largestSide(std::string_view sizes) {
  int largest = 0;
  while (!sizes.empty()) {
    int side = 0;
    if (std::from_chars(sizes.data(), sizes.data() + sizes.size(), side).ec == std::errc() && side <= kMaxSide) {
      largest = std::max(largest, side);
    }
    sizes.remove_prefix(std::min(sizes.find_first_of(kBlanks), sizes.size()));
    sizes.remove_prefix(std::min(sizes.find_first_not_of(kBlanks), sizes.size()));
  }
  return largest;
}

/// The side assumed for a link with these rel words; 0 when it is not an icon link.
int usualSide(std::string_view words) {
  const std::string padded = " " + lowerCased(words) + " ";
  if (padded.find(" apple-touch-icon") != padded.npos) return kTouchIconSide;
  return padded.find(" icon ") != padded.npos ? kIconSide : 0;
}

bool isDrawing(std::string_view type, std::string_view href) {
  const std::string path = lowerCased(href.substr(0, href.find_first_of("?#")));
  return lowerCased(type).find("svg") != std::string::npos || path.ends_with(".svg") || path.ends_with(".svgz");
}

class HeadReader {
 public:
  explicit HeadReader(std::string_view html) : cursor_(html) {}

  PageHead read() {
    while (head_.links.size() < kMaxLinks && cursor_.skipPast("<")) {
      if (cursor_.isAt("!--")) {
        cursor_.skipPast("-->");
      } else if (!readTag()) {
        break;
      }
    }
    head_.bytesExamined = cursor_.bytesExamined();
    return std::move(head_);
  }

 private:
  /// False at the end of the head.
  bool readTag() {
    const std::string name = lowerCased(cursor_.take(" \t\r\n\f/><", kMaxNameLength));
    if (name == "body") return false;
    if (name == "script" || name == "style" || name == "title" || name == "noscript") return skipElement(name);
    if (name == "link") readLink();
    if (name == "base") readBase();
    return true;
  }

  void readLink() {
    std::string words, type, sizes;
    IconLink link;
    Attributes attributes(cursor_);
    while (attributes.next()) {
      if (attributes.name == "rel") words = attributes.value;
      if (attributes.name == "type") type = attributes.value;
      if (attributes.name == "sizes") sizes = attributes.value;
      if (attributes.name == "href") link.href = std::string(trimmed(attributes.value));
    }
    const int usual = usualSide(words);
    if (usual == 0 || link.href.empty() || isDrawing(type, link.href)) return;
    const int stated = largestSide(sizes);
    link.side = stated > 0 ? stated : usual;
    head_.links.push_back(std::move(link));
  }

  void readBase() {
    Attributes attributes(cursor_);
    while (attributes.next()) {
      if (attributes.name == "href" && head_.base.empty()) head_.base = attributes.value;
    }
  }

  bool skipElement(const std::string& name) {
    while (cursor_.skipPast("</")) {
      if (cursor_.isAtIgnoringCase(name)) return true;
    }
    return false;
  }

  Cursor cursor_;
  PageHead head_;
};

}  // namespace

PageHead readPageHead(std::string_view html) { return HeadReader(html).read(); }

}  // namespace rondora
