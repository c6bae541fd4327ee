#include "support/measurement.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace rondora::bench {

int numberFromEnvironment(const char* variable, int fallback) {
  const char* text = std::getenv(variable);
  return text ? std::atoi(text) : fallback;
}

int runMeasurement(const std::string& program, const std::function<void()>& measure) {
  try {
    measure();
    return EXIT_SUCCESS;
  } catch (const std::exception& failure) {
    std::cerr << program << ": " << failure.what() << '\n';
    return EXIT_FAILURE;
  }
}

}  // namespace rondora::bench
