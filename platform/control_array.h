// Controls of one kind that differ by a number.
#pragma once

#include <deque>
#include <string>

#include "platform/control.h"
#include "platform/runtime_error.h"

namespace kavr6 {

/// "StatusLED(3)": the name of element 3 of the array "StatusLED".
inline std::string ElementName(const std::string& array, int index) {
  return array + "(" + std::to_string(index) + ")";
}

/// Elements 0 to Count() - 1, in the form as controls of their own. All are made with the same further
/// arguments. An index beyond them is a RuntimeError.
template <class T>
class ControlArray {
 public:
  template <class... Args>
  ControlArray(Form& form, const std::string& name, int count, const Args&... args) {
    for (int i = 0; i < count; ++i) elements_.emplace_back(form, ElementName(name, i), args...);
  }

  int Count() const { return static_cast<int>(elements_.size()); }
  T& operator[](int index) {
    if (index < 0 || index >= Count()) RaiseSubscript();
    return elements_[static_cast<std::size_t>(index)];
  }
  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }

 private:
  std::deque<T> elements_;  // never moves them
};

}  // namespace kavr6
