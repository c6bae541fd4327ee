#pragma once

#include <QApplication>
#include <QCommandLineParser>

#include "platform/qt/qt_setup.h"

namespace rondora {

/// The toolkit as the program sets it up, and a command line.
class ProbeApplication {
 public:
  /// `platform` is a platform plugin of the toolkit: xcb, offscreen.
  ProbeApplication(int& argc, char** argv, const char* platform) : application_(prepare(argc, platform), argv) {
    configureQt(application_, "rondora");
    parser.addHelpOption();
  }

  void parse() { parser.process(application_); }

  QCommandLineParser parser;

 private:
  static int& prepare(int& argc, const char* platform) {
    qputenv("QT_QPA_PLATFORM", platform);
    prepareQt();
    return argc;
  }

  QApplication application_;
};

}  // namespace rondora
