#include "simulator/command_interpreter.h"

#include <utility>

namespace kavr6 {

void CommandInterpreter::Add(std::string text, std::size_t argumentBytes, Run run) {
  commands_.insert_or_assign(std::move(text), Command{argumentBytes, std::move(run)});
}

void CommandInterpreter::SetTextMode(bool on) {
  textMode_ = on;
  pending_.clear();
}

void CommandInterpreter::Take(std::uint8_t byte) {
  if (scheduler_.Now() - lastByteAt_ > kPause && !pending_.empty())
    Report(std::exchange(pending_, {}), false);
  lastByteAt_ = scheduler_.Now();
  if (textMode_) {
    TakeText(static_cast<char>(byte));
    return;
  }
  pending_ += static_cast<char>(byte);
  while (!pending_.empty() && TryCommand() == Progress::None) {
    Report(pending_.substr(0, 1), false);
    pending_.erase(0, 1);
  }
}

CommandInterpreter::Progress CommandInterpreter::TryCommand() {
  for (const auto& [text, command] : commands_) {
    if (pending_.size() < text.size() ? text.starts_with(pending_) : pending_.starts_with(text)) {
      if (pending_.size() < text.size() + command.argumentBytes) return Progress::Begun;
      // The command may change the mode or restart the drive, so it works on copies.
      const std::string whole = std::exchange(pending_, {});
      const Run run = command.run;
      Report(whole, true);
      run(std::span(reinterpret_cast<const std::uint8_t*>(whole.data()), whole.size()).subspan(text.size()));
      return Progress::Done;
    }
  }
  return Progress::None;
}

void CommandInterpreter::TakeText(char c) {
  if (c == '\n') return;
  if (c != '\r') {
    if (pending_.size() < kLongestLine) pending_ += c;
    return;
  }
  const std::string line = std::exchange(pending_, {});
  if (line.empty()) return;
  Report(line + '\r', true);
  if (TextLine) TextLine(line);
}

}  // namespace kavr6
