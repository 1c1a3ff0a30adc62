// A value that tells when it changes.
#pragma once

#include <utility>

#include "platform/event.h"

namespace kavr6 {

/// Reads and writes like a plain T; assigning another value raises Changed.
template <class T>
class Watched {
 public:
  Watched() = default;
  explicit Watched(T value) : value_(std::move(value)) {}
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;
  Watched& operator=(T value) {
    if (value_ == value) return *this;
    value_ = std::move(value);
    Changed.Raise();
    return *this;
  }
  operator const T&() const { return value_; }
  const T& Get() const { return value_; }

  Event<> Changed;

 private:
  T value_{};
};

}  // namespace kavr6
