// The smoothing wizard opened again and again, with any bytes at any moment, also where it awaits an answer,
// and a user who does anything. Input: groups of an order (what is done, and a number for it) and its bytes.
#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "fuzz/link_scene.h"
#include "tools/harmonizer.h"

namespace {

using namespace kavr6;

constexpr double kSecondsPerUnit = 0.03;

struct Editor : Form {
  using Form::Form;
  Slider SliderGain{*this, "SliderGain", {0, 3000, 10, 100, 500}};
  Slider SliderPhase{*this, "SliderPhase", {-128, 128, 1, 10, 32}};
  TextBox txtDriveCurrent{*this, "txtDriveCurrent"};
};

struct Session : LinkScene<> {
  std::span<const std::uint8_t> rest;
  Editor editor{*this, "EditMotor"};
  Harmonizer wizard{line, {editor, editor.SliderGain, editor.SliderPhase, editor.txtDriveCurrent}};
  bool replugged = true;

  explicit Session(std::span<const std::uint8_t> orders) : rest(orders) {
    RecordRefusals();
    Serve(wizard);
    editor.Show();
  }

  void Play() {
    CallAfter(0.01, [this] { Next(); });
    do {
      wizard.ShowModal();
      RequireLineGivenBack();
      Require(wizard.Silence.Caption().empty() && !wizard.SilenceClock.Enabled(), "nothing is due");
      const std::string written = comm.TakeWritten();
      const std::size_t end = written.rfind("QT\r");
      Require(!comm.PortOpen() || replugged || end != std::string::npos, "the session is ended");
      Require(end == std::string::npos || written.find("PR1", end) == std::string::npos, "nothing follows");
      replugged = false;
    } while (!rest.empty());
    Delay(*this, 5.0);
    Require(comm.TakeWritten().find("PR1") == std::string::npos, "a closed wizard is quiet");
  }

  void Plug() {
    comm.SetPortOpen(true);
    replugged = true;
  }

  void Next() {
    if (rest.empty()) return wizard.Cancel.Click();
    const unsigned order = TakeBytes(rest, 1)[0];
    Do(order & 7, order >> 3);
    CallAfter((order >> 3) * kSecondsPerUnit / 4, [this] { Next(); });
  }

  void Do(unsigned what, unsigned number) {
    switch (what) {
      case 0:
        return comm.Feed(TakeBytes(rest, number));
      case 1:
        return comm.Feed(TakeBytes(rest, 4), number * kSecondsPerUnit);
      case 2: {
        const Bytes answer = TakeBytes(rest, number / 3);
        return comm.Reply(std::array{"HG\r", "HP\r", "CM\r"}.at(number % 3),
                          std::string(answer.begin(), answer.end()));
      }
      case 3:
        return wizard.Start.Click();
      case 4:
        return wizard.NextDone.Click();
      case 5:
        return number % 2 == 0 ? wizard.Cancel.Click() : wizard.RequestClose();
      case 6:
        return wizard.ParamSlider.Scroll(static_cast<int>(number) * 100 - 128);
      default:
        return comm.PortOpen() ? comm.Unplug() : Plug();
    }
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Session({data, size}).Play();
  return 0;
}
