// The list of what happened last.
#pragma once

#include "core/news.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/text_area.h"

namespace kavr6 {

/// Window "EventList": the newest of what happened, a line each, the oldest first, to read and to copy. While
/// it is open it goes on.
class EventList : public Form {
 public:
  /// Both outlive the window.
  EventList(const Form& over, const News& news);

  Label EventsKept{*this, "EventsKept"};
  TextArea Events{*this, "Events", TextArea::Use::Read};
  Button Copy{*this, "Copy", "Copy All"};
  Button OK{*this, "OK", "Close", Button::Role::Cancel};

  /// There is something new.
  void Follow();

 protected:
  void Load() override { CenterOn(over_, *this); }

 private:
  std::string Text() const;

  const Form& over_;
  const News& news_;
};

}  // namespace kavr6
