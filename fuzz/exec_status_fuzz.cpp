// Any bytes instead of the drive's answers, while the status monitor asks, is closed and opened again.
// Input: groups of one byte with orders (the bits below) and as many bytes as its low four bits say. Each
// group comes after the next thing that the monitor writes, or after a while.
#include <cstdint>
#include <map>
#include <span>
#include <string>

#include "fuzz/link_scene.h"
#include "platform/headless/memory_files.h"
#include "tools/exec_status.h"

namespace {

using namespace kavr6;

constexpr unsigned kSizeBits = 0x0F;
constexpr unsigned kUseButton = 0x10;
constexpr unsigned kOtherWindow = 0x20;
constexpr unsigned kClose = 0x40;
constexpr unsigned kLosePort = 0x80;

/// What a drive answers that is well, with everything at work.
const std::map<std::string, std::string> kGoodAnswers{{"MN\r", "["},
                                                      {"MO\r", "MO=1\r"},
                                                      {"AO\r", "AO=2\r"},
                                                      {"BO\r", "BO=1\r"},
                                                      {"IS\r", "IS=01111110\r"},
                                                      {"IO\r", "IO=11110111\r"},
                                                      {"ISX\r", "IS=01111111\r"},
                                                      {"IOY\r", "IO=11111110\r"},
                                                      {"IV1\r", "IV=-60\r"},
                                                      {"IA\r", "IA=10\r"},
                                                      {"SC\r", "SC=0009\r"},
                                                      {"IE\r", "IE=-7\r"},
                                                      {"AL\r", "AL=2000\r"}};

class BadDrive : public ScriptedComm {
 public:
  using ScriptedComm::ScriptedComm;
  std::span<const std::uint8_t> rest;
  bool well = false;
  std::function<void(unsigned orders)> Order;

 protected:
  void Send(std::span<const std::uint8_t> bytes) override {
    const auto good = kGoodAnswers.find({bytes.begin(), bytes.end()});
    if (well && good != kGoodAnswers.end()) return Feed(good->second, 0.01);
    if (well || rest.empty()) return;
    const unsigned orders = TakeBytes(rest, 1)[0];
    Feed(TakeBytes(rest, orders & kSizeBits), 0.01);
    Order(orders);
  }
};

struct Scene : LinkScene<BadDrive> {
  Form other{*this, "Other"};
  MemoryFiles files;
  ExecStatus monitor{line, *this, files};

  Scene() {
    RecordRefusals();
    Serve(monitor);
    monitor.DeliverWaiting = [this] { path.DeliverWaiting(); };
    comm.Order = [this](unsigned orders) { CallAfter(0.005, [this, orders] { Obey(orders); }); };
  }
  void Obey(unsigned orders) {
    if ((orders & kUseButton) != 0 && ActiveFormName() == monitor.Name()) monitor.HI[orders % 7].Click();
    if ((orders & kOtherWindow) != 0) other.Visible() ? other.Hide() : other.Show();
    if ((orders & kClose) != 0 && ActiveFormName() == monitor.Name()) monitor.OK.Click();
    if ((orders & kLosePort) != 0 && comm.PortOpen()) comm.Unplug();
  }
  void Live() {
    for (int i = 0; i < 50 && !comm.rest.empty(); ++i) {
      if (!monitor.Visible() && !other.Visible()) monitor.Show();
      Delay(*this, 1.0);
      if (!comm.PortOpen()) comm.SetPortOpen(true);
    }
    comm.rest = {};  // no order comes any more: the last one would meet the drive that is well
    Delay(*this, 6.0);
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Scene scene;
  scene.comm.rest = {data, size};
  scene.Live();
  scene.comm.well = true;
  if (!scene.comm.PortOpen()) scene.comm.SetPortOpen(true);
  scene.other.Hide();
  if (scene.monitor.Visible()) scene.monitor.OK.Click();
  scene.RequireLineGivenBack();
  scene.path.Clear();
  scene.monitor.Show();
  Delay(scene, 1.5);
  ExecStatus& m = scene.monitor;
  Require(m.INlo[0].Light() == Lamp::State::Green && m.INlo[6].Light() == Lamp::State::Off, "inputs");
  Require(m.INlo[8].Light() == Lamp::State::Green && m.INlo[9].Light() == Lamp::State::Off, "X inputs");
  Require(m.OUTlo[3].Light() == Lamp::State::Orange && m.OUTlo[4].Light() == Lamp::State::Orange, "outputs");
  Require(m.MotorSpeed.Caption() == "  -1.00" && m.AnalogVolts.Caption() == "10.00", "numbers");
  Require(m.EncoderCount.Caption() == "-7" && m.Play.Picture() == "PlayGreen", "encoder and motor");
  Require(m.StatusLED[3].Light() == Lamp::State::Green && m.AlarmLED[13].Light() == Lamp::State::Yellow,
          "status and alarms");
  Require(m.Silence.Caption().empty(), "the drive is heard");
  return 0;
}
