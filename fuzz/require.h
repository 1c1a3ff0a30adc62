// How a fuzz target ends when something does not hold.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace kavr6 {

inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

}  // namespace kavr6
