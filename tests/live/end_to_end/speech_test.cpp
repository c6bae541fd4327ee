#include <gmock/gmock.h>

#include <sstream>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;
using testing::StartsWith;
using Lines = std::vector<std::string>;

/// What the ring says to users of assistive technology, heard by clients of the accessibility bus.
class SpeechTest : public EndToEndTest {
 protected:
  SpeechTest() : EndToEndTest({WindowManager::openbox, Compositor::none, Tray::tint2}) {}

  void SetUp() override {
    EndToEndTest::SetUp();
    start(document({menu("Tools", kControlAltSpace, snippetItems("Tool", 4), -45),
                    menu("Others", kControlAltB, snippetItems("Other", 4), -45)}));
  }

  void switchAccessibility(bool on) {
    ASSERT_TRUE(desktop_.outputOf({"busctl", "--user", "set-property", "org.a11y.Bus", "/org/a11y/bus",
                                   "org.a11y.Status", "IsEnabled", "b", on ? "true" : "false"}));
  }
  std::string accessibilityBus(std::vector<std::string> request) {
    const auto reply = desktop_.outputOf(
        {"busctl", "--user", "--json=short", "call", "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"});
    const std::string address = Document::parse(reply.value_or(R"({"data":[""]})"))["data"][0];
    request.insert(request.begin(), {"busctl", "--address=" + address});
    return desktop_.outputOf(request).value_or("");
  }
  /// The program's names on the accessibility bus. An address asked for starts the bus.
  Lines connections() {
    Lines names;
    std::istringstream list(accessibilityBus({"--no-legend", "list"}));
    for (std::string line, name, process; std::getline(list, line);) {
      std::istringstream(line) >> name >> process;
      if (process == std::to_string(program_->pid())) names.push_back(name);
    }
    return names;
  }
  /// It is one of the applications of the desktop.
  bool isListed() {
    const std::string listed = accessibilityBus({"call", "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root",
                                                 "org.a11y.atspi.Accessible", "GetChildren"});
    const Lines names = connections();
    return !names.empty() && listed.find('"' + names.front() + '"') != std::string::npos;
  }
  Lines linesWith(const std::string& log, const std::string& part) const {
    Lines found;
    std::istringstream text(readFile(desktop_.logFile(log)));
    for (std::string line; std::getline(text, line);) {
      if (line.find(part) != std::string::npos) found.push_back(line.substr(line.find(part)));
    }
    return found;
  }
  bool isHeard(const std::string& log, const std::string& line) {
    return waitUntil([&] { return !linesWith(log, line).empty(); });
  }

  /// Opens a ring, sweeps to its second item, closes it, and opens another one, which would follow what closing says.
  void useRings(const std::string& log, const std::string& heard) {
    ASSERT_TRUE(open());
    ASSERT_TRUE(isHeard(log, heard + "Tools"));
    pointTo(0, -kMiddleOfRing);
    pointTo(kMiddleOfRing, 0);
    ASSERT_TRUE(isHeard(log, heard + "Tool 1, 2 of 4, key 1"));
    client_.tap(key::escape);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
    client_.movePointer(kSomewhere);
    ASSERT_TRUE(open(key::b));
    ASSERT_TRUE(isHeard(log, heard + "Others"));
    client_.tap(key::escape);
    releaseChord();
  }
};

TEST_F(SpeechTest, AListenerHearsMenuAndItemsAndWithoutOneTheProgramStaysAway) {
  // Starts the bus while accessibility is off. The toolkit asks once whether it is on, and connects too where it is:
  // the ring gives it the time to ask.
  EXPECT_THAT(connections(), ElementsAre());
  ASSERT_TRUE(open());
  client_.tap(key::escape);
  releaseChord();
  ASSERT_TRUE(program_->waitForNoRing());
  EXPECT_THAT(connections(), ElementsAre());
  switchAccessibility(true);
  ASSERT_TRUE(waitUntil([&] { return connections().size() == 1; }));
  EXPECT_FALSE(isListed());

  auto listener = desktop_.start({"/usr/bin/python3", RONDORA_ANNOUNCEMENT_LISTENER});
  ASSERT_TRUE(waitUntil([&] { return isListed(); }));
  useRings("python3", "|notification|");
  EXPECT_THAT(linesWith("python3", "status bar|"),
              ElementsAre("status bar|notification|Tools", "status bar|notification|Tool 1, 2 of 4, key 1",
                          "status bar|notification|Others"));

  listener.reset();
  EXPECT_TRUE(waitUntil([&] { return !isListed(); }));
  switchAccessibility(false);
  EXPECT_TRUE(waitUntil([&] { return connections().empty(); }));
}

TEST_F(SpeechTest, TheScreenReaderSpeaksTheRing) {
  // Its log is complete at any time on a terminal only. It refuses to start while the last one of the user ends.
  const auto reader =
      desktop_.start({"script", "-qfc", "until orca --debug-file /dev/tty; do sleep 0.1; done", "/dev/null"});
  ASSERT_TRUE(isHeard("script", "Screen reader on"));
  ASSERT_TRUE(waitUntil([&] { return isListed(); }));
  useRings("script", "SPEECH OUTPUT: '");
  EXPECT_THAT(
      linesWith("script", "SPEECH OUTPUT: '"),
      ElementsAre(StartsWith("SPEECH OUTPUT: 'Screen reader on.'"), StartsWith("SPEECH OUTPUT: 'Tools.'"),
                  StartsWith("SPEECH OUTPUT: 'Tool 1, 2 of 4, key 1.'"), StartsWith("SPEECH OUTPUT: 'Others.'")));
}

}  // namespace
}  // namespace rondora::live
