// The smoothing wizard opened again and again, with any bytes at any moment, also where it awaits an answer,
// and a user who does anything. Input: groups of an order (what is done, and a number for it) and its bytes.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

#include "core/drive_state.h"
#include "link/receive_path.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/scripted_comm.h"
#include "tools/harmonizer.h"

namespace {

using namespace kavr6;

constexpr double kSecondsPerUnit = 0.03;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

struct Editor : Form {
  using Form::Form;
  Slider SliderGain{*this, "SliderGain", {0, 3000, 10, 100, 500}};
  Slider SliderPhase{*this, "SliderPhase", {-128, 128, 1, 10, 32}};
  TextBox txtDriveCurrent{*this, "txtDriveCurrent"};
};

class Session {
 public:
  explicit Session(std::span<const std::uint8_t> orders) : rest_(orders) {
    desktop_.RecordRefusals();
    desktop_.AnswerAnything();
    Plug();
    comm_.SetRThreshold(1);
    path_.FrontWindow = [this] { return desktop_.ActiveFormName(); };
    path_.AddLiveTool(wizard_.Name(), [this](std::uint8_t byte) { wizard_.Take(byte); });
    editor_.Show();
  }

  void Play() {
    desktop_.CallAfter(0.01, [this] { Next(); });
    do {
      wizard_.ShowModal();
      Require(!state_.LiveToolActive, "the line is given back");
      Require(comm_.RThreshold() == 1, "the receive path hears the line again");
      Require(wizard_.Silence.Caption().empty() && !wizard_.SilenceClock.Enabled(), "nothing is due");
      const std::string written = comm_.TakeWritten();
      const std::size_t end = written.rfind("QT\r");
      Require(!comm_.PortOpen() || replugged_ || end != std::string::npos, "the session is ended");
      Require(end == std::string::npos || written.find("PR1", end) == std::string::npos, "nothing follows");
      replugged_ = false;
    } while (!rest_.empty());
    Delay(desktop_, 5.0);
    Require(comm_.TakeWritten().find("PR1") == std::string::npos, "a closed wizard is quiet");
  }

 private:
  void Plug() {
    comm_.SetPortOpen(true);
    replugged_ = true;
  }

  Bytes Take(std::size_t count) {
    const auto taken = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.subspan(taken.size());
    return {taken.begin(), taken.end()};
  }

  void Next() {
    if (rest_.empty()) return wizard_.Cancel.Click();
    const unsigned order = Take(1)[0];
    Do(order & 7, order >> 3);
    desktop_.CallAfter((order >> 3) * kSecondsPerUnit / 4, [this] { Next(); });
  }

  void Do(unsigned what, unsigned number) {
    switch (what) {
      case 0:
        return comm_.Feed(Take(number));
      case 1:
        return comm_.Feed(Take(4), number * kSecondsPerUnit);
      case 2: {
        const Bytes answer = Take(number / 3);
        return comm_.Reply(std::array{"HG\r", "HP\r", "CM\r"}.at(number % 3),
                           std::string(answer.begin(), answer.end()));
      }
      case 3:
        return wizard_.Start.Click();
      case 4:
        return wizard_.NextDone.Click();
      case 5:
        return number % 2 == 0 ? wizard_.Cancel.Click() : wizard_.RequestClose();
      case 6:
        return wizard_.ParamSlider.Scroll(static_cast<int>(number) * 100 - 128);
      default:
        return comm_.PortOpen() ? comm_.Unplug() : Plug();
    }
  }

  std::span<const std::uint8_t> rest_;
  HeadlessDesktop desktop_;
  ScriptedComm comm_{desktop_};
  DriveState state_;
  DriveLine line_{state_, comm_, desktop_, desktop_};
  ReceivePath path_{line_};
  Editor editor_{desktop_, "EditMotor"};
  Harmonizer wizard_{line_, {editor_, editor_.SliderGain, editor_.SliderPhase, editor_.txtDriveCurrent}};
  bool replugged_ = false;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Session({data, size}).Play();
  return 0;
}
