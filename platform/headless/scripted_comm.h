// A serial port whose far end follows a script.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/headless/headless_desktop.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Bytes of a text; one with a zero byte inside needs a length or an sv literal.
inline Bytes TextBytes(std::string_view text) { return {text.begin(), text.end()}; }

class ScriptedComm : public MSComm {
 public:
  explicit ScriptedComm(HeadlessDesktop& desktop) : MSComm(desktop), line_(desktop.Line()) {}

  std::string DeviceName(int) const override { return {}; }

  /// Bytes arrive now, or after a time. With the port closed by then they are lost.
  void Feed(Bytes bytes, double after = 0.0) {
    if (after > 0.0) {
      line_.CallAfter(after, [this, late = std::move(bytes)] { Feed(late); });
    } else if (PortOpen()) {
      Arrived(bytes);
    }
  }
  void Feed(std::string_view text, double after = 0.0) { Feed(TextBytes(text), after); }
  /// Each write of exactly `written` is answered after a time. A later script for it replaces this one.
  void Reply(std::string_view written, std::string_view answer, double after = 0.01) {
    replies_[std::string(written)] = {std::string(answer), after};
  }
  /// The adapter is pulled out.
  void Unplug() { LineLost(); }

  /// All that has been written since the last call.
  std::string TakeWritten() { return std::exchange(written_, {}); }

 protected:
  void OpenDevice(int) override {}
  void CloseDevice() override {}
  void Send(std::span<const std::uint8_t> bytes) override {
    const std::string text(bytes.begin(), bytes.end());
    written_ += text;
    if (const auto found = replies_.find(text); found != replies_.end())
      Feed(found->second.first, found->second.second);
  }
  void Block(const std::function<bool()>& done, double limit) override { line_.Block(done, limit); }

 private:
  LineScheduler& line_;
  std::map<std::string, std::pair<std::string, double>> replies_;
  std::string written_;
};

}  // namespace kavr6
