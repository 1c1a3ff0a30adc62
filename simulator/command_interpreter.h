// Finds the commands in the bytes that come in over a drive's line.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

#include "platform/scheduler.h"

namespace kavr6 {

/// Two modes. In command mode a command is a short text without an end mark, run as soon as it is whole,
/// together with the fixed number of raw bytes that may follow it; bytes that begin no command are dropped.
/// In text mode a command is a line closed by a carriage return; line feeds are ignored.
///
/// Whatever is unfinished when the line has been quiet for kPause is forgotten, so that a byte lost on the
/// way does not lock the drive up.
class CommandInterpreter {
 public:
  static constexpr double kPause = 0.5;  ///< seconds
  static constexpr std::size_t kLongestLine = 200;
  using Run = std::function<void(std::span<const std::uint8_t> arguments)>;

  explicit CommandInterpreter(const Scheduler& scheduler) : scheduler_(scheduler) {}

  /// Makes a command known. Of two texts where one begins the other, the shorter always wins.
  void Add(std::string text, std::size_t argumentBytes, Run run);
  /// Called with each line of text mode, without its end, unless it is empty.
  std::function<void(const std::string& line)> TextLine;
  /// Called just before a command or line is run, with all its bytes, and for bytes that are dropped.
  std::function<void(std::string_view bytes, bool known)> Heard;

  void Take(std::uint8_t byte);
  bool TextMode() const { return textMode_; }
  void SetTextMode(bool on);
  /// Command mode, nothing received.
  void Reset() { SetTextMode(false); }

 private:
  struct Command {
    std::size_t argumentBytes;
    Run run;
  };
  enum class Progress { None, Begun, Done };
  Progress TryCommand();
  void TakeText(char c);
  void Report(std::string_view bytes, bool known) const {
    if (Heard) Heard(bytes, known);
  }

  const Scheduler& scheduler_;
  std::map<std::string, Command, std::less<>> commands_;
  std::string pending_;
  double lastByteAt_ = 0.0;
  bool textMode_ = false;
};

}  // namespace kavr6
