#include "command_line/console.h"

#include <array>
#include <string_view>

#include "image/transfers.h"

namespace kavr6 {
namespace {

struct AnswerOption {
  std::string_view title;
  std::string_view option;
};
/// What answers a question with yes.
constexpr std::array kAnswers{AnswerOption{kInertiaQuestion, "--accept-unset-inertia"}};

}  // namespace

void ConsoleBoxes::Tell(const std::string& text) {
  messages_ << "kavr6: ";
  for (const char c : text) messages_ << (c == '\n' ? ' ' : c);
  messages_ << (text.ends_with('.') || text.ends_with('?') ? "\n" : ".\n") << std::flush;
}

BoxAnswer ConsoleBoxes::Ask(const MessageBox& box) {
  if (box.buttons == BoxButtons::Ok) {
    Tell(box.text);
    return BoxAnswer::Ok;
  }
  const bool yesNo = box.buttons == BoxButtons::YesNo;
  if (!box.title.empty() && box.title == accepted_) return yesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
  std::string text = box.text;
  for (const AnswerOption& answer : kAnswers)
    if (box.title == answer.title) text += "  If so, say " + std::string(answer.option) + ".";
  Tell(text);
  return yesNo ? BoxAnswer::No : BoxAnswer::Cancel;
}

}  // namespace kavr6
