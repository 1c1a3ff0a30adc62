// The one kind of error that ends an operation no handler of its own looks after.
#pragma once

#include <stdexcept>
#include <string>

namespace kavr6 {

/// A numbered run-time error. It travels up to where the user's action, the timer or the received data
/// entered the program; there it is shown in one box and the program ends.
class RuntimeError : public std::runtime_error {
 public:
  RuntimeError(int number, const std::string& text) : std::runtime_error(text), number_(number) {}
  int Number() const { return number_; }

 private:
  int number_;
};

[[noreturn]] inline void RaiseInvalidCall() { throw RuntimeError(5, "Invalid procedure call or argument"); }
[[noreturn]] inline void RaiseOverflow() { throw RuntimeError(6, "Overflow"); }
[[noreturn]] inline void RaiseSubscript() { throw RuntimeError(9, "Subscript out of range"); }
[[noreturn]] inline void RaiseDivisionByZero() { throw RuntimeError(11, "Division by zero"); }
[[noreturn]] inline void RaiseTypeMismatch() { throw RuntimeError(13, "Type mismatch"); }
[[noreturn]] inline void RaiseInvalidNull() { throw RuntimeError(94, "Invalid use of Null"); }
[[noreturn]] inline void RaiseInvalidProperty() { throw RuntimeError(380, "Invalid property value"); }
[[noreturn]] inline void RaiseNoRecord() { throw RuntimeError(3021, "No current record."); }

}  // namespace kavr6
