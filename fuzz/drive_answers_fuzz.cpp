// Any bytes instead of what a drive says to the host terminal and to a reader of its alarm history.
// Input: a byte that is odd for the terminal and even for the history, and the drive's bytes. They come in
// parts of 1 to 64 bytes, as many as the first byte says.
#include <cstdint>
#include <span>
#include <string>

#include "fuzz/link_scene.h"
#include "platform/headless/memory_files.h"
#include "tools/alarm_history.h"
#include "tools/vtl_term.h"

namespace {

using namespace kavr6;

constexpr std::size_t kMostCharacters = 4000;

struct Scene : LinkScene<> {
  MemoryFiles files;
  VTLterm terminal{line, *this, files};
  AlarmHistory history{*this, line};

  Scene() { Serve(terminal); }

  void Feed(std::span<const std::uint8_t> bytes, std::size_t part) {
    while (!bytes.empty()) {
      comm.Feed(TakeBytes(bytes, part));
      Delay(*this, 0.01);
    }
  }
};

std::string Bracketed(unsigned byte) {
  char text[8];
  std::snprintf(text, sizeof text, "[%03u]", byte);
  return text;
}

/// What the record shows of these bytes when it is long enough.
std::string Record(std::span<const std::uint8_t> bytes) {
  std::string shown;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const unsigned byte = bytes[i];
    if (byte == 255) {
      if (i + 2 >= bytes.size()) break;
      const std::string revision = Bracketed(bytes[i + 1]).substr(1, 3);
      const std::string model = Bracketed(bytes[i + 2]).substr(1, 3);
      shown += "{255-" + revision + "-" + model + "}\r\n";
      i += 2;
    } else if (byte == '\r') {
      shown += "\r\n";
    } else {
      shown += byte == '\n' || (byte >= ' ' && byte <= '~') ? std::string(1, static_cast<char>(byte))
                                                            : Bracketed(byte);
    }
  }
  return shown;
}

void TalkToTerminal(Scene& scene, std::span<const std::uint8_t> bytes, std::size_t part) {
  scene.terminal.Show();
  scene.Feed(bytes, part);
  const std::string all = Record(bytes);
  const std::string& kept = scene.terminal.History.Text();
  Require(kept.size() <= kMostCharacters && all.ends_with(kept), "the end of all that came is on record");
  Require(all.size() > kMostCharacters || kept == all, "a short record is whole");
  scene.terminal.Quit.Click();
}

void ReadHistory(Scene& scene, std::span<const std::uint8_t> bytes) {
  const std::string answer(bytes.begin(), bytes.end());
  scene.comm.Reply("a", answer);
  bool shown = false;
  scene.history.Activate.Set([&] {
    shown = true;
    scene.Post([&] { scene.history.OK.Click(); });
  });
  scene.history.Run();
  Require(shown == (answer.size() >= 16), "eight words are shown, fewer are not");
  for (int lamp = 0; shown && lamp < 128; ++lamp) {
    const auto at = static_cast<std::size_t>(lamp / 16 * 2 + (lamp % 16 < 8 ? 1 : 0));
    const bool red = scene.history.RedSquare[lamp].Light() == Lamp::State::Red;
    Require(red == ((bytes[at] >> lamp % 8 & 1) != 0), "a lamp shows its bit");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Scene scene;
  const std::span bytes(data + 1, size - 1);
  if ((data[0] & 1U) != 0) {
    TalkToTerminal(scene, bytes, 1 + data[0] / 4);
  } else {
    ReadHistory(scene, bytes);
  }
  scene.RequireLineGivenBack();
  return 0;
}
