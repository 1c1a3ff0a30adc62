#include "simulator/text_language.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <utility>

#include "core/numbers.h"
#include "core/serial_protocol.h"
#include "core/status_word.h"

namespace kavr6 {
namespace {

constexpr std::string_view kAccepted = "%";

const TextCommand* FindCommand(std::string_view letters) {
  for (const auto& table : {TextReadings(), TextActions()})
    for (const TextCommand& command : table)
      if (command.letters == letters) return &command;
  return nullptr;
}

bool IsReading(std::string_view letters) {
  const auto readings = TextReadings();
  return std::any_of(readings.begin(), readings.end(),
                     [&](const TextCommand& reading) { return reading.letters == letters; });
}

}  // namespace

TextLanguage::TextLanguage(DriveWorks& works, std::function<void(const std::string&)> answer)
    : works_(works), answer_(std::move(answer)), session_{.works = works} {
  session_.Kill = [this] { Kill(); };
  session_.Pause = [this](bool on) {
    paused_ = on;
    RunBuffer();
  };
  session_.Wait = [this](double seconds) { Wait(seconds); };
  session_.WaitInput = [this](const InputCondition& condition) { WaitInput(condition); };
  session_.FreePlaces = [this] { return static_cast<int>(kPlaces - buffer_.size()); };
  session_.WaitBits = [this] { return WaitBits(); };
  works_.motor.CameToRest = [this](bool aborted) {
    if (aborted) Kill();
    RunBuffer();
  };
}

TextLanguage::~TextLanguage() { works_.scheduler.Cancel(waitEnd_); }

TextLanguage::Line TextLanguage::Split(const std::string& line) {
  std::string text = line;
  const bool literal = text.size() > 1 && std::toupper(text[0]) == 'S' && std::toupper(text[1]) == 'S';
  const auto end = literal ? text.begin() + 2 : text.end();
  std::transform(text.begin(), end, text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  if (text.size() < 2) return {text, {}};
  return {text.substr(0, 2), text.substr(2)};
}

bool TextLanguage::Asks(const std::string& line) {
  const Line parts = Split(line);
  if (parts.letters == "IF") return parts.argument.empty();
  return IsReading(parts.letters) || (parts.argument.empty() && Registers::Find(parts.letters) != nullptr);
}

bool TextLanguage::Buffered(const Line& line) {
  if (const TextCommand* command = FindCommand(line.letters)) return command->buffered;
  const Register* row = Registers::Find(line.letters);
  return row != nullptr && row->buffered && !line.argument.empty();
}

void TextLanguage::Take(const std::string& text) {
  const Line line = Split(text);
  if (!Buffered(line) || (buffer_.empty() && !HeldUp())) return Tell(Execute(line));
  const bool full = buffer_.size() == kPlaces;
  if (!full) buffer_.push_back(line);
  Tell({std::string(full ? kRefusal : kNothing)});
}

TextLanguage::Answer TextLanguage::Execute(const Line& line) {
  if (const TextCommand* command = FindCommand(line.letters))
    return {command->run(session_, line.argument), command->end};
  const Register* row = Registers::Find(line.letters);
  return {row != nullptr ? Value(*row, line.argument) : std::string(kRefusal)};
}

std::string TextLanguage::Value(const Register& row, const std::string& argument) {
  if (argument.empty()) {
    const double told = std::round(works_.registers[row.letters] * 1000) / 1000;
    return std::string(row.letters) + "=" + NumberText(told);
  }
  const auto value = NumberOf(argument);
  if (!value || *value < row.least || *value > row.most || (row.whole && *value != std::round(*value)))
    return std::string(kRefusal);
  works_.registers.Set(row.letters, *value);
  return {};
}

void TextLanguage::Tell(const Answer& answer) {
  const int protocol = static_cast<int>(works_.registers["PR"]);
  if (answer.text.empty() && (protocol & kAckNak) == 0) return;
  std::string bytes = answer.text.empty() ? std::string(kAccepted) : answer.text;
  if ((protocol & kAddressPrefix) != 0 && !answer.end.empty())
    bytes.insert(bytes.begin(), static_cast<char>(static_cast<int>(works_.registers[kAddress])));
  answer_(bytes.append(answer.end));
}

int TextLanguage::WaitBits() const {
  return (waiting_ ? StatusMask("Wait Time") : 0) | (awaited_ ? StatusMask("Wait Input") : 0);
}

void TextLanguage::Kill() {
  buffer_.clear();
  paused_ = waiting_ = false;
  awaited_.reset();
  works_.scheduler.Cancel(waitEnd_);
}

// A command that has waited has been acknowledged; what it has to tell comes now.
void TextLanguage::RunBuffer() {
  while (!buffer_.empty() && !HeldUp()) {
    const Line line = std::move(buffer_.front());
    buffer_.pop_front();
    const Answer answer = Execute(line);
    if (!answer.text.empty()) Tell(answer);
  }
}

void TextLanguage::Wait(double seconds) {
  waiting_ = true;
  waitEnd_ = works_.scheduler.CallAfter(seconds, [this] {
    waiting_ = false;
    RunBuffer();
  });
}

void TextLanguage::WaitInput(const InputCondition& condition) {
  if (!condition.Holds(works_.terminals, false)) awaited_ = condition;
}

void TextLanguage::InputChanged(std::size_t input) {
  if (!awaited_ || awaited_->input != input || !awaited_->Holds(works_.terminals, true)) return;
  awaited_.reset();
  RunBuffer();
}

}  // namespace kavr6
