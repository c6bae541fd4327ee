#include "platform/linux/desktop/application_launcher.h"

#include <unistd.h>

#include <climits>
#include <csignal>
#include <fstream>
#include <iomanip>
#include <string>

#include "platform/linux/desktop/glib_owned.h"
#include "platform/linux/desktop/message_buses.h"

namespace rondora::desktop {
namespace {

/// A launch context with a fixed startup id. GIO uses the id for entries with StartupNotify, whether it spawns the
/// program or activates it over the session bus.
struct StartupContext {
  GAppLaunchContext parent;
  char* startupId;
};
struct StartupContextClass {
  GAppLaunchContextClass parent;
};

G_DEFINE_TYPE(StartupContext, startup_context, g_app_launch_context_get_type())

char* copyStartupId(GAppLaunchContext* context, GAppInfo*, GList*) {
  return g_strdup(reinterpret_cast<StartupContext*>(context)->startupId);
}

void finalizeStartupContext(GObject* object) {
  g_free(reinterpret_cast<StartupContext*>(object)->startupId);
  G_OBJECT_CLASS(startup_context_parent_class)->finalize(object);
}

void startup_context_class_init(StartupContextClass* type) {
  type->parent.get_startup_notify_id = copyStartupId;
  G_OBJECT_CLASS(type)->finalize = finalizeStartupContext;
}

void startup_context_init(StartupContext*) {}

bool hasKey(GDesktopAppInfo& application, const char* key) {
  return g_desktop_app_info_has_key(&application, key) != FALSE;
}

void restoreBuses(GAppLaunchContext& context) {
  for (const auto& [variable, value] : hiddenBuses()) {
    if (value) {
      g_app_launch_context_setenv(&context, variable.c_str(), value->c_str());
    } else {
      g_app_launch_context_unsetenv(&context, variable.c_str());
    }
  }
}

/// `id` is null when the time stamp of the user action is unknown: a wrong one would cost the window the focus.
GOwned<GAppLaunchContext> makeContext(GDesktopAppInfo& application, char* id) {
  auto* context = static_cast<StartupContext*>(g_object_new(startup_context_get_type(), nullptr));
  context->startupId = id;
  GOwned<GAppLaunchContext> result(&context->parent);
  // Our own startup id, if any, is already used.
  g_app_launch_context_unsetenv(result.get(), "DESKTOP_STARTUP_ID");
  g_app_launch_context_unsetenv(result.get(), "XDG_ACTIVATION_TOKEN");
  restoreBuses(*result);
  if (id && g_desktop_app_info_get_boolean(&application, "StartupNotify")) {
    g_app_launch_context_setenv(result.get(), "XDG_ACTIVATION_TOKEN", id);
  }
  return result;
}

/// GIO starts programs through a helper or a shell, so it does not notice that one cannot be executed. An entry that is
/// only activated over the session bus has no program.
bool canBeExecuted(GDesktopAppInfo& application) {
  const char* program = g_app_info_get_executable(G_APP_INFO(&application));
  if (!program || !*program) return true;
  const GText path(g_find_program_in_path(program));
  if (!path) return false;
  std::ifstream file(path.get(), std::ios::binary);
  if (file.get() != '#' || file.get() != '!') return true;
  std::string interpreter;
  file >> std::setw(PATH_MAX) >> interpreter;
  return access(interpreter.c_str(), X_OK) == 0;
}

/// Runs in the child between fork and exec: async-signal-safe calls only.
void prepareChild(gpointer homeFolder) {
  setsid();
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  signal(SIGPIPE, SIG_DFL);
  if (homeFolder && chdir(static_cast<const char*>(homeFolder)) != 0) _exit(127);
}

void noteProcess(GDesktopAppInfo*, GPid process, gpointer place) { *static_cast<std::int32_t*>(place) = process; }

}  // namespace

bool ApplicationLauncher::launch(GDesktopAppInfo& application, const std::string& url, UserTime time) {
  if (!canBeExecuted(application)) return false;
  char* id = nullptr;
  if (time != 0) id = g_strdup_printf("rondora-%d-%s-%u_TIME%u", getpid(), g_get_host_name(), ++launches_, time);
  const auto context = makeContext(application, id);
  GList* urls = url.empty() ? nullptr : g_list_append(nullptr, const_cast<char*>(url.c_str()));
  gpointer folder = hasKey(application, "Path") ? nullptr : const_cast<char*>(g_get_home_dir());
  lastProcess_ = 0;
  const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
  const gboolean launched = g_desktop_app_info_launch_uris_as_manager(
      &application, urls, context.get(), flags, prepareChild, folder, noteProcess, &lastProcess_, nullptr);
  g_list_free(urls);
  return launched != FALSE;
}

}  // namespace rondora::desktop
