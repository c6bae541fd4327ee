#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/observable.h"

namespace rondora {

/// The icon theme that is searched, as the toolkit knows it.
struct IconTheme {
  std::string name;
  std::string fallbackName;
  /// Folders with themes, and folders with icons of no theme.
  std::vector<std::string> folders;
  std::vector<std::string> looseFolders;
};

struct PictureRequest {
  enum class Source : std::uint8_t {
    /// `content` is a picture of pixels. The result is a PNG, scaled down to fit a square of `side` pixels; smaller
    /// pictures keep their size. Of several pictures in one file the best fit. Nothing for drawings.
    bytes,
    /// `content` is the path of a picture or a drawing. The result is fitted into `side` pixels.
    imageFile,
    /// `content` is the path of a web site's picture, which may be small or have any background. The result is a tile
    /// of `side` pixels that is visible on every colour.
    siteFile,
    /// `content` is the name of an icon in `theme`. The result is fitted into `side` pixels.
    themeIcon,
  };
  static constexpr int kSourceCount = 4;

  Source source = Source::bytes;
  /// 1 to kMaxResultSide.
  int side = 0;
  std::string content;
  IconTheme theme;
  /// Identifies the present content of a file or theme; empty when it is unknown.
  std::string version;
};

struct PictureResult {
  enum class Outcome : std::uint8_t {
    decoded,
    unreadable,   // no picture, or one beyond the limits of size
    gaveUp,       // reading it took too much time or memory
    unavailable,  // no decoder could be started
  };
  static constexpr int kOutcomeCount = 4;

  Outcome outcome = Outcome::unreadable;
  /// Pixels; positive when decoded.
  int width = 0;
  int height = 0;
  /// A PNG for `PictureRequest::Source::bytes`, else premultiplied 0xAARRGGBB pixels in native byte order, row by row.
  std::string bytes;
};

/// Decodes untrusted pictures away from the main thread, with limits of time and memory. Main thread.
class PictureDecoder {
 public:
  /// Limits of a fetched picture that may be an icon: pixels of a side, and pictures in one file.
  static constexpr int kMaxSide = 1024;
  static constexpr int kMaxPictures = 64;
  static constexpr int kMaxResultSide = 8192;

  /// Called once, on a later turn of the main queue.
  using Completion = std::function<void(const PictureResult&)>;

  virtual ~PictureDecoder() = default;

  /// Resetting or destroying the result gives the picture up; `completion` is then not called.
  [[nodiscard]] virtual Subscription decode(PictureRequest request, Completion completion) = 0;

  /// Of two widths the better one for a picture of `side` pixels: the smallest that suffices, else the largest.
  static bool isBetterFit(int width, int other, int side) {
    const bool suffices = width >= side;
    if (suffices != (other >= side)) return suffices;
    return suffices ? width < other : width > other;
  }
};

}  // namespace rondora
