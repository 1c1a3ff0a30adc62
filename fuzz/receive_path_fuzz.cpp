// Any bytes, arriving in any pieces, with a live tool coming and going and boxes that stand open for a while.
// Input: groups of one byte with orders (the bits below) and as many bytes as its low six bits say.
#include <cstdint>
#include <span>

#include "fuzz/link_scene.h"

namespace {

using namespace kavr6;

constexpr unsigned kSizeBits = 0x3F;
constexpr unsigned kLetTimePass = 0x40;
constexpr unsigned kSwitchTool = 0x80;

struct Scene : LinkScene<> {
  Form tool{*this, "VTLterm"};
  std::size_t fed = 0;
  std::size_t toTool = 0;
  std::size_t alarms = 0;

  Scene() {
    tool.Show();
    path.AddLiveTool(tool.Name(), [this](std::uint8_t) { ++toTool; });
    path.ServoError152 = [this](int word) {
      Require(word >= 0 && word < 1 << 14, "an alarm word has 14 bits");
      ++alarms;
    };
  }
  BoxAnswer ShowBox(const MessageBox&) override {
    Delay(*this, 0.01);
    return BoxAnswer::Ok;
  }
  // Off, on and in front, on but behind another window.
  void SwitchTool() {
    if (state.LiveToolActive && ActiveFormName() == tool.Name()) {
      BroughtToFront(main);
    } else {
      state.LiveToolActive = !state.LiveToolActive;
      BroughtToFront(tool);
    }
  }
  void Feed(const Bytes& bytes, double seconds) {
    fed += bytes.size();
    comm.Feed(bytes);
    if (seconds > 0) Delay(*this, seconds);
    for (const char c : state.GlobalBuffer) Require(static_cast<unsigned char>(c) < 128, "text is below 128");
    const auto waiting = static_cast<std::size_t>(path.Ring().RingCount());
    Require(waiting <= 31, "the ring holds 31 bytes");
    Require(state.GlobalBuffer.size() + toTool + 3 * alarms + waiting <= fed, "no byte counts twice");
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Scene scene;
  for (std::span<const std::uint8_t> rest(data, size); !rest.empty();) {
    const unsigned orders = TakeBytes(rest, 1)[0];
    if ((orders & kSwitchTool) != 0) scene.SwitchTool();
    scene.Feed(TakeBytes(rest, orders & kSizeBits), (orders & kLetTimePass) != 0 ? 0.005 : 0.0);
  }
  scene.state.LiveToolActive = false;
  Delay(scene, 60.0);
  scene.Feed(Bytes{'A'}, 60.0);
  Require(scene.path.Ring().RingCount() < 3, "nothing waits but a cut message");
  Require(scene.comm.InBufferCount() == 0, "the port is read empty");
  return 0;
}
