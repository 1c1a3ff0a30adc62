// How a fuzz target ends when something does not hold.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <source_location>

namespace kavr6 {

inline void Require(bool holds, const char* what = "",
                    std::source_location place = std::source_location::current()) {
  if (holds) return;
  std::fprintf(stderr, "broken in line %u: %s\n", place.line(), what);
  std::abort();
}

}  // namespace kavr6
