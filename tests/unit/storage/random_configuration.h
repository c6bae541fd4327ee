#pragma once

#include "model/pie_configuration.h"
#include "platform/random_source.h"

namespace rondora {

/// Any configuration that decoding leaves as it is.
PieConfiguration randomConfiguration(RandomSource& random);

}  // namespace rondora
