#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "icons/favicon_links.h"
#include "icons/page_head.h"
#include "require.h"

// A server may send any bytes as a page: reading them takes a time proportional to their number and gives a few
// distinct web addresses, each of which reads back as itself.

namespace rondora {
namespace {

constexpr std::size_t kMaxLinks = 16;

void check(std::string_view html) {
  require(readPageHead(html).bytesExamined <= 8 * html.size() + 100, "the cost is proportional to the page");
  const WebAddress page = WebAddress::parse("https://example.org/folder/page?query").value();
  const auto links = faviconLinks(page, html);
  require(links.size() <= kMaxLinks, "the number of links is bounded");
  for (auto link = links.begin(); link != links.end(); ++link) {
    require(WebAddress::parse(link->text()) == *link, "a link reads back as itself");
    require(std::find(links.begin(), link, *link) == link, "each link occurs once");
  }
}

}  // namespace
}  // namespace rondora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rondora::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
