// Any bytes, arriving in any pieces, with a live tool coming and going and boxes that stand open for a while.
// Input: groups of one byte with orders (the bits below) and as many bytes as its low six bits say.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>

#include "core/drive_models.h"
#include "core/main_screen.h"
#include "link/receive_path.h"
#include "platform/headless_desktop.h"
#include "tests/support/scripted_comm.h"

namespace {

using namespace kavr6;

constexpr unsigned kSizeBits = 0x3F;
constexpr unsigned kLetTimePass = 0x40;
constexpr unsigned kSwitchTool = 0x80;

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

class PatientDesktop : public HeadlessDesktop {
 public:
  BoxAnswer Ask(const MessageBox&) override {
    Delay(*this, 0.01);
    return BoxAnswer::Ok;
  }
};

class Scene {
 public:
  Scene() {
    for (const DriveModel& model : kDriveModels) screen_.ModelList.AddItem(std::string(model.name));
    comm_.SetPortOpen(true);
    comm_.SetRThreshold(1);
    screen_.Show();
    tool_.Show();
    path_.AddLiveTool(tool_.Name(), [this](char) { ++toTool_; });
    path_.ServoError152 = [this](int word) {
      Require(word >= 0 && word < 1 << 14, "an alarm word has 14 bits");
      ++alarms_;
    };
  }

  /// One step of the input; returns the rest.
  std::span<const std::uint8_t> Step(std::span<const std::uint8_t> input) {
    const unsigned orders = input[0];
    const auto bytes = input.subspan(1, std::min<std::size_t>(orders & kSizeBits, input.size() - 1));
    if ((orders & kSwitchTool) != 0) SwitchTool();
    fed_ += bytes.size();
    comm_.Feed(Bytes(bytes.begin(), bytes.end()));
    if ((orders & kLetTimePass) != 0) Delay(desktop_, 0.005);
    Check();
    return input.subspan(1 + bytes.size());
  }

  void Finish() {
    screen_.LiveToolActive = false;
    Delay(desktop_, 60.0);
    comm_.Feed("A");
    Delay(desktop_, 60.0);
    Check();
    const int waiting = path_.Ring().RingCount();
    Require(waiting == 0 || (waiting < 3 && path_.Ring().RingHasHigh()), "nothing waits but a cut message");
    Require(comm_.InBufferCount() == 0, "the port is read empty");
  }

 private:
  // Off, on and in front, on but behind another window.
  void SwitchTool() {
    if (screen_.LiveToolActive && desktop_.ActiveFormName() == tool_.Name()) {
      desktop_.BroughtToFront(screen_);
    } else {
      screen_.LiveToolActive = !screen_.LiveToolActive;
      desktop_.BroughtToFront(tool_);
    }
  }

  void Check() {
    const auto isText = [](char c) { return static_cast<unsigned char>(c) < 128; };
    Require(std::all_of(screen_.GlobalBuffer.begin(), screen_.GlobalBuffer.end(), isText),
            "text is below 128");
    const int waiting = path_.Ring().RingCount();
    Require(waiting >= 0 && waiting <= 31, "the ring holds 31 bytes");
    Require(
        screen_.GlobalBuffer.size() + toTool_ + 3 * alarms_ + static_cast<std::size_t>(waiting) <= fed_ + 1,
        "no byte counts twice");
    Require(screen_.DriveModelCode < 128, "a model code is below 128");
  }

  PatientDesktop desktop_;
  MainScreen screen_{desktop_};
  Form tool_{desktop_, "VTLterm"};
  ScriptedComm comm_{desktop_};
  ReceivePath path_{screen_, comm_};
  std::size_t fed_ = 0;
  std::size_t toTool_ = 0;
  std::size_t alarms_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Scene scene;
  for (std::span<const std::uint8_t> rest(data, size); !rest.empty();) rest = scene.Step(rest);
  scene.Finish();
  return 0;
}
