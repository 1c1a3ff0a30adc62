// Every kind of fault at every byte of the image, in both directions, against what plain arithmetic on the
// bytes says must come of it.
#include <memory>

#include <gtest/gtest.h>

#include "tests/support/scene.h"

namespace kavr6 {
namespace {

using Direction = FaultAt::Direction;

constexpr int kImageBytes = static_cast<int>(kImageSize);
constexpr int kBeforeImageToDrive = 5;  // S C y 142 d
constexpr int kBeforeImageToTool = 8;   // two identities, the letter
constexpr double kLongestDownload = 0.5 + 0.5 + 1.0 + 0.1;
constexpr double kLongestUpload = 0.5 + (0.5 + 0.5) + 0.5 + (0.5 + 0.5);
constexpr double kMarker = 33.0;  // a speed that no image of the sweep holds

struct Kind {
  LineFault fault;
  std::uint8_t value = 0;
};

using enum LineFault;

std::vector<Kind> AllKinds() {
  std::vector<Kind> kinds{{Lost}, {Doubled}, {Late}, {Silence}, {HangUp}, {Restart}, {Swapped}};
  for (unsigned bit = 0; bit < 8; ++bit) kinds.push_back({Flipped, static_cast<std::uint8_t>(1U << bit)});
  for (const int value : {0x00, 0x01, 0x55, 0x80, 0xFF})
    kinds.push_back({Inserted, static_cast<std::uint8_t>(value)});
  return kinds;
}

SimulatedDrive::Image ImageOf(const Bytes& bytes) {
  SimulatedDrive::Image image{};
  std::copy_n(bytes.begin(), image.size(), image.begin());
  return image;
}

/// The bytes that arrive of an image in one go.
Bytes Received(const Kind& kind, Bytes image, int at) {
  const auto place = image.begin() + at;
  if (kind.fault == Flipped) {
    *place ^= kind.value;
  } else if (kind.fault == Doubled || kind.fault == Inserted) {
    image.insert(place, kind.fault == Doubled ? *place : kind.value);
  } else if (kind.fault == Swapped && place + 1 != image.end()) {
    std::iter_swap(place, place + 1);
  } else if (kind.fault == Lost || kind.fault == Swapped) {
    image.erase(place);  // the last byte waits for a successor in vain
  } else if (kind.fault == Restart) {
    // The byte itself has passed; behind it comes the announcement.
    image.erase(place + 1, image.end());
    image.insert(image.end(), {255, 52, 41});
  } else {
    image.erase(place, image.end());
  }
  return image;
}

class FaultSweep : public testing::Test {
 protected:
  FaultSweep() { Begin(); }

  /// A program at work with a drive that holds a known image.
  void Begin() {
    scene = std::make_unique<Scene>();
    scene->desktop.AnswerAnything();
    // Torn images can read as alarms.
    scene->program.FaultPopup.Activate.Set(
        [this] { scene->desktop.Post([&fault = scene->program.FaultPopup] { fault.Hide(); }); });
    scene->Start();
    scene->state.InertiaSet = true;
    scene->main.Upload.Click();
    scene->settings.CustomMotor = true;
    base = scene->settings;
    scene->main.Download.Click();
    const SimulatedDrive::Image& image = scene->drive.StoredImage();
    good.assign(image.begin(), image.end());
  }

  /// Clicks with the fault armed; the boxes that came.
  std::string Act(ImageButton MainScreen::*button, const FaultAt& fault, double bound) {
    const std::size_t before = scene->desktop.Boxes().size();
    const double start = scene->desktop.Now();
    scene->comm.Arm(fault);
    try {
      (scene->main.*button).Click();
    } catch (const RuntimeError& error) {
      return error.what();
    }
    EXPECT_LE(scene->desktop.Now() - start, bound + 1e-9);
    scene->ExpectCalm();
    std::string texts;
    for (std::size_t i = before; i < scene->desktop.Boxes().size(); ++i)
      texts += scene->desktop.Boxes()[i].text;
    return texts;
  }

