#include "platform/controls.h"

#include <algorithm>
#include <utility>

#include "platform/form.h"

namespace kavr6 {

void TextBox::SetText(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  selStart_ = std::min(selStart_, text_.size());
  selLength_ = std::min(selLength_, text_.size() - selStart_);
  Refresh();
  Change.Raise();
}

void TextBox::SetSelection(std::size_t start, std::size_t length) {
  selStart_ = std::min(start, text_.size());
  selLength_ = std::min(length, text_.size() - selStart_);
  Refresh();
}

void TextBox::Type(const std::string& text) {
  if (!UserFocuses()) return;
  selStart_ = text.size();
  selLength_ = 0;
  SetText(text);
}

void ClickableControl::Press() {
  if (!Usable()) return;
  Focus();
  TakeClick();
}

void ImageButton::SetPictures(const std::string& up, const std::string& down) {
  if (up_ == up && down_ == down) return;
  up_ = up;
  down_ = down;
  Refresh();
}

bool ChoiceControl::Take(bool value) {
  if (!Assign(value_, value)) return false;
  if (picture_ != nullptr) picture_->SetFaded(!value);
  return true;
}

void ChoiceControl::IllustrateBy(Picture& picture) {
  picture_ = &picture;
  picture.SetFaded(!value_);
}

OptionButton::OptionButton(Form& form, std::string name, OptionGroup& group)
    : ChoiceControl(form, std::move(name), ControlKind::OptionButton), group_(group) {
  group_.members_.push_back(this);
}

void OptionButton::SetValue(bool value) {
  if (Value() == value) return;
  if (value) {
    for (OptionButton* other : group_.members_) other->Take(false);
  }
  Take(value);
  if (value) Clicked.Raise();
}

void ListBox::Clear() {
  items_.clear();
  listIndex_ = -1;
  ++revision_;
  Refresh();
}

void ListBox::AddItem(const std::string& item, int data) {
  items_.push_back({item, data, {}, {}});
  ++revision_;
  Refresh();
}

void ListBox::SetItems(const std::vector<std::string>& items, const std::vector<std::string>& notes) {
  items_.clear();
  for (const std::string& item : items) items_.push_back({item, 0, {}, {}});
  for (std::size_t row = 0; row < notes.size(); ++row) items_.at(row).note = notes[row];
  listIndex_ = -1;
  ++revision_;
  Refresh();
}

const ListBox::Row& ListBox::At(int index) const {
  if (index < 0 || index >= Count()) RaiseInvalidProperty();
  return items_[static_cast<std::size_t>(index)];
}

const std::string& ListBox::Item(int index) const { return At(index).text; }
int ListBox::ItemData(int index) const { return At(index).data; }
const std::string& ListBox::ItemToolTip(int index) const { return At(index).toolTip; }

void ListBox::SetItemToolTip(int index, const std::string& text) {
  if (At(index).toolTip == text) return;
  items_[static_cast<std::size_t>(index)].toolTip = text;
  ++noteRevision_;
  Refresh();
}

const std::string& ListBox::ItemNote(int index) const { return At(index).note; }

void ListBox::SetItemNote(int index, const std::string& text) {
  if (At(index).note == text) return;
  items_[static_cast<std::size_t>(index)].note = text;
  ++noteRevision_;
  Refresh();
}

void ListBox::SetListIndex(int index) {
  if (index != -1) At(index);
  if (Assign(listIndex_, index) && index != -1) Clicked.Raise();
}

std::string ListBox::Text() const { return listIndex_ < 0 ? std::string() : At(listIndex_).text; }

void ListBox::Select(int index) {
  if (!UserFocuses()) return;
  if (index == listIndex_ && index != -1) {
    ClickedAgain.Raise();
  } else {
    SetListIndex(index);
  }
}

void ListBox::Open() {
  if (UserFocuses()) DropDown.Raise();
}

void ListBox::DoubleClick(int index) {
  if (!UserFocuses()) return;
  SetListIndex(index);
  if (Usable() && Owner().Visible()) DoubleClicked.Raise();
}

bool Slider::Take(int value) { return Assign(value_, std::clamp(value, range_.min, range_.max)); }

void Slider::SetValue(int value) {
  if (Take(value)) Change.Raise();
}

void Slider::SetRange(const SliderRange& range, int value) {
  const bool moved = std::exchange(value_, std::clamp(value, range.min, range.max)) != value_;
  if (moved || range_ != range) {
    range_ = range;
    Refresh();
  }
  if (moved) Change.Raise();
}

void Slider::Scroll(int value) {
  if (!UserFocuses()) return;
  const int before = value_;
  if (!Take(value)) return;
  Scrolled.Raise();
  // A handler of Scrolled that has put the slider elsewhere has raised Change for that place already.
  if (value_ != before && value_ == std::clamp(value, range_.min, range_.max)) Change.Raise();
}

void PercentPanel::SetFloodPercent(int percent) { Assign(percent_, std::clamp(percent, 0, 100)); }

Timer::~Timer() {
  if (waiting_) Owner().Desk().Cancel(pending_);
}

void Timer::SetInterval(int milliseconds) {
  if (interval_ == milliseconds) return;
  interval_ = milliseconds;
  Restart();
}

void Timer::Restart() {
  if (waiting_) Owner().Desk().Cancel(pending_);
  waiting_ = Enabled() && interval_ > 0;
  if (waiting_) pending_ = Owner().Desk().CallAfter(interval_ / 1000.0, [this] { Fire(); });
}

void Timer::Fire() {
  waiting_ = false;
  Restart();
  if (running_) return;
  running_ = true;
  try {
    Tick.Raise();
  } catch (...) {
    running_ = false;
    throw;
  }
  running_ = false;
}

}  // namespace kavr6
