#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "model/pie_configuration.h"
#include "platform/random_source.h"

// The JSON form of the configuration document and of a single item. These functions do not throw.

namespace rondora {

/// The place in the document and the error: "menus[2].hotkey.keyCode: missing".
struct CodingError {
  std::string description;
};

template <class T>
using CodingResult = std::variant<T, CodingError>;

/// Reads a document of any age: repaired, clamped and brought up to the current schema. `random` supplies missing ids
/// and symbols. Fails for a document that would be too large to be read after it is written.
CodingResult<PieConfiguration> decodeConfiguration(std::string_view bytes, RandomSource& random);
/// Pretty printed, in the document's own order of keys. Fails when a number is not finite and when the result would be
/// too large to be read; ill-formed UTF-8 in a text is written as U+FFFD.
CodingResult<std::string> encodeConfiguration(const PieConfiguration& configuration);

CodingResult<PieMenuItem> decodeMenuItem(std::string_view bytes, RandomSource& random);
/// On one line.
CodingResult<std::string> encodeMenuItem(const PieMenuItem& item);

}  // namespace rondora
