// The words of a drive's text language that do something or tell something.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "simulator/drive_works.h"

namespace kavr6 {

/// What a word may need.
struct TextSession {
  DriveWorks& works;

  bool hexadecimal = true;  ///< answers to immediate requests; outlives a restart

  // The line and the store, from outside.
  std::function<void()> Leave = {};    ///< text mode is over
  std::function<void()> PowerUp = {};  ///< restart of the drive
  std::function<void()> Save = {};     ///< the registers go into the store

  // The buffer of commands that wait their turn.
  std::function<void()> Kill = {};
  std::function<void(bool)> Pause = {};
  std::function<void(double seconds)> Wait = {};
  std::function<void(const InputCondition&)> WaitInput = {};
  std::function<int()> FreePlaces = {};
  std::function<int()> WaitBits = {};  ///< of the status word
};

/// One command: two letters, and a row that does what they and the text behind them say. Its answer is
/// without the end; kNothing: it has none, kRefusal: the command cannot be done.
struct TextCommand {
  using Run = std::string (*)(TextSession& session, const std::string& argument);
  std::string_view letters;
  bool buffered;  ///< waits its turn behind the moves before it
  Run run;
  std::string_view end = "\r";  ///< of the answer
};

inline constexpr std::string_view kNothing{};
inline constexpr std::string_view kRefusal = "?";

/// The whole of a text as a number.
std::optional<double> NumberOf(std::string_view text);

/// What moves, waits, sets and stores; what only tells.
std::span<const TextCommand> TextActions();
std::span<const TextCommand> TextReadings();

}  // namespace kavr6
