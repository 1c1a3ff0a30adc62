// The control models that windows are made of.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/scheduler.h"

namespace kavr6 {

/// 0xBBGGRR: red in the low byte.
using Colour = int;
inline constexpr Colour kGreen = 49152;

class Label : public Control {
 public:
  Label(Form& form, std::string name, std::string caption = {})
      : Control(form, std::move(name), ControlKind::Label), caption_(std::move(caption)) {}
  /// A doubled ampersand stands for one shown ampersand.
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption) { Assign(caption_, caption); }

 private:
  std::string caption_;
};

/// A part of a window. What it holds is hidden and disabled with it; frames may hold frames.
class Frame : public Control {
 public:
  Frame(Form& form, std::string name) : Control(form, std::move(name), ControlKind::Frame) {}
  /// Puts controls of the same form into this frame.
  void Hold(std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->frame_ = this;
  }
  /// Empty: the design's own heading, if it has one, stays.
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption) { Assign(caption_, caption); }

 private:
  std::string caption_;
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name) : Control(form, std::move(name), ControlKind::TextBox) {}
  const std::string& Text() const { return text_; }
  void SetText(const std::string& text);
  /// Selection in characters of UTF-8 code units, from the start of the text.
  std::size_t SelStart() const { return selStart_; }
  std::size_t SelLength() const { return selLength_; }
  void SetSelection(std::size_t start, std::size_t length);
  /// Happens on every entry.
  void SelectAllText() { SetSelection(0, text_.size()); }
  Event<> Change;

  /// The user enters the field and replaces what stands in it.
  void Type(const std::string& text);

 protected:
  void Entered() override { SelectAllText(); }

 private:
  std::string text_;
  std::size_t selStart_ = 0;
  std::size_t selLength_ = 0;
};

/// What can be clicked. Takes the focus before the click counts.
class ClickableControl : public Control {
 public:
  using Control::Control;
  Event<> Clicked;
  /// The user clicks.
  void Click() {
    if (UserFocuses()) TakeClick();
  }
  /// Does what a click does, without a user: no window comes to the front, and it does not matter what stands
  /// before this one. Does nothing while the control is disabled or hidden.
  void Press();

 protected:
  virtual void TakeClick() { Clicked.Raise(); }
};

class Button : public ClickableControl {
 public:
  enum class Role { Plain, Default, Cancel };
  Button(Form& form, std::string name, std::string caption = {}, Role role = Role::Plain)
      : ClickableControl(form, std::move(name), ControlKind::Button),
        caption_(std::move(caption)),
        role_(role) {}
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption) { Assign(caption_, caption); }
  /// The default button is clicked by Enter, the cancel button by Esc.
  Role ButtonRole() const { return role_; }
  /// Why this button stands out among its like, such as "in use"; empty when it does not.
  const std::string& Mark() const { return mark_; }
  void SetMark(const std::string& words) { Assign(mark_, words); }

 private:
  std::string caption_;
  std::string mark_;
  Role role_;
};

/// A button that is a picture, with another picture while it is pressed. Pictures are named as in the
/// artwork.
class ImageButton : public ClickableControl {
 public:
  ImageButton(Form& form, std::string name, std::string up, std::string down)
      : ClickableControl(form, std::move(name), ControlKind::ImageButton),
        up_(std::move(up)),
        down_(std::move(down)) {}
  /// The picture on show.
  const std::string& Picture() const { return pressed_ ? down_ : up_; }
  void SetPictures(const std::string& up, const std::string& down);
  void MouseDown() {
    if (UserReaches()) Assign(pressed_, true);
  }
  void MouseUp() { Assign(pressed_, false); }

 private:
  std::string up_;
  std::string down_;
  bool pressed_ = false;
};

class HotSpot : public ClickableControl {
 public:
  HotSpot(Form& form, std::string name) : ClickableControl(form, std::move(name), ControlKind::HotSpot) {}
};

