#pragma once

#include <memory>

#include "support/private_desktop.h"
#include "support/x_client.h"

namespace rondora::bench {

// Each hotkey is Control, Alt and one of these keys.
inline constexpr std::uint8_t kOwnKey = live::key::space;      // no opening animation
inline constexpr std::uint8_t kOwnAnimatedKey = live::key::b;  // the animation that a new menu has
inline constexpr std::uint8_t kPeerKey = live::key::q;

/// This program with two rings of `items`, which differ in their opening animation only. Its hotkeys are bound when
/// this returns; throws std::runtime_error when they never are.
std::unique_ptr<live::ChildProcess> startRondora(const live::PrivateDesktop& desktop, live::XClient& client, int items);

/// The peer with a ring of eight items, likewise. It is seen only from outside.
std::unique_ptr<live::ChildProcess> startPeer(const live::PrivateDesktop& desktop, live::XClient& client);

}  // namespace rondora::bench
