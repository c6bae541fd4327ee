#include "support/process_memory.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace rondora::bench {
namespace {

/// The program file and environment of a process; nothing when it does not exist.
std::string startOf(const std::filesystem::path& folder) {
  std::error_code error;
  const auto program = std::filesystem::read_symlink(folder / "exe", error);
  std::ifstream environment(folder / "environ");
  if (error || !environment) return {};
  return program.string() + '\n' + std::string(std::istreambuf_iterator<char>(environment), {});
}

}  // namespace

double numberIn(const std::filesystem::path& file, const std::string& key) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(key)) return std::stod(line.substr(key.size()));
  }
  throw std::runtime_error("no " + key + " in " + file.string());
}

std::vector<std::filesystem::path> foldersOf(const live::ChildProcess& process) {
  const std::filesystem::path all = "/proc";
  const std::string start = startOf(all / std::to_string(process.pid()));
  if (start.empty()) throw std::runtime_error("the program has ended");
  std::vector<std::filesystem::path> folders;
  for (const auto& entry : std::filesystem::directory_iterator(all)) {
    if (startOf(entry.path()) == start) folders.push_back(entry.path());
  }
  return folders;
}

double megabytes(const live::ChildProcess& process, const std::string& key) {
  double sum = 0;
  for (const auto& folder : foldersOf(process)) sum += numberIn(folder / "smaps_rollup", key) / 1024;
  return sum;
}

}  // namespace rondora::bench
