#include "platform/linux/desktop/glib_messages.h"

#include <glib.h>

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>

namespace rondora::desktop {
namespace {

/// Global, because GLib accepts one writer for the whole process, for good.
std::atomic<Log*> receiver = nullptr;

std::string_view fieldNamed(std::string_view name, const GLogField* fields, gsize count) {
  for (const GLogField* field = fields; field != fields + count; ++field) {
    if (name != field->key) continue;
    const auto* text = static_cast<const char*>(field->value);
    return field->length < 0 ? std::string_view(text) : std::string_view(text, static_cast<std::size_t>(field->length));
  }
  return {};
}

GLogWriterOutput write(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer /*context*/) {
  Log* log = receiver;
  if (log == nullptr) return g_log_writer_default(level, fields, count, nullptr);
  const std::string domain(fieldNamed("GLIB_DOMAIN", fields, count));
  if (g_log_writer_default_would_drop(level, domain.c_str()) != FALSE) return G_LOG_WRITER_HANDLED;
  const bool isError = (level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL)) != 0;
  log->write(isError ? LogLevel::error : LogLevel::standard,
             domain + ": " + std::string(fieldNamed("MESSAGE", fields, count)));
  return G_LOG_WRITER_HANDLED;
}

}  // namespace

GlibMessages::GlibMessages(Log& log) {
  receiver = &log;
  g_log_set_writer_func(write, nullptr, nullptr);
}

GlibMessages::~GlibMessages() { receiver = nullptr; }

}  // namespace rondora::desktop
