#pragma once

class QApplication;

namespace rondora {

/// What must be settled before the application object is made: X11 wherever there is an X display, and whole use of a
/// fractional scale.
void prepareQt();

/// What every window of the program shares. `identifier` is the name of the program's desktop entry.
void configureQt(QApplication& application, const char* identifier);

}  // namespace rondora
