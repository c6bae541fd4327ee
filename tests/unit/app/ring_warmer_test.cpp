#include "app/ring_warmer.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <variant>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RingWarmerTest : public ProgramTest {
 protected:
  /// The icons of each ring that was prepared since the last call.
  std::vector<std::set<std::string>> takePrepared() {
    std::vector<std::set<std::string>> rings;
    for (const Picture& picture : std::exchange(desktop.rasterizer.prepared, {})) {
      auto& icons = rings.emplace_back();
      for (const PictureLayer& layer : picture.layers) {
        for (const DisplayList& state : layer.states) {
          for (const DisplayCommand& command : state) {
            if (const auto* icon = std::get_if<IconCommand>(&command)) icons.insert(icon->name);
          }
        }
      }
    }
    return rings;
  }

  ItemTitles titles{desktop.workspace};
};

TEST_F(RingWarmerTest, PreparesEveryRingInAQuietMomentAndAgainWhenItWouldDiffer) {
  PieMenu main = menu("Main", {});
  main.items.resize(1);
  main.items.front().icon = "star.fill";
  useMenus({main, runningAppsMenu({})});
  RingWarmer warmer({program.configManager, program.runningAppsMenuItems, titles, desktop.workspace, desktop.rasterizer,
                     desktop.time, 2});
  desktop.time.advance(0.9);
  EXPECT_THAT(takePrepared(), IsEmpty());
  desktop.time.advance(10);
  const std::set<std::string> star = {"star.fill"};
  const std::set<std::string> running = {editor.bundleIdentifier.value(), browser.bundleIdentifier.value()};
  EXPECT_THAT(takePrepared(), ElementsAre(star, running, IsEmpty()));

  desktop.workspace.activate(browser);
  desktop.time.advance(10);
  EXPECT_THAT(takePrepared(), ElementsAre(running));

  warmer.warm();
  desktop.workspace.activate(editor);
  desktop.time.advance(0.9);
  warmer.warm();
  desktop.time.advance(10);
  EXPECT_EQ(takePrepared().size(), 3u);
  main.items.front().icon = "globe";
  useMenus({main});
  desktop.time.advance(10);
  EXPECT_EQ(takePrepared().front(), std::set<std::string>{"globe"});
}

}  // namespace
}  // namespace rondora
