#include "icons/address_rules.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <string>

#include "icons/web_address.h"

namespace rondora {
namespace {

IpAddress ip(const std::string& text) {
  IpAddress address{};
  const std::string mapped = text.find(':') == text.npos ? "::ffff:" + text : text;
  EXPECT_EQ(inet_pton(AF_INET6, mapped.c_str(), address.data()), 1) << text;
  return address;
}

TEST(AddressRulesTest, PublicNamesLeadToPublicAddressesOnly) {
  for (const char* address : {"8.8.8.8", "93.184.216.34", "172.15.0.1", "172.32.0.1", "100.63.0.1", "100.128.0.1",
                              "11.0.0.1", "2606:4700::1111", "2a00::1", "64:ff9b::808:808"}) {
    EXPECT_TRUE(mayConnect("a.org", ip(address))) << address;
    EXPECT_TRUE(mayConnect("printer.local", ip(address))) << address;
  }
  for (const char* address : {"127.0.0.1", "127.255.0.9", "10.1.2.3", "172.16.0.1", "172.31.255.255", "192.168.1.1",
                              "100.64.0.1", "100.127.0.1", "::1", "fc00::1", "fdff::1"}) {
    EXPECT_FALSE(mayConnect("a.org", ip(address))) << address;
    EXPECT_TRUE(mayConnect("printer.local", ip(address))) << address;
    EXPECT_TRUE(mayConnect("10.1.2.3", ip(address))) << address;
  }
  for (const char* address : {"0.0.0.0",
                              "169.254.169.254",
                              "192.0.0.1",
                              "192.0.2.1",
                              "192.88.99.1",
                              "198.18.0.1",
                              "198.19.0.1",
                              "198.51.100.1",
                              "203.0.113.1",
                              "224.0.0.1",
                              "239.1.1.1",
                              "240.0.0.1",
                              "255.255.255.255",
                              "::",
                              "::7f00:1",
                              "fe80::1",
                              "fec0::1",
                              "ff02::1",
                              "2001::1",
                              "2001:db8::1",
                              "2002:7f00:1::",
                              "3fff::1",
                              "64:ff9b::7f00:1",
                              "64:ff9b::a9fe:a9fe",
                              "64:ff9b:1::808:808",
                              "4000::1"}) {
    EXPECT_FALSE(mayConnect("a.org", ip(address))) << address;
    EXPECT_FALSE(mayConnect("localhost", ip(address))) << address;
  }
}

TEST(AddressRulesTest, NamesAreJudgedAsResolversReadThem) {
  const auto host = [](const std::string& text) {
    const auto address = WebAddress::parse("http://" + text + "/");
    return address ? address->host() : "none";
  };
  for (const auto& [written, read] : {std::pair{"metadata.internal.", "metadata.internal"},
                                      {"127.0.0.①", "127.0.0.1"},
                                      {"１２７。0．0｡1", "127.0.0.1"},
                                      {"LOCAL\u00ADHOST", "localhost"}}) {
    EXPECT_EQ(host(written), read);
    EXPECT_FALSE(isPublicName(read));
  }
  EXPECT_EQ(host("straße.example."), "straße.example");
  for (const char* none : {".", "a..b", ".a.org", "a.org..", "a℀b.org", "a\u00ADb..org"}) EXPECT_EQ(host(none), "none");
  for (const char* local : {"a", "localhost", "0x7f.1", "2130706433", "1.2.3.4", "[::1]", "a.lan", "a.home.arpa"}) {
    EXPECT_FALSE(isPublicName(local)) << local;
  }
  EXPECT_TRUE(isPublicName("a.org"));
}

}  // namespace
}  // namespace rondora
