// Declarations for tools/check-macos, written by hand from developer.apple.com/documentation/os/logging (os_log_create,
// os_log_with_type, os_log_type_t). A Mac compiles against its own SDK instead.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct os_log_s* os_log_t;
typedef enum os_log_type_t : uint8_t { OS_LOG_TYPE_DEFAULT = 0x00, OS_LOG_TYPE_ERROR = 0x10 } os_log_type_t;
os_log_t os_log_create(const char* subsystem, const char* category);

// What the compiler turns a line into; the macro is the interface.
void _os_log_impl(void* dso, os_log_t log, os_log_type_t type, const char* format, uint8_t* buffer, uint32_t size);
extern struct mach_header __dso_handle;
#define os_log_with_type(log, type, format, ...)                                           \
  __extension__({                                                                          \
    uint8_t arguments[__builtin_os_log_format_buffer_size(format, ##__VA_ARGS__)];         \
    __builtin_os_log_format(arguments, format, ##__VA_ARGS__);                             \
    _os_log_impl(&__dso_handle, log, type, format, arguments, (uint32_t)sizeof arguments); \
  })

#ifdef __cplusplus
}
#endif
