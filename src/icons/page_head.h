#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace rondora {

/// An icon link of a page, as it is written there.
struct IconLink {
  std::string href;
  /// Pixels: the largest side that the link states, else the usual one of its kind.
  int side = 0;
};

struct PageHead {
  std::vector<IconLink> links;
  /// The address that the links are relative to; empty when the page states none.
  std::string base;
  /// The cost: how many bytes were examined, some more than once.
  std::size_t bytesExamined = 0;
};

/// Reads the head of a page up to its sixteenth icon link, without vector drawings (SVG). Accepts any bytes as HTML,
/// and examines at most eight times as many as there are.
PageHead readPageHead(std::string_view html);

}  // namespace rondora
