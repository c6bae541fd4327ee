#include "icons/favicon_links.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <utility>

#include "base/unicode.h"

namespace rondora {
namespace {

/// Pixels: an icon of 42 points at 2 pixels per point, with a margin.
constexpr int kWantedSide = 96;
/// Sides assumed for links that state none.
constexpr int kIconSide = 32;
constexpr int kTouchIconSide = 180;
constexpr std::size_t kMaxLinks = 16;
constexpr std::size_t kMaxValueLength = 4096;
constexpr std::string_view kBlanks = " \t\r\n\f";

struct Link {
  std::string href;
  int side = 0;
};

bool startsWithIgnoringCase(std::string_view text, std::string_view lowered) {
  return lowerCased(text.substr(0, lowered.size())) == lowered;
}

/// Parses the attributes between a tag's name and its ">".
class Attributes {
 public:
  explicit Attributes(std::string_view text) : rest_(text) {}

  /// False at the end of the tag.
  bool next() {
    skip(" \t\r\n\f/");
    if (rest_.empty() || rest_.front() == '>') return false;
    name = lowerCased(take(" \t\r\n\f/>="));
    if (name.empty()) rest_.remove_prefix(1);  // a stray "="
    value.clear();
    skip(kBlanks);
    if (!rest_.starts_with('=')) return true;
    rest_.remove_prefix(1);
    skip(kBlanks);
    value = readValue();
    return true;
  }
  std::string_view rest() const { return rest_; }

  std::string name;
  std::string value;

 private:
  void skip(std::string_view letters) { rest_.remove_prefix(std::min(rest_.find_first_not_of(letters), rest_.size())); }
  std::string_view take(std::string_view ends) {
    const std::string_view taken = rest_.substr(0, rest_.find_first_of(ends));
    rest_.remove_prefix(taken.size());
    return taken;
  }
  std::string readValue() {
    const bool isQuoted = rest_.starts_with('"') || rest_.starts_with('\'');
    if (!isQuoted) return decoded(take(" \t\r\n\f>"));
    const std::string_view quote = rest_.substr(0, 1);
    rest_.remove_prefix(1);
    std::string result = decoded(take(quote));
    if (!rest_.empty()) rest_.remove_prefix(1);
    return result;
  }
  /// Decodes "&amp;", the only character reference of use in an address.
  static std::string decoded(std::string_view text) {
    constexpr std::string_view kAmpersand = "&amp;";
    std::string result(text.substr(0, kMaxValueLength));
    for (auto at = result.find(kAmpersand); at != result.npos; at = result.find(kAmpersand, at + 1)) {
      result.replace(at, kAmpersand.size(), "&");
    }
    return result;
  }

  std::string_view rest_;
};

/// The largest side, up to 1024, in "16x16 32x32"; 0 when there is none.
int largestSide(std::string_view sizes) {
  int largest = 0;
  while (!sizes.empty()) {
    int side = 0;
    if (std::from_chars(sizes.data(), sizes.data() + sizes.size(), side).ec == std::errc() && side <= 1024) {
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
  explicit HeadReader(std::string_view html) : rest_(html) {}

  void read() {
    while (links.size() < kMaxLinks && skipPast("<")) {
      if (rest_.starts_with("!--")) {
        skipPast("-->");
      } else if (!readTag()) {
        return;
      }
    }
  }

  std::vector<Link> links;
  std::string base;

 private:
  /// False at the end of the head.
  bool readTag() {
    const std::string name = lowerCased(rest_.substr(0, rest_.find_first_of(" \t\r\n\f/>")).substr(0, 16));
    rest_.remove_prefix(std::min(name.size(), rest_.size()));
    if (name == "body") return false;
    if (name == "script" || name == "style" || name == "title" || name == "noscript") return skipElement(name);
    if (name == "link") readLink();
    if (name == "base") readBase();
    return true;
  }

  void readLink() {
    std::string words, type, sizes;
    Link link;
    Attributes attributes(rest_);
    while (attributes.next()) {
      if (attributes.name == "rel") words = attributes.value;
      if (attributes.name == "type") type = attributes.value;
      if (attributes.name == "sizes") sizes = attributes.value;
      if (attributes.name == "href") link.href = std::string(trimmed(attributes.value));
    }
    rest_ = attributes.rest();
    const int usual = usualSide(words);
    if (usual == 0 || link.href.empty() || isDrawing(type, link.href)) return;
    const int stated = largestSide(sizes);
    link.side = stated > 0 ? stated : usual;
    links.push_back(std::move(link));
  }

  void readBase() {
    Attributes attributes(rest_);
    while (attributes.next()) {
      if (attributes.name == "href" && base.empty()) base = attributes.value;
    }
    rest_ = attributes.rest();
  }

  bool skipElement(const std::string& name) {
    while (skipPast("</")) {
      if (startsWithIgnoringCase(rest_, name)) return true;
    }
    return false;
  }

  bool skipPast(std::string_view mark) {
    const auto found = rest_.find(mark);
    rest_.remove_prefix(found == rest_.npos ? rest_.size() : found + mark.size());
    return found != rest_.npos;
  }

  std::string_view rest_;
};

/// The smallest that is large enough comes first, else the largest.
bool isBetterFit(const Link& a, const Link& b) {
  const bool aSuffices = a.side >= kWantedSide;
  const bool bSuffices = b.side >= kWantedSide;
  if (aSuffices != bSuffices) return aSuffices;
  return aSuffices ? a.side < b.side : a.side > b.side;
}

}  // namespace

std::vector<WebAddress> faviconLinks(const WebAddress& page, std::string_view html) {
  HeadReader head(html);
  head.read();
  std::stable_sort(head.links.begin(), head.links.end(), isBetterFit);
  const WebAddress base = head.base.empty() ? page : page.resolve(head.base).value_or(page);
  std::vector<WebAddress> addresses;
  for (const Link& link : head.links) {
    const auto address = base.resolve(link.href);
    if (address && std::find(addresses.begin(), addresses.end(), *address) == addresses.end()) {
      addresses.push_back(*address);
    }
  }
  return addresses;
}

}  // namespace rondora
