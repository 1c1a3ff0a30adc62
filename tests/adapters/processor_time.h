// How busy a program is.
#pragma once

#include <ctime>

#ifdef _WIN32
#include <windows.h>
#endif

namespace kavr6 {

/// The processor time that this process has used so far. On Windows the standard's clock goes by the wall.
inline double ProcessorSeconds() {
#ifdef _WIN32
  FILETIME created, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  const auto seconds = [](const FILETIME& time) {
    return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) * 1e-7;
  };
  return seconds(kernel) + seconds(user);
#else
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
#endif
}

}  // namespace kavr6
