#include <csignal>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr int kMaxRestarts = 3;
constexpr const char* kGuard = "rondora-keys";

class HangTest : public EndToEndTest {
 protected:
  /// Waits until exactly one process has that name and is another one than `before`; 0 when none comes.
  pid_t nextProcess(const std::string& name, pid_t before) {
    std::vector<pid_t> found;
    // A process that is on its way to become another may be left out, and its passing child found.
    waitUntilSteady([&] {
      found = desktop_.processesNamed(name);
      return found.size() == 1 && found.front() != before;
    });
    return found.empty() ? 0 : found.front();
  }
  /// How the process was started, but for the note of its restarts.
  static std::string startOf(pid_t process) {
    const std::string folder = "/proc/" + std::to_string(process);
    std::string start = readFile(folder + "/cmdline") + readFile(folder + "/environ");
    const std::size_t note = start.find("RONDORA_RESTARTS=");
    if (note != std::string::npos) start.erase(note, start.find('\0', note) + 1 - note);
    return start;
  }
  void openRing() {
    ASSERT_TRUE(waitUntil([&] { return trigger(main_["id"]).has_value(); }));
    ASSERT_TRUE(waitUntil([&] { return !client_.keyboardIsFree(); }));
  }

  const Document main_ = menu("Main", kControlAltSpace, snippetItems("Main", 4), -45);
};

TEST_F(HangTest, StoppedProgramGivesTheKeyboardBackAndStartsAgain) {
  start(document({main_}));
  const std::string firstStart = startOf(program_->pid());
  const pid_t guard = nextProcess(kGuard, 0);
  kill(guard, SIGKILL);
  ASSERT_NE(nextProcess(kGuard, guard), 0) << "a killed guard is replaced";

  for (pid_t program = program_->pid(), restarts = 0; restarts <= kMaxRestarts; ++restarts) {
    SCOPED_TRACE("restart " + std::to_string(restarts));
    ASSERT_NO_FATAL_FAILURE(openRing());
    kill(program, SIGSTOP);
    EXPECT_TRUE(waitUntil([&] { return client_.nothingIsGrabbed(); }));
    if (restarts == kMaxRestarts) break;
    program = nextProcess("rondora", program);
    ASSERT_NE(program, 0);
    EXPECT_EQ(startOf(program), firstStart);
    ASSERT_NO_FATAL_FAILURE(openRing());
    client_.tap(key::digit2);
    EXPECT_TRUE(waitForClipboard("Main 2"));
  }
  EXPECT_TRUE(waitUntil([&] { return desktop_.processesNamed(kGuard).empty(); }));
  EXPECT_TRUE(desktop_.processesNamed("rondora").empty()) << "it hangs again and again";
}

}  // namespace
}  // namespace rondora::live
