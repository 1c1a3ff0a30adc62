#include "core/program/event_list.h"

namespace kavr6 {

EventList::EventList(const Form& over, const News& news)
    : Form(over.Desk(), "EventList"), over_(over), news_(news) {
  SetCaption("What Happened Last");
  EventsKept.SetCaption("The last " + std::to_string(News::kKept) +
                        ", the newest at the end.  Nothing is stored.");
  Activate.Set([this] { Follow(); });
  Copy.Clicked.Set([this] { Desk().CopyText(Text()); });
  OK.Clicked.Set([this] { Hide(); });
}

std::string EventList::Text() const {
  std::string text;
  for (const std::string& line : news_.Lines()) text += line + "\r\n";
  return text;
}

void EventList::Follow() {
  if (!Visible()) return;
  Events.SetText(Text());
  Events.CaretToEnd();
}

}  // namespace kavr6
