#pragma once

namespace rondora {

/// Decodes pictures for the program that has started this process, until it ends. Returns the exit status.
int runPictureService(int argc, char** argv);

}  // namespace rondora
