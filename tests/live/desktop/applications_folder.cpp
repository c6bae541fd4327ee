#include "live/desktop/applications_folder.h"

#include <gtest/gtest.h>

#include <memory>

namespace rondora::desktop {
namespace {

std::unique_ptr<ApplicationsFolder> theFolder;

class FolderForAllTests : public testing::Environment {
 public:
  void SetUp() override { theFolder = std::make_unique<ApplicationsFolder>(); }
  void TearDown() override { theFolder.reset(); }
};

[[maybe_unused]] const auto* const kRegistered = testing::AddGlobalTestEnvironment(new FolderForAllTests);

void setPath(const char* name, const std::filesystem::path& path) { setenv(name, path.c_str(), 1); }

}  // namespace

const ApplicationsFolder& applicationsFolder() { return *theFolder; }

ApplicationsFolder::ApplicationsFolder() {
  setPath("HOME", path());
  setPath("XDG_DATA_HOME", path() / "data");
  setPath("XDG_DATA_DIRS", path() / "system");
  setPath("XDG_CONFIG_HOME", path() / "config");
  setPath("XDG_CONFIG_DIRS", path() / "etc");
  setPath("PATH", programs().string() + ":/usr/bin:/bin");
  setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  unsetenv("XDG_CURRENT_DESKTOP");
  unsetenv("LANGUAGE");
  setenv("LC_ALL", "C", 1);

  for (const char* name : {"editor", "viewer", "player", "weaver", "browser", "terma", "uxt", "files"})
    addProgram(name);
  addEntry("org.example.Editor",
           "Exec=editor %U\nName[de]=Schreiber\nIcon=accessories-text-editor\n"
           "Categories=Utility;TextEditor;\n");
  addEntry("org.example.Editor-settings", "Exec=editor --preferences\nCategories=Settings;DesktopSettings;\n");
  addEntry("plain-viewer", "Exec=viewer %f\nStartupWMClass=ViewerWindow\nIcon=/opt/viewer/icon.png\n");
  addEntry("player", "Exec=player\nCategories=AudioVideo;Audio;Player;\n");
  addEntry("a-mixer", "Exec=weaver\nCategories=AudioVideo;Audio;\n");
  addEntry("a-hidden-player", "Exec=player --daemon\nNoDisplay=true\nCategories=Audio;Player;\n");
  addEntry("browser", "Exec=browser %u\nCategories=Network;WebBrowser;\n");
  addEntry("browser-app", "Exec=browser --app=mail\nStartupWMClass=crx_mail\n");
  addEntry("script.app", "Exec=python3 /opt/script.py\n");
  addEntry("terminal-a", "Exec=terma\nCategories=System;TerminalEmulator;\n");
  addEntry("debian-uxt", "Exec=uxt\nCategories=System;TerminalEmulator;\n");
  addEntry("xfce4-terminal", "Exec=uxt --xfce\nCategories=System;TerminalEmulator;\n");
  addEntry("xfce-settings-manager", "Exec=weaver --settings\nCategories=Settings;\n");
  addEntry("files", "Exec=files %U\nCategories=System;FileManager;\n");
  addEntry("in-terminal", "Exec=weaver --text\nTerminal=true\nCategories=Utility;TextEditor;\n");
  addEntry("painter", "Exec=/usr/bin/env weaver\nGenericName=Image Editor\nKeywords=photo;paint box;\n");
  addEntry("elsewhere", "Exec=weaver --else\nOnlyShowIn=Elsewhere;\n");
  addEntry("gone", "Exec=weaver\nHidden=true\n");
}

void ApplicationsFolder::addEntry(const std::string& id, const std::string& keys) const {
  writeFile(path() / "system" / "applications" / (id + ".desktop"),
            "[Desktop Entry]\nType=Application\nName=" + id + "\n" + keys);
}

void ApplicationsFolder::addProgram(const std::string& name, const std::string& script) const {
  writeFile(programs() / name, "#!/bin/sh\n" + script + "\n");
  std::filesystem::permissions(programs() / name, std::filesystem::perms::owner_all);
}

void ApplicationsFolder::setDefaults(const std::string& lines) const {
  writeFile(path() / "config" / "mimeapps.list", "[Default Applications]\n" + lines);
}

}  // namespace rondora::desktop
