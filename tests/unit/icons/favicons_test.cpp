#include "icons/favicons.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_web.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"

namespace rondora {
namespace {

constexpr double kMinute = 60;
constexpr double kDay = 24 * 60 * kMinute;
/// Longer than the delay before the first request plus a few answers.
constexpr double kMoment = 8;

FetchResponse page(std::string body) { return {200, {}, std::move(body), true}; }

struct Icons {
  Icons() {
    configuration.menus.resize(1);
    restart();
  }

  void add(std::string icon, std::string url = {}) {
    PieMenuItem& item = configuration.menus.front().items.emplace_back();
    item.icon = std::move(icon);
    if (!url.empty()) item.action = OpenURL{std::move(url)};
  }
  void use(double seconds = kMoment) {
    favicons->prefetch(configuration);
    pass(seconds);
  }
  void pass(double seconds) { time.advance(seconds); }
  /// Content of the site's picture file; empty for none.
  std::string picture(std::string_view site = "https://a.org") const {
    const auto file = favicons->picture(site);
    return file ? files.read(*file).value_or("") : "";
  }
  void restart() {
    if (favicons) favicons->save();
    favicons = std::make_unique<Favicons>(Favicons::Ports{web, decoder, files, time, time, log});
  }

  VirtualTime time;
  FakeLog log;
  FakeFileSystem files;
  FakeWeb web{time};
  FakePictureDecoder decoder{time};
  std::unique_ptr<Favicons> favicons;
  PieConfiguration configuration;
};

struct FaviconStory : Icons, Story {
  using W = const Words&;

  FaviconStory() {
    favicons->onPicture = [this] { ++arrived; };
    const auto rest = [](W w) { return joined({w.begin() + 1, w.end()}); };
    actions = {{"page", [=, this](W w) { web.pages[w.at(0)] = page(rest(w)); }},
               {"damaged", [this](W w) { web.pages[w.at(0)] = page("\x89PNG\r\n\x1a\n\x40 bytes are not here"); }},
               {"huge", [this](W w) { web.pages[w.at(0)] = page("picture " + std::string(2 << 20, 'x')); }},
               {"redirect",
                [this](W w) {
                  web.pages[w.at(0)] = {302, w.at(1), {}, true};
                }},
               {"leads-to",
                [this](W w) {
                  auto& bytes = web.ipAddresses[w.at(0)];
                  for (std::size_t i = 0; i < bytes.size(); ++i)
                    bytes[i] = static_cast<std::uint8_t>(std::stoi(w.at(i + 1)));
                }},
               {"put", [=, this](W w) { files.put(w.at(0), rest(w)); }},
               {"offline", [this](W) { web.isConnected = false; }},
               {"online", [this](W) { web.isConnected = true; }},
               {"item", [this](W w) { add(w.at(0) == "-" ? "" : w[0], w.size() > 1 ? w[1] : ""); }},
               {"use", [this](W) { use(0); }},
               {"lose", [this](W) { files.remove(*favicons->picture("https://a.org")); }},
               {"seconds", [this](W w) { pass(std::stod(w.at(0))); }},
               {"days", [this](W w) { pass(std::stod(w.at(0)) * kDay); }},
               {"restart", [this](W) { restart(); }}};
    observations = {
        {"requested", [this] { return joined(web.takeRequested()); }},
        {"picture", [this] { return picture().empty() ? "none" : picture(); }},
        {"insecure-picture", [this] { return favicons->picture("http://a.org") ? "some" : "none"; }},
        {"folder", [this] { return favicons->picture("https://a.org")->parent_path().string(); }},
        {"restored", [this] { return files.read("/home/user/.cache/Rondora/favicons/site.png").value_or("none"); }},
        {"arrived", [this] { return std::to_string(arrived); }},
        {"changes", [this] { return joined(files.changes); }}};
  }

  int arrived = 0;
};

class FaviconsTest : public testing::Test, protected Icons {};

TEST(FaviconStories, PlayAsWritten) { playStories<FaviconStory>("favicons"); }

TEST_F(FaviconsTest, UnreachableSiteBacksOffAndKeepsItsPicture) {
  web.pages["https://a.org/favicon.ico"] = page("picture old");
  add("favicon:a.org");
  use();
  web.silent = {"https://a.org/", "https://a.org/favicon.ico"};
  pass(30 * kDay);
  web.takeRequested();
  const auto attemptsWithin = [this](double seconds) {
    pass(seconds);
    return web.takeRequested().size() / 2;
  };
  EXPECT_THAT(attemptsWithin(kDay), testing::AllOf(testing::Ge(5u), testing::Le(10u)));
  EXPECT_LE(attemptsWithin(5 * kDay), 6u);
  EXPECT_EQ(picture(), "png old");
  web.silent.clear();
  web.pages["https://a.org/favicon.ico"] = page("picture new");
  pass(kDay + kMinute);
  EXPECT_EQ(picture(), "png new");
}

TEST_F(FaviconsTest, FetchesThreeSitesAtATime) {
  for (char name = 'a'; name < 'a' + 8; ++name) {
    const std::string site = std::string("https://") + name + ".org/";
    add("favicon:" + site);
    web.silent.insert({site, site + "favicon.ico"});
  }
  web.silent.erase("https://h.org/favicon.ico");
  web.pages["https://h.org/favicon.ico"] = page("picture h");
  use(0);
  int most = 0;
  for (int second = 0; second < 120; ++second) {
    pass(1);
    most = std::max(most, web.underway);
  }
  EXPECT_EQ(most, 3);
  EXPECT_EQ(picture("https://h.org"), "png h");
  configuration.menus.clear();
  use();
  EXPECT_EQ(web.underway, 0);
}

TEST_F(FaviconsTest, CostOfManySitesIsLinear) {
  constexpr std::size_t kSites = 90;
  bool isRingOpen = true;
  favicons->isRingOpen = [&isRingOpen] { return isRingOpen; };
  for (std::size_t i = 0; i < kSites; ++i) add("favicon:site" + std::to_string(i) + ".org");
  use(kMinute);
  EXPECT_EQ(web.takeRequested().size(), 2 * kSites);
  EXPECT_EQ(web.reachQueries, kSites);
  EXPECT_TRUE(files.changes.empty());
  isRingOpen = false;
  pass(kMinute);
  EXPECT_EQ(files.changes.size(), 2U) << "the folder and one index";
}

TEST_F(FaviconsTest, SurvivesADamagedCache) {
  web.pages["https://a.org/favicon.ico"] = page("picture a");
  add("favicon:a.org");
  use(kMinute);
  const auto file = *favicons->picture("https://a.org");
  files.remove(file);
  files.put(file.parent_path() / "index", "\xFF f\n" + file.filename().string() + " f x y\n\n f f f\n");
  files.failures["replace"] = "disk full";
  restart();
  use();
  EXPECT_EQ(picture(), "");
  EXPECT_EQ(favicons->problem(), "disk full");
  files.failures.clear();
  pass(11 * kMinute);
  EXPECT_EQ(picture(), "png a");
  EXPECT_EQ(favicons->problem(), std::nullopt);
  EXPECT_EQ(log.lines.size(), 1U);
  EXPECT_THAT(files.changes, testing::Not(testing::Contains(testing::StartsWith("replace"))));
}

}  // namespace
}  // namespace rondora
