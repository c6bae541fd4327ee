#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "desktop/child_process.h"

namespace rondora::bench {

/// A number after `key` in a file of /proc.
double numberIn(const std::filesystem::path& file, const std::string& key);

/// The /proc folders of the process and of its helper processes, which need not be its children.
std::vector<std::filesystem::path> foldersOf(const live::ChildProcess& process);

/// The sum over these processes of a line of smaps_rollup, such as "Pss:".
double megabytes(const live::ChildProcess& process, const std::string& key);

}  // namespace rondora::bench
