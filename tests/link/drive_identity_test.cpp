#include "link/drive_identity.h"

#include "tests/link/link_fixture.h"

namespace kavr6 {
namespace {

constexpr std::string_view kAskLetter = "y\x8E";
constexpr std::string_view kAskStatus = "y\x80";

class DriveIdentityTest : public LinkTest {
 protected:
  DriveIdentity identity{screen, comm};
};

TEST_F(DriveIdentityTest, CheckDriveTakesWhatItsAnswersSay) {
  struct Case {
    std::string_view identity, letter, result;
    int model;
    std::string_view version, minorRev;
    double seconds;
  };
  const Case cases[] = {
      {"4)", "006B", "4)", 0, "1.52 k", "k", 0.02},
      {"\x02\x12", "0061", "", 1, "1.02 a", "a", 0.02},   // an unknown model
      {"4.x", "", "4.", 5, "1.52", "c", 0.51},            // no letter: the old one is kept
      {"4*x", "006", "4*", 1, "1.52 \x06", "\x06", 0.02}  // a byte too many counts for the letter
  };
  for (const Case& c : cases) {
    screen.ModelList.SetListIndex(1);
    screen.MinorRev = "c";
    screen.GlobalBuffer = "left over";
    comm.Reply("C", c.identity);
    comm.Reply(kAskLetter, c.letter);
    const double start = desktop.Now();
    EXPECT_EQ(identity.CheckDrive(), c.result);
    EXPECT_NEAR(desktop.Now() - start, c.seconds, 1e-9);
    EXPECT_EQ(screen.DriveModelCode.Get(), c.identity[1]);
    EXPECT_EQ(screen.ModelList.ListIndex(), c.model);
    EXPECT_EQ(screen.DriveVersion.Caption(), c.version);
    EXPECT_EQ(screen.MinorRev, c.minorRev);
    EXPECT_EQ(screen.GlobalBuffer, "");
  }
}

TEST_F(DriveIdentityTest, SilentCheckDriveTouchesNeitherModelListNorLetter) {
  screen.DriveVersion.SetCaption("1.00 b");
  comm.Reply("C", "4)");
  EXPECT_EQ(identity.SilentCheckDrive(), "4)");
  EXPECT_FLOAT_EQ(screen.DspRev, 1.52F);
  EXPECT_EQ(screen.ModelList.ListIndex(), 1);
  EXPECT_EQ(screen.DriveVersion.Caption(), "1.00 b");
  EXPECT_EQ(comm.TakeWritten(), "C");
  comm.Reply("C", "4\x12");
  EXPECT_EQ(identity.SilentCheckDrive(), "");
  EXPECT_EQ(screen.DriveVersion.Caption(), "");
}

TEST_F(DriveIdentityTest, NoShortOrLateAnswerIsTheBoxAfterHalfASecondAndStaysInTheBuffer) {
  struct Case {
    std::string answer;
    double after;
  };
  for (const Case& c : {Case{"", 0.01}, {"4", 0.01}, {"4)", 0.51}}) {
    comm.Reply("C", c.answer, c.after);
    for (const bool silent : {false, true}) {
      const double start = desktop.Now();
      desktop.Expect({"The drive is not responding.  Is it connected to the right port and turned on?"});
      EXPECT_EQ(silent ? identity.SilentCheckDrive() : identity.CheckDrive(), "");
      EXPECT_NEAR(desktop.Now() - start, 0.5, 1e-9);
      EXPECT_EQ(desktop.Boxes().back().title, silent ? "Communication Error" : "CheckDrive 0");
      EXPECT_EQ(desktop.Boxes().back().icon, BoxIcon::Question);
      Delay(desktop, 0.1);
      EXPECT_EQ(screen.GlobalBuffer, c.answer);
    }
  }
  EXPECT_EQ(screen.DspRev, 0.0F);
  EXPECT_FALSE(screen.CommandActive);
}

TEST_F(DriveIdentityTest, FirstLookKnowsEarlierFamiliesOnlyAndWaitsASecond) {
  for (int code = 1; code < 128; ++code) {
    comm.Reply("C", "4" + std::string(1, static_cast<char>(code)));
    const bool earlier = code == 9 || code == 18 || (code >= 30 && code <= 40) || code == 109 || code == 118;
    EXPECT_EQ(identity.DriveStillThere(), earlier) << code;
    EXPECT_EQ(screen.DriveModelCode.Get(), code);
  }
  comm.Reply("C", "");
  screen.GlobalBuffer = "4\x12+";
  EXPECT_TRUE(identity.DriveStillThere()) << "bytes that wait already count";
  EXPECT_EQ(screen.GlobalBuffer, "+");
  const double start = desktop.Now();
  EXPECT_FALSE(identity.DriveStillThere());
  EXPECT_NEAR(desktop.Now() - start, 1.0, 1e-9);
  EXPECT_FALSE(screen.CommandActive);
}

TEST_F(DriveIdentityTest, LetterIsReadFromTheLastTwoDigits) {
  struct Case {
    std::string_view answer, letter, left;
  };
  constexpr std::string_view kNone("\0", 1);
  for (const Case& c : {Case{"FF6b", "k", ""},
                        {"0061extra", "a", "extra"},
                        {"00E9", "\xC3\xA9", ""},
                        {"xx4z", "\x04", ""},
                        {"00zz", kNone, ""},
                        {"00-1", kNone, ""}}) {
    comm.Reply(kAskLetter, c.answer);
    EXPECT_EQ(identity.GetMinorRev(), " " + std::string(c.letter)) << c.answer;
    EXPECT_EQ(screen.MinorRev, c.letter) << c.answer;
    EXPECT_EQ(std::exchange(screen.GlobalBuffer, {}), c.left) << c.answer;
  }
}

TEST_F(DriveIdentityTest, StatusWordIsSignedAndMinusOneWithoutAnswer) {
  struct Case {
    std::string_view answer;
    Long status;
    double seconds = 0.01;
  };
  for (const Case& c : {Case{"0000", 0},
                        {"7FFF", 32767},
                        {"8000", -32768},
                        {"ffff", -1},
                        {"12zz", 0x12},
                        {"????", 0},
                        {"004", -1, 1.0},
                        {"0041more", 65}}) {
    comm.Reply(kAskStatus, c.answer);
    const double start = desktop.Now();
    EXPECT_EQ(identity.GetServoStatus(), c.status) << c.answer;
    EXPECT_NEAR(desktop.Now() - start, c.seconds, 1e-9) << c.answer;
  }
  EXPECT_EQ(screen.GlobalBuffer, "") << "what stands behind an answer is dropped";
  EXPECT_FALSE(screen.CommandActive);
  comm.Unplug();
  EXPECT_EQ(identity.GetServoStatus(), 0);
}

}  // namespace
}  // namespace kavr6
