#include "base/program_identity.h"

namespace rondora::program_identity {

std::string_view version() { return RONDORA_VERSION; }

}  // namespace rondora::program_identity
