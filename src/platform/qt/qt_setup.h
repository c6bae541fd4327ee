#pragma once

#include <string_view>

class QApplication;

namespace rondora {

/// Settings that must precede the application object: the X11 platform when there is an X display, and unrounded
/// fractional scaling.
void prepareQt();

/// Settings of the whole application. `identifier` is the name of the program's desktop entry.
void configureQt(QApplication& application, std::string_view identifier);

}  // namespace rondora
