#pragma once

namespace rondora {

/// True when the program has started this process to decode pictures, which `runPictureService` then does.
bool isPictureService(int argc, const char* const* argv);

/// Decodes pictures for the program until that ends. Returns the exit status.
int runPictureService(int argc, char** argv);

}  // namespace rondora
