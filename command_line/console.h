// Boxes where there are no windows.
#pragma once

#include <ostream>
#include <string>

#include "platform/message_box.h"

namespace kavr6 {

/// Writes what a box says as a message. A question is answered with no, and the message names the option that
/// answers it with yes; unless that option has been given.
class ConsoleBoxes : public Boxes {
 public:
  explicit ConsoleBoxes(std::ostream& messages) : messages_(messages) {}

  /// "kavr6: ", the text as one line with its full stop.
  void Tell(const std::string& text);
  /// The title of the question whose answer is yes from now on.
  void Accept(const std::string& title) { accepted_ = title; }

  BoxAnswer Ask(const MessageBox& box) override;
  void Beep() override {}

 private:
  std::ostream& messages_;
  std::string accepted_;
};

}  // namespace kavr6
