#include "icons/favicon_links.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rondora {
namespace {

std::vector<std::string> links(std::string_view html) {
  std::vector<std::string> texts;
  for (const WebAddress& address : faviconLinks(WebAddress::parse("https://a.org/").value(), html)) {
    texts.push_back(address.text());
  }
  return texts;
}

using Links = std::vector<std::string>;

TEST(FaviconLinksTest, FindsLinksInEverySpelling) {
  EXPECT_EQ(links(R"(<!DOCTYPE html><html><head><link rel="icon" href="/i.png"></head>)"),
            Links{"https://a.org/i.png"});
  EXPECT_EQ(links("<LINK REL='Shortcut Icon'\n HREF = i.ico />"), Links{"https://a.org/i.ico"});
  EXPECT_EQ(links("<link href=//cdn.b.org/i.png?v=1&amp;w=2 rel=icon>"), Links{"https://cdn.b.org/i.png?v=1&w=2"});
  EXPECT_EQ(links("<base href='https://c.org/d/'><link rel=icon href=i.png>"), Links{"https://c.org/d/i.png"});
  EXPECT_EQ(links("<link rel=icon href='i.png"), Links{"https://a.org/i.png"});
}

TEST(FaviconLinksTest, SkipsUnusableLinks) {
  EXPECT_EQ(links("<!-- <link rel=icon href=i.png> -->"), Links{});
  EXPECT_EQ(links("<script>'<link rel=icon href=i.png>'</script><title><link rel=icon href=j.png></title>"), Links{});
  EXPECT_EQ(links("<link rel=stylesheet href=a.css><link rel=mask-icon href=a.png><link rel=icon><link>"), Links{});
  EXPECT_EQ(links("<link rel=icon type='image/svg+xml' href=a><link rel=icon href=b.SVG?x>"), Links{});
  EXPECT_EQ(links("<link rel=icon href='data:image/png;base64,AA'><link rel=icon href='file:///a.png'>"), Links{});
  EXPECT_EQ(links("<body><link rel=icon href=i.png>"), Links{});
}

TEST(FaviconLinksTest, SmallestSufficientSizeComesFirst) {
  EXPECT_EQ(links("<link rel=icon sizes=16x16 href=16><link rel=icon sizes='32x32 48x48' href=48>"
                  "<link rel=icon href=unknown><link rel=apple-touch-icon href=touch>"
                  "<link rel=icon sizes=512x512 href=512><link rel=icon sizes=96x96 href=96>"
                  "<link rel=icon sizes=96x96 href=96><link rel=icon sizes=99999x1 href=liar>"),
            (Links{"https://a.org/96", "https://a.org/touch", "https://a.org/512", "https://a.org/48",
                   "https://a.org/unknown", "https://a.org/liar", "https://a.org/16"}));
}

}  // namespace
}  // namespace rondora
