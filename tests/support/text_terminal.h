// A terminal at a simulated drive that speaks its text language.
#pragma once

#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "platform/headless/headless_desktop.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {

/// A KAVR6-Zu with a terminal at its line, in virtual time.
class TextTerminal {
 public:
  TextTerminal() {
    drive_.SetIdentity(52, 43, 'k');
    comm_.Connect(1, &drive_);
    comm_.SetPortOpen(true);
  }

  /// What comes back within a twentieth of a second after a line, or within the time of an order: printable
  /// as it is, ends of lines as bars, other bytes as hexadecimal digits in brackets.
  std::string Do(const std::string& line) {
    if (line.starts_with("@ ")) {
      Order(line.substr(2));
    } else {
      Say(line + "\r", 0.05);
    }
    std::ostringstream shown;
    for (const std::uint8_t byte : std::exchange(heard_, {})) {
      if (byte == '\r') {
        shown << '|';
      } else if (byte >= ' ' && byte <= '~') {
        shown << byte;
      } else {
        shown << '<' << std::hex << std::uppercase << int{byte} << std::dec << '>';
      }
    }
    return shown.str();
  }

 private:
  /// Printable ones as they are, others as hexadecimal digits in brackets.
  static std::string BytesOf(const std::string& text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
      if (text[at] != '<') {
        bytes += text[at];
        continue;
      }
      bytes += static_cast<char>(std::stoi(text.substr(at + 1), nullptr, 16));
      at = text.find('>', at);
    }
    return bytes;
  }
  void Say(std::string_view bytes, double seconds) {
    comm_.Output(bytes);
    Delay(desktop_, seconds);
    for (const std::uint8_t byte : comm_.Input()) heard_.push_back(byte);
  }
  void Order(const std::string& text) {
    std::istringstream words(text);
    std::string word, what;
    words >> word >> what;
    if (word == "later") return Say("", std::stod(what));
    if (word == "bytes") return Say(BytesOf(what), 0.05);
    if (word == "volts") drive_.SetVolts(std::stod(what));
    if (word == "encoder") drive_.SetEncoder(std::stol(what));
    if (word == "shaft") drive_.SetStalled(what == "held");
    if (word == "alarm") drive_.RaiseAlarm(std::stoi(what, nullptr, 16));
    if (word == "model") drive_.SetIdentity(52, std::stoi(what), 'k');
    if (word == "alarms") drive_.SetAlarmSticking(what == "stick");
    if (word == "restart") drive_.Restart();
    if (const auto input = DriveTerminals::InputOf(word)) drive_.SetInput(*input, what == "high");
    Say("", 0.05);
  }

  HeadlessDesktop desktop_;
  SimulatedDrive drive_{desktop_.Line()};
  SimulatedComm comm_{desktop_, desktop_.Line()};
  Bytes heard_;
};

}  // namespace kavr6
