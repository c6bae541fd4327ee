#pragma once

namespace rondora::desktop {

/// Limits the memory of the calling process to what it has now and a fixed amount more, ranks it behind the programs
/// of the user, and keeps it from dumping core. Needs no privilege, and holds in containers too.
void limitPictureProcess();

}  // namespace rondora::desktop
