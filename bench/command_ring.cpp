// From the press of the hotkey to the ring of an editor's commands, in turns with a ring of the document.

#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/wait.h"
#include "support/contenders.h"
#include "support/measurement.h"
#include "support/stage.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using namespace live;

constexpr std::uint8_t kPlainKey = kOwnAnimatedKey;
constexpr std::uint8_t kMissingCommand = key::digit0;

Document command(const std::string& menu, const std::string& title) {
  return {{"kind", "menuItem"}, {"menuPath", {menu, title}}};
}

Document rings() {
  Document commands = menu("commands", kControlAltSpace, {});
  commands["kind"] = "appCommands";
  Document whole = document({commands, menu("plain", kControlAltB, snippetItems("Item", 8))});
  const std::vector<Document> entries = {
      command("File", "Nowhere"), command("File", "Open..."), command("File", "Save"), command("Edit", "Undo"),
      command("Edit", "Paste"),   command("Search", "Find"),  {{"kind", "tileLeft"}},  {{"kind", "tileRight"}}};
  whole["appSubMenus"] = {{{"bundleIdentifier", "org.xfce.mousepad"}, {"entries", entries}}};
  return whole;
}

void measure() {
  constexpr int kWarmUp = 3;
  const int openings = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 5;
  Stage stage("commands", Compositor::picom);
  const auto own = startRondoraWith(stage.desktop, stage.client, rings());
  const auto editor = stage.desktop.start({"mousepad", "--disable-server"});
  const auto isInFront = [&] {
    const bool isActive = stage.client.title(stage.client.activeWindow()).find("Mousepad") != std::string::npos;
    return isActive && editor->isWaiting() && stage.desktop.isWaiting();
  };
  if (!waitUntil(isInFront)) throw std::runtime_error("the editor does not come to the front");
  stage.rememberBackground();
  Samples prefetched, cold, plain;
  for (int i = -kWarmUp; i < openings; ++i) {
    const Opening known = stage.open(kOwnKey);
    stage.choose(kOwnKey, kMissingCommand);  // what is known of the application is dropped
    const Opening unknown = stage.openAndClose(kOwnKey);
    const Opening ordinary = stage.openAndClose(kPlainKey);
    if (i < 0) continue;
    prefetched.add(known.firstChange);
    cold.add(unknown.firstChange);
    plain.add(ordinary.firstChange);
  }
  report("command_ring.prefetched", "ms", prefetched);
  report("command_ring.cold", "ms", cold);
  report("command_ring.plain", "ms", plain);
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("command_ring", rondora::bench::measure); }
