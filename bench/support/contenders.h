#pragma once

#include <memory>
#include <string>
#include <vector>

#include "desktop/document.h"
#include "desktop/private_desktop.h"
#include "desktop/x_client.h"

namespace rondora::bench {

// Each hotkey is Control, Alt and one of these keys.
inline constexpr std::uint8_t kOwnKey = live::key::space;      // no opening animation
inline constexpr std::uint8_t kOwnAnimatedKey = live::key::b;  // the animation that a new menu has
inline constexpr std::uint8_t kPeerKey = live::key::q;
inline constexpr std::uint8_t kBareKey = live::key::n;

/// A program whose hotkeys are bound.
struct Contender {
  std::unique_ptr<live::ChildProcess> process;
  double startUp = 0;  // milliseconds from the start of the process until its hotkeys were bound
};

struct OwnSetting {
  int items = 8;                         // in each ring
  int otherMenus = 0;                    // in the document before the rings, of eight items each and without a hotkey
  double scale = 1;                      // pixels per point
  int fingers = 0;                       // of the tap that opens the first ring; 0 for none
  std::vector<std::string> variables{};  // NAME=VALUE of its environment
};

/// This program with two rings, which differ in their opening animation only. Throws std::runtime_error when its
/// hotkeys are never bound.
Contender startRondora(const live::PrivateDesktop& desktop, live::XClient& client, const OwnSetting& setting = {});
/// The same with a document that has two hotkeys.
Contender startRondoraWith(const live::PrivateDesktop& desktop, live::XClient& client, const live::Document& document,
                           const std::vector<std::string>& variables = {});

/// The peer with a ring of eight items, likewise; observed only from outside.
Contender startPeer(const live::PrivateDesktop& desktop, live::XClient& client);

/// A program that only maps a painted window (bare_window.cpp), likewise: the lower limit set by server and
/// compositor.
Contender startBareWindow(const live::PrivateDesktop& desktop, live::XClient& client);

}  // namespace rondora::bench
