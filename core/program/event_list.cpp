#include "core/program/event_list.h"

#include <string_view>

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
  // What the user has selected stays while lines go at the front and come at the end.
  const std::string text = Text();
  std::size_t gone = 0;
  while (!text.starts_with(std::string_view(Events.Text()).substr(gone)))
    gone = Events.Text().find('\n', gone) + 1;
  Events.DropFront(gone);
  Events.Append(text.substr(Events.Text().size()));
  Events.CaretToEnd();
}

}  // namespace kavr6