  /// After the fault has gone, the main job works again within four clicks, the drive's power cycled before
  /// the third.
  void ExpectRecovery() {
    scene->comm.ClearFault();
    scene->comm.SetLatency(0);
    Delay(scene->desktop, 3.0);
    if (!scene->comm.PortOpen()) {
      scene->comm.Plug();
      Delay(scene->desktop, 0.1);
      EXPECT_TRUE(scene->comm.PortOpen());
    }
    scene->drive.StoreImage(ImageOf(good));
    for (int click = 0; click < 4; ++click) {
      scene->settings.Speed = kMarker;
      scene->main.Upload.Click();
      if (scene->settings.Speed != kMarker) return;
      Delay(scene->desktop, 0.5);  // nobody clicks faster
      // Bytes of a torn image are commands to a drive that has restarted: it can be left in text mode.
      if (click == 1) scene->drive.Restart();
    }
    FAIL() << "uploads no longer work";
  }

  std::unique_ptr<Scene> scene;
  Settings base;
  Bytes good;
};

FaultAt Fault(const Kind& kind, Direction direction, int byte) {
  return {.direction = direction, .fault = kind.fault, .byte = byte, .value = kind.value, .seconds = 2.0};
}

bool Has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

TEST_F(FaultSweep, DownloadEndsRightWhateverHappensToAnyByteOfTheImage) {
  Bytes old = good;
  old[4] ^= 1U;  // not what is sent
  for (const Kind& kind : AllKinds()) {
    for (int at = 0; at < kImageBytes && !HasFailure(); ++at) {
      SCOPED_TRACE(testing::PrintToString(std::tuple(int(kind.fault), int{kind.value}, at)));
      scene->settings = base;
      scene->drive.StoreImage(ImageOf(old));
      scene->state.Modified = true;
      const std::string boxes = Act(
          &MainScreen::Download, Fault(kind, Direction::ToDrive, kBeforeImageToDrive + at), kLongestDownload);
      Bytes received = Received(kind, good, at);
      received.resize(std::min(received.size(), kImageSize));  // one too many is a command to the drive
      const Bytes stored(scene->drive.StoredImage().begin(), scene->drive.StoredImage().end());
      if (kind.fault == Restart) {
        // What follows the restart are commands to the drive, which may answer them.
        EXPECT_EQ(stored, at == kImageBytes - 1 ? good : old);
      } else if (received.size() < kImageSize) {
        EXPECT_TRUE(Has(boxes, "The download did not work.")) << boxes;
        EXPECT_EQ(stored, old);
      } else if (!ChecksumHolds(received)) {
        EXPECT_TRUE(Has(boxes, "The data did not download correctly.")) << boxes;
        EXPECT_EQ(stored, old);
      } else {
        EXPECT_EQ(boxes, "");
        EXPECT_EQ(stored, received);
      }
      EXPECT_FALSE(scene->state.Modified);
      ExpectRecovery();
    }
  }
}

TEST_F(SceneTest, DeviceThatComesBackInTheMiddleOfABlockGetsNothingOfItsRest) {
  state.InertiaSet = true;
  const SimulatedDrive::Image before = scene.drive.StoredImage();
  scene.desktop.Expect(ExpectedBox{});
  bool gone = false;
  state.Progress.Changed.Replace([&] {
    if (gone || state.Progress < 50) return;
    gone = true;
    scene.comm.Unplug();
    scene.comm.Plug();
  });
  main.Download.Click();
  EXPECT_TRUE(scene.comm.PortOpen());
  EXPECT_TRUE(Has(scene.desktop.Boxes().back().text, "The download did not work."));
  const std::string& written = scene.comm.Written();
  EXPECT_EQ(written.size() - written.find('d'), 1 + 81) << "from the letter to the byte in the middle";
  EXPECT_EQ(scene.drive.StoredImage(), before);
  state.Progress.Changed.Replace([] {});
  main.Download.Click();
  EXPECT_NE(scene.drive.StoredImage(), before);
}

class UploadSweep : public FaultSweep {
 protected:
  /// One upload with this fault; `inHand` is what the tool has read when the wait ends.
  void Try(const Kind& kind, int at, const Bytes& inHand) {
    SCOPED_TRACE(testing::PrintToString(std::tuple(int(kind.fault), int{kind.value}, at)));
    scene->settings = base;
    scene->settings.Speed = kMarker;
    const Settings before = scene->settings;
    scene->state.Modified = true;
    const std::string boxes =
        Act(&MainScreen::Upload, Fault(kind, Direction::ToTool, kBeforeImageToTool + at), kLongestUpload);
    const bool late = inHand.size() < kImageSize;
    if (late || !ChecksumHolds(inHand)) {
      EXPECT_TRUE(
          Has(boxes, late ? "We are having trouble uploading" : "Your program did not upload correctly."))
          << boxes;
      EXPECT_EQ(scene->settings, before);
      EXPECT_TRUE(scene->state.Modified);
    } else {
      Settings decoded = before;
      try {
        DecodeImage(inHand, decoded);
      } catch (const RuntimeError& error) {
        EXPECT_EQ(boxes, error.what());
        Begin();
        return;
      }
      EXPECT_FALSE(scene->state.Modified);
      EXPECT_EQ(scene->settings.Accel, decoded.Accel);
      EXPECT_EQ(scene->settings.Speed, decoded.Speed);
    }
    ExpectRecovery();
  }
};

TEST_F(UploadSweep, NoWrongRecordIsTakenWhateverHappensToAnyByteOfTheImage) {
  for (const Kind& kind : AllKinds()) {
    for (int at = 0; at < kImageBytes && !HasFailure(); ++at) {
      Bytes inHand = Received(kind, good, at);
      // The read takes the first 161, and a 162nd only when the last two come in one arrival.
      const bool twoAtOnce = kind.fault == Doubled || kind.fault == Inserted;
      if (at != kImageBytes - 1 || !twoAtOnce) inHand.resize(std::min(inHand.size(), kImageSize));
      Try(kind, at, inHand);
    }
  }
}

TEST_F(UploadSweep, AdapterThatHandsEverythingOverAtOnceShowsWhatTheSumCannotSee) {
  for (const Kind& kind : AllKinds()) {
    if (kind.fault == Late) continue;
    for (int at = 0; at < kImageBytes && !HasFailure(); ++at) {
      scene->comm.SetLatency(0.2);
      Try(kind, at, kind.fault == HangUp ? Bytes() : Received(kind, good, at));
    }
  }
}

/// The words that the lamps show, as bytes; none while the window is not there.
Bytes ShownWords(AlarmHistory& history) {
  Bytes bytes(history.Visible() ? 16 : 0);
  for (std::size_t lamp = 0; lamp < bytes.size() * 8; ++lamp) {
    const std::size_t byte = lamp / 16 * 2 + (lamp % 16 < 8 ? 1 : 0);
    if (history.RedSquare[static_cast<int>(lamp)].Light() == Lamp::State::Red)
      bytes[byte] = static_cast<std::uint8_t>(bytes[byte] | 1U << lamp % 8);
  }
  return bytes;
}

TEST(AlarmHistorySweep, ShowsWhatHasComeOrTellsOfTheSilence) {
  const Bytes sent{0x12, 0x01, 0x02, 0x34, 0x00, 0x56, 0x61, 0x08,
                   0x10, 0x27, 0x49, 0x7F, 0x33, 0x0C, 0x05, 0x44};
  for (const Kind& kind : AllKinds()) {
    for (int at = 0; at < 16; ++at) {
      SCOPED_TRACE(testing::PrintToString(std::tuple(int(kind.fault), int{kind.value}, at)));
      Scene scene;
      scene.desktop.AnswerAnything();
      scene.Start();
      scene.drive.SetSilent(true);
      for (std::size_t i = sent.size(); i > 0; i -= 2)
        scene.drive.RaiseAlarm(sent[i - 2] * 256 + sent[i - 1]);
      scene.drive.SetSilent(false);
      scene.comm.Arm(Fault(kind, Direction::ToTool, at));
      AlarmHistory& history = scene.program.LastAlarms;
      Bytes shown;
      scene.desktop.CallAfter(0.6, [&] {
        shown = ShownWords(history);
        if (history.Visible()) history.OK.Click();
      });
      scene.main.MenuHistory.Click();
      Delay(scene.desktop, 4.0);
      Bytes inHand = Received(kind, sent, at);
      inHand.resize(inHand.size() < 16 ? 0 : 16);
      EXPECT_EQ(shown, inHand);
      EXPECT_EQ(scene.desktop.Boxes().size(), inHand.empty() ? 1U : 0U);
      scene.ExpectCalm();
    }
  }
}

}  // namespace
}  // namespace kavr6