/// A menu command. It does not take the focus.
class MenuItem : public Control {
 public:
  MenuItem(Form& form, std::string name, std::string caption)
      : Control(form, std::move(name), ControlKind::MenuItem), caption_(std::move(caption)) {}
  const std::string& Caption() const { return caption_; }
  Event<> Clicked;
  /// The user chooses the command, in the menu or by its shortcut.
  void Click() {
    if (UserReaches()) Clicked.Raise();
  }
  /// Does what a click does, without a user; see ClickableControl::Press.
  void Press() {
    if (Usable()) Clicked.Raise();
  }

 private:
  std::string caption_;
};

/// A named picture of the artwork; an empty name shows nothing.
class Picture : public Control {
 public:
  Picture(Form& form, std::string name, std::string image = {})
      : Control(form, std::move(name), ControlKind::Picture), image_(std::move(image)) {}
  const std::string& Image() const { return image_; }
  void SetImage(const std::string& image) { Assign(image_, image); }
  /// Shown faintly: it belongs to a choice that is not made.
  bool Faded() const { return faded_; }
  void SetFaded(bool faded) { Assign(faded_, faded); }

 private:
  std::string image_;
  bool faded_ = false;
};

/// What is set or not set.
class ChoiceControl : public ClickableControl {
 public:
  using ClickableControl::ClickableControl;
  bool Value() const { return value_; }
  /// The picture is faded from now on while this is not set. It lives as long as the control.
  void IllustrateBy(Picture& picture);

 protected:
  bool Take(bool value);

 private:
  bool value_ = false;
  Picture* picture_ = nullptr;
};

class CheckBox : public ChoiceControl {
 public:
  CheckBox(Form& form, std::string name) : ChoiceControl(form, std::move(name), ControlKind::CheckBox) {}
  void SetValue(bool value) {
    if (Take(value)) Clicked.Raise();
  }

 private:
  void TakeClick() override { SetValue(!Value()); }
};

class OptionButton;

/// The option buttons of which one at most is set.
class OptionGroup {
 private:
  friend class OptionButton;
  std::vector<OptionButton*> members_;
};

class OptionButton : public ChoiceControl {
 public:
  OptionButton(Form& form, std::string name, OptionGroup& group);
  const OptionGroup& Group() const { return group_; }
  /// Setting it clears the others of the group without a click of theirs, then raises its own.
  void SetValue(bool value);

 private:
  void TakeClick() override { SetValue(true); }

  OptionGroup& group_;
};

/// A list or a drop-down list.
class ListBox : public Control {
 public:
  ListBox(Form& form, std::string name) : Control(form, std::move(name), ControlKind::ListBox) {}
  void Clear();
  void AddItem(const std::string& item, int data = 0);
  /// Replaces all rows at once, which is quick however many they are; none is selected. There are as many
  /// notes as rows, or none.
  void SetItems(const std::vector<std::string>& items, const std::vector<std::string>& notes = {});
  int Count() const { return static_cast<int>(items_.size()); }
  /// `index` from 0 to Count() - 1, else RuntimeError.
  const std::string& Item(int index) const;
  int ItemData(int index) const;
  const std::string& ItemToolTip(int index) const;
  void SetItemToolTip(int index, const std::string& text);
  /// What stands beside a row's text and is no part of it.
  const std::string& ItemNote(int index) const;
  void SetItemNote(int index, const std::string& text);
  /// -1: nothing is selected.
  int ListIndex() const { return listIndex_; }
  /// From -1 to Count() - 1, else RuntimeError. A change raises Clicked, unless it takes the selection away.
  void SetListIndex(int index);
  /// Text of the selected row, empty without one.
  std::string Text() const;
  /// Grows with every change of the rows, so that a view knows when to fill itself again.
  int Revision() const { return revision_; }
  /// The same for notes and tool tips of the rows.
  int NoteRevision() const { return noteRevision_; }
  Event<> Clicked;
  Event<> DoubleClicked;
  /// The user has picked the row that is selected already.
  Event<> ClickedAgain;
  /// The rows of a drop-down list are about to be shown to the user, and have been put away.
  Event<> DropDown;
  Event<> CloseUp;

