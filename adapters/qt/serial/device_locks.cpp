#include "adapters/qt/serial/device_locks.h"

#include <QtGlobal>
#include <algorithm>
#include <fstream>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>

#include <unistd.h>
#endif

namespace kavr6 {
namespace {

namespace fs = std::filesystem;

/// In the order in which the serial port's library looks for a place.
constexpr const char* kFolders[] = {"/var/lock", "/etc/locks", "/var/spool/locks",  "/var/spool/uucp",
                                    "/tmp",      "/var/tmp",   "/var/lock/lockdev", "/run/lock"};

#ifdef Q_OS_UNIX
bool Runs(pid_t process) { return process > 0 && (kill(process, 0) == 0 || errno == EPERM); }
#endif

}  // namespace

bool LockedByAnother([[maybe_unused]] const std::string& device) {
#ifdef Q_OS_UNIX
  const std::string start = "/dev/";
  std::string name = device.starts_with(start) ? device.substr(start.size()) : device;
  std::replace(name.begin(), name.end(), '/', '_');
  for (const char* folder : kFolders) {
    pid_t process = 0;
    std::ifstream(fs::path(folder) / ("LCK.." + name)) >> process;
    if (process != getpid() && Runs(process)) return true;
  }
#endif
  return false;
}

fs::path LockFolder() {
#ifdef Q_OS_UNIX
  for (const char* folder : kFolders)
    if (access(folder, R_OK | W_OK) == 0) return fs::canonical(folder);
#endif
  return {};
}

}  // namespace kavr6
