#pragma once

#include <functional>
#include <string_view>

#include "platform/picture_decoder.h"

namespace rondora::desktop {

/// `argv[0]` of a process that is to serve pictures, and its socket to the program.
inline constexpr std::string_view kPictureServiceName = "rondora-decoder";
inline constexpr int kPictureServiceDescriptor = 3;

/// True when the program has started this process to serve pictures.
bool isPictureService(int argc, const char* const* argv);

/// Decodes one picture after the other until the program closes the socket. A picture that takes more than one second
/// of processor time, or that blocks for long, ends the process. The process itself must limit its memory before.
void servePictures(const std::function<PictureResult(const PictureRequest&)>& decode);

}  // namespace rondora::desktop