  /// The user picks a row; it must be there.
  void Select(int index);
  /// The user opens the drop-down list; whoever shows it closes it.
  void Open();
  void Close() { CloseUp.Raise(); }
  /// A click on the row and, unless its handler has taken the list away, another one.
  void DoubleClick(int index);

 private:
  struct Row {
    std::string text;
    int data = 0;
    std::string toolTip;
    std::string note;
  };
  const Row& At(int index) const;

  std::vector<Row> items_;
  int listIndex_ = -1;
  int revision_ = 0;
  int noteRevision_ = 0;
};

struct SliderRange {
  int min = 0;
  int max = 10;
  int smallStep = 1;
  int largeStep = 5;
  int tickSpacing = 1;
  bool operator==(const SliderRange&) const = default;
};

class Slider : public Control {
 public:
  Slider(Form& form, std::string name, SliderRange range)
      : Control(form, std::move(name), ControlKind::Slider), range_(range), value_(range.min) {}
  const SliderRange& Range() const { return range_; }
  /// Range and value at once: Change comes once at most, with both in place. The value is clamped.
  void SetRange(const SliderRange& range, int value);
  void SetRange(const SliderRange& range) { SetRange(range, value_); }
  int Value() const { return value_; }
  /// A value beyond the range is brought to its nearer end.
  void SetValue(int value);
  Event<> Change;
  /// Raised before Change, and only by a user's move.
  Event<> Scrolled;
  /// The user moves the slider.
  void Scroll(int value);

 private:
  bool Take(int value);

  SliderRange range_;
  int value_;
};

class Lamp : public Control {
 public:
  enum class State { Off, Green, Yellow, Red, Orange };
  Lamp(Form& form, std::string name) : Control(form, std::move(name), ControlKind::Lamp) {}
  State Light() const { return light_; }
  void SetLight(State light) { Assign(light_, light); }

 private:
  State light_ = State::Off;
};

/// A bar from 0 to 100 percent.
class PercentPanel : public Control {
 public:
  PercentPanel(Form& form, std::string name) : Control(form, std::move(name), ControlKind::PercentPanel) {}
  int FloodPercent() const { return percent_; }
  /// Held within 0 to 100.
  void SetFloodPercent(int percent);
  Colour FloodColor() const { return colour_; }
  void SetFloodColor(Colour colour) { Assign(colour_, colour); }

 private:
  int percent_ = 0;
  Colour colour_ = kGreen;
};

/// A line on the drive picture from a connector to the part of the setup that it stands for.
class ConnectorLine : public Control {
 public:
  ConnectorLine(Form& form, std::string name) : Control(form, std::move(name), ControlKind::ConnectorLine) {}
  Colour BorderColor() const { return colour_; }
  void SetBorderColor(Colour colour) { Assign(colour_, colour); }
  /// Not so: its end hangs loose before the connector.
  bool Plugged() const { return plugged_; }
  void SetPlugged(bool plugged) { Assign(plugged_, plugged); }

 private:
  bool plugged_ = true;
  Colour colour_ = 0x808080;
};

/// Beats in step with its interval while it is enabled and that is above 0, however long its handler takes; a
/// beat that falls while the handler still runs is left out. Enabling it and changing the interval start the
/// interval anew.
class Timer : public Control {
 public:
  Timer(Form& form, std::string name) : Control(form, std::move(name), ControlKind::Timer) {}
  ~Timer() override;
  /// Milliseconds.
  int Interval() const { return interval_; }
  void SetInterval(int milliseconds);
  Event<> Tick;

 private:
  void EnabledChanged() override { Restart(); }
  void Restart();
  void Fire();

  int interval_ = 0;
  Scheduler::TaskId pending_ = 0;
  bool waiting_ = false;
  bool running_ = false;
};

}  // namespace kavr6
