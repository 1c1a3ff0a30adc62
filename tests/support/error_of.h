// The error that a piece of work ends in.
#pragma once

#include <functional>

#include "platform/runtime_error.h"

namespace kavr6 {

/// Its number, 0 for none.
inline int ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace kavr6
