#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// A web site on this machine that has one picture for all who ask. They wait until it is told to answer.
class Site {
 public:
  explicit Site(std::string picture)
      : picture_(std::move(picture)), socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    const bool isUp = bind(socket_, reinterpret_cast<sockaddr*>(&address), length) == 0 && listen(socket_, 8) == 0 &&
                      getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length) == 0;
    EXPECT_TRUE(isUp);
    port_ = ntohs(address.sin_port);
  }
  ~Site() { close(socket_); }

  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_); }
  /// Answers one question, if there is any.
  void answer() const {
    const int client = accept(socket_, nullptr, nullptr);
    if (client < 0) return;
    char request[4096];
    recv(client, request, sizeof request, 0);
    const std::string answer =
        "HTTP/1.1 200 Here\r\nConnection: close\r\nContent-Length: " + std::to_string(picture_.size()) + "\r\n\r\n" +
        picture_;
    send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
    close(client);
  }

 private:
  std::string picture_;
  int socket_;
  std::uint16_t port_ = 0;
};

class FaviconTest : public EndToEndTest {
 protected:
  FaviconTest() : EndToEndTest({WindowManager::openbox, Compositor::none, Tray::none}) {}

  /// The upper item's icon, which nothing below the ring can change.
  Capture icon() { return client_.settledCapture({kSomewhere.x - 14, kSomewhere.y - kMiddleOfRing - 14, 28, 28}); }
  bool hasCachedPicture() const {
    const auto folder = std::filesystem::path(desktop_.environment().at("XDG_CACHE_HOME")) / "Rondora" / "favicons";
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
      if (entry.path().extension() == ".png") return true;
    }
    return false;
  }
};

TEST_F(FaviconTest, AnOpenRingStaysAsItIsAndTheNextShowsThePictureOfTheSite) {
  const Site site(readFile(RONDORA_FIXTURES "/web/three-sizes.ico"));
  std::vector<Document> items = snippetItems("Item", 4);
  items.front()["icon"] = "favicon:" + site.address();
  start(document({menu("Main", kControlAltSpace, items, -45)}));
  ASSERT_TRUE(open());
  const Capture globe = icon();
  ASSERT_TRUE(waitUntil([&] {
    site.answer();
    return hasCachedPicture();
  }));
  EXPECT_TRUE(icon() == globe);
  releaseChord();
  ASSERT_TRUE(program_->waitForNoRing());

  ASSERT_TRUE(open());
  const Capture picture = icon();
  const auto isGreen = [](std::uint32_t pixel) { return (pixel & 0xFFFFFFU) == 0x00FF00; };
  EXPECT_GT(std::ranges::count_if(picture.pixels, isGreen), 400);
  releaseChord();
  expectAtRest();
}

}  // namespace
}  // namespace rondora::live
