#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// A web site on this machine that has nothing but "/favicon.ico" and lets everybody wait until it is open.
class Site {
 public:
  explicit Site(std::string picture) : picture_(std::move(picture)) {
    socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    const bool isUp = bind(socket_, reinterpret_cast<sockaddr*>(&address), length) == 0 && listen(socket_, 8) == 0 &&
                      getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length) == 0;
    EXPECT_TRUE(isUp);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
  }
  ~Site() {
    open();
    shutdown(socket_, SHUT_RDWR);
    thread_.join();
    close(socket_);
  }

  void open() {
    isOpen_ = true;
    isOpen_.notify_all();
  }
  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_); }

 private:
  void serve() const {
    isOpen_.wait(false);
    for (int client = 0; (client = accept(socket_, nullptr, nullptr)) >= 0; close(client)) answer(client);
  }
  void answer(int client) const {
    std::string request(4096, '\0');
    const ssize_t length = recv(client, request.data(), request.size(), 0);
    request.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    const bool isKnown = request.starts_with("GET /favicon.ico ");
    const std::string answer =
        std::string("HTTP/1.1 ") + (isKnown ? "200 Here" : "404 None") +
        "\r\nConnection: close\r\nContent-Length: " + std::to_string(isKnown ? picture_.size() : 0) + "\r\n\r\n" +
        (isKnown ? picture_ : "");
    send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
  }

  std::string picture_;
  int socket_ = -1;
  std::uint16_t port_ = 0;
  std::atomic<bool> isOpen_ = false;
  std::thread thread_;
};

class FaviconTest : public EndToEndTest {
 protected:
  FaviconTest() : EndToEndTest({WindowManager::openbox, Compositor::none, Tray::none}) {}

  /// The pixels of the upper item's icon, which nothing below the ring can change.
  std::vector<std::uint32_t> icon() {
    const Capture picture = program_->settledPicture();
    std::vector<std::uint32_t> pixels;
    for (int y = -14; y < 14; ++y) {
      for (int x = -14; x < 14; ++x) {
        pixels.push_back(picture.at(kSomewhere.x + x, kSomewhere.y - kMiddleOfRing + y));
      }
    }
    return pixels;
  }
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
  Site site(readFile(RONDORA_FIXTURES "/web/three-sizes.ico"));
  std::vector<Document> items = snippetItems("Item", 4);
  items.front()["icon"] = "favicon:" + site.address();
  start(document({menu("Main", kControlAltSpace, items, -45)}));
  ASSERT_TRUE(open());
  const auto globe = icon();
  site.open();
  ASSERT_TRUE(waitUntil([this] { return hasCachedPicture(); }));
  EXPECT_EQ(icon(), globe);
  releaseChord();
  ASSERT_TRUE(program_->waitForNoRing());

  ASSERT_TRUE(open());
  constexpr std::uint32_t kGreen = 0x00FF00;
  const auto picture = icon();
  EXPECT_GT(std::count(picture.begin(), picture.end(), kGreen), 400);
  releaseChord();
  expectAtRest();
}

}  // namespace
}  // namespace rondora::live
