#include "platform/linux/desktop/journal_log.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "desktop/temporary_folder.h"

namespace rondora::desktop {
namespace {

/// A socket in place of the journal's.
class Journal {
 public:
  Journal() : socket_(::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path().c_str(), sizeof address.sun_path - 1);
    bind(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
  }

  std::string path() const { return folder_.path() / "socket"; }
  /// The next record; empty when there is none.
  std::string receive() const {
    std::array<char, 65536> bytes{};
    const ssize_t length = recv(socket_.get(), bytes.data(), bytes.size(), 0);
    return length < 0 ? std::string() : std::string(bytes.data(), static_cast<std::size_t>(length));
  }

 private:
  TemporaryFolder folder_;
  FileDescriptor socket_;
};

TEST(JournalLogTest, SendsRecordsElseUsesStandardError) {
  testing::internal::CaptureStderr();
  auto journal = std::make_unique<Journal>();
  JournalLog log(journal->path());
  log.error("two\nlines \x1B[31m");
  using std::string_literals::operator""s;
  EXPECT_EQ(journal->receive(),
            "PRIORITY=3\nSYSLOG_IDENTIFIER=rondora\nMESSAGE\n\x12\0\0\0\0\0\0\0two lines \\x1B[31m\n"s);
  log.standard("started");
  EXPECT_EQ(journal->receive().substr(0, 11), "PRIORITY=5\n");

  struct stat status {};
  fstat(STDERR_FILENO, &status);
  setenv("JOURNAL_STREAM", (std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino)).c_str(), 1);
  JournalLog(journal->path()).standard("standard error is the journal");
  unsetenv("JOURNAL_STREAM");
  EXPECT_EQ(journal->receive(), "");
  journal.reset();
  log.error("cannot\nwrite");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "standard error is the journal\nerror: cannot write\n");
}

TEST(LineOutputTest, NeitherAFullPipeNorALostReaderStopsTheWriter) {
  std::signal(SIGPIPE, SIG_IGN);
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  FileDescriptor reader(ends[0]);
  const FileDescriptor writer(ends[1]);
  LineOutput output(writer.get());
  constexpr int kLines = 5000;
  for (int i = 0; i < kLines; ++i) output.write("a line that nothing reads");
  std::string text(1 << 20, '\0');
  text.resize(static_cast<std::size_t>(read(reader.get(), text.data(), text.size())));
  const auto accepted = std::count(text.begin(), text.end(), '\n');
  output.write("read again");
  text.resize(static_cast<std::size_t>(read(reader.get(), text.data(), text.size())));
  EXPECT_EQ(text, "log: " + std::to_string(kLines - accepted) + " lines dropped\nread again\n");
  EXPECT_EQ(fcntl(writer.get(), F_GETFL) & O_NONBLOCK, 0);
  reader.close();
  output.write("to a reader that is gone");
}

}  // namespace
}  // namespace rondora::desktop
