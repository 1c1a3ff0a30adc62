// A text of many lines.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/control.h"

namespace kavr6 {

/// Code of the Enter key.
inline constexpr int kEnterKey = 13;

/// A text whose lines end in CR LF, for reading alone or for typing as well. The user can select and copy in
/// either. Entering it selects nothing.
class TextArea : public Control {
 public:
  enum class Use { Edit, Read };
  /// A part of the text, in UTF-8 code units.
  struct Stretch {
    std::size_t start;
    std::size_t end;  ///< behind its last one
    bool operator==(const Stretch&) const = default;
  };
  TextArea(Form& form, std::string name, Use use)
      : Control(form, std::move(name), ControlKind::TextArea), use_(use) {}
  bool ReadOnly() const { return use_ == Use::Read; }

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);
  /// Adds to the end, at the cost of what is added alone. Caret and selection stay. What stands out is told
  /// apart from the rest.
  void Append(const std::string& text, bool standsOut = false);
  /// Takes away the beginning, so many code units of it.
  void DropFront(std::size_t count);
  const std::vector<Stretch>& StandingOut() const { return standingOut_; }
  /// Selection in UTF-8 code units, from the start of the text. What the user selects in a text for reading
  /// is the user's own and not told here.
  std::size_t SelStart() const { return selStart_; }
  std::size_t SelLength() const { return selLength_; }
  void SetSelection(std::size_t start, std::size_t length);
  /// Puts the caret behind the last character and brings that into view; not where the user has scrolled
  /// away from the end of a text for reading.
  void CaretToEnd() { SetSelection(text_.size(), 0); }
  /// Grows whenever the text becomes another one, so that a view knows when to take it anew.
  int Rewrites() const { return rewrites_; }
  /// Code units that have been taken away from the beginning so far.
  std::size_t Dropped() const { return dropped_; }
  Event<> Change;
  /// A key that was pressed in a text for typing has been released. kEnterKey, the character of a letter (in
  /// capitals) or a digit, or 0 for any other key.
  Event<int> KeyUp;
  /// Ctrl with the arrow up, -1, or down, 1, has been pressed in a text for typing.
  Event<int> CtrlArrow;

  /// The user replaces what stands in it; a text for reading refuses.
  void Type(const std::string& text);
  /// The user presses and releases a key. What it types is Type's business.
  void ReleaseKey(int code);
  void PressCtrlArrow(int direction);

 private:
  Use use_;
  std::string text_;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
  std::vector<Stretch> standingOut_;
  int rewrites_ = 0;
  std::size_t dropped_ = 0;
};

}  // namespace kavr6
