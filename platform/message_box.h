// Message boxes, as data.
#pragma once

#include <string>

namespace kavr6 {

enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxButtons { Ok, OkCancel, YesNo };
/// Closing a box without a choice counts as Cancel, or as No where there is no Cancel; in a box with OK
/// alone it counts as OK.
enum class BoxAnswer { Ok, Cancel, Yes, No };

struct MessageBox {
  std::string text;
  BoxIcon icon = BoxIcon::None;
  std::string title = {};  ///< empty: the program's title
  BoxButtons buttons = BoxButtons::Ok;
  bool careful = false;        ///< refusing keeps the work: a hasty Enter refuses
  bool escapeAccepts = false;  ///< accepting keeps the work: Esc and closing the box accept
  bool operator==(const MessageBox&) const = default;
};

/// Whoever tells a person something and takes the answer: a desktop, or a program without windows.
class Boxes {
 public:
  /// Shows a box and waits for the answer; events keep running meanwhile.
  virtual BoxAnswer Ask(const MessageBox& box) = 0;
  virtual void Beep() = 0;

 protected:
  ~Boxes() = default;
};

}  // namespace kavr6
