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
  bool operator==(const MessageBox&) const = default;
};

}  // namespace kavr6
