#include <gtest/gtest.h>

#include "platform/headless/headless_desktop.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {
namespace {

/// One tool's port with one drive behind it, in virtual time.
struct Bench {
  HeadlessDesktop desktop;
  SimulatedDrive drive{desktop.Line()};
  SimulatedComm comm{desktop, desktop.Line()};

  Bench() {
    comm.Connect(1, &drive);
    comm.SetPortOpen(true);
  }
  /// What has arrived `seconds` after these bytes were written.
  std::string Say(std::string_view bytes, double seconds = 1.0) {
    comm.Output(bytes);
    Delay(desktop, seconds);
    const Bytes received = comm.Input();
    return {received.begin(), received.end()};
  }
};

TEST(Drive, SpeaksOfTheImageThatItHolds) {
  Bench bench;
  DriveImage image = FactoryImage();
  image[8] = 1;  // harmonic gain
  image[9] = 2;
  image[53] = 2;  // brake output
  SealDriveImage(image);
  EXPECT_EQ(bench.Say("d" + std::string(image.begin(), image.end())), "\6");
  EXPECT_EQ(bench.Say("HRHG\rHG7\rBO\rIOY\rQT\r"), "HG=258\rBO=2\rIO=11111111\r");
  EXPECT_EQ(bench.drive.StoredImage(), image);
  bench.Say("HRHP-3\rSA\rQT\r");
  image[9] = 7;
  image[8] = 0;
  image[11] = 0xFD;  // phase
  SealDriveImage(image);
  EXPECT_EQ(bench.drive.StoredImage(), image);
  EXPECT_EQ(bench.Say("i4071HRHG\rBO\r"), "HG=960\rBO=3\r");
}

TEST(Drive, TellsItsObserverWhatOnlyAsks) {
  Bench bench;
  std::string log;
  bench.drive.Observe = [&](const DriveEvent& event) {
    log += event.bytes.substr(0, event.bytes.find('\r')) + (event.query ? "?" : "") + " ";
  };
  for (const char* line : {"SC", "HRRV\rVE2", "VE", "IFD", "IF", "MN", "WT.2", "SSdone", "SC", "", "QT"})
    bench.Say(std::string(line) + "\r", 0.1);
  EXPECT_EQ(log,
            "S C  4) HR RV? VE2 RV=1.52k? VE? VE=2? IFD IF? IF=D? MN? Y? WT.2 SSdone SC? SC=0801? done QT ");
}

TEST(Drive, AsksTheSchedulerForNothingButEndsAndWaits) {
  HeadlessDesktop desktop;
  std::optional<SimulatedDrive> drive(desktop.Line());
  const auto say = [&](std::string_view text) {
    for (const char c : text) drive->Receive(static_cast<std::uint8_t>(c));
  };
  const auto runsDryAt = [&] {
    EXPECT_THROW(Delay(desktop, kForever), HeadlessFault);
    return desktop.Now();
  };
  say("HRCM21\rCJ\r");
  EXPECT_EQ(runsDryAt(), 0.0) << "a motor that jogs needs no clock";
  desktop.CallAfter(1.0, [] {});
  EXPECT_EQ(runsDryAt(), 1.0);
  say("SJ\rVE2\rFL\r");  // from 10 rev/s in 0.1 s, then 1 turn at 2 rev/s and 100 rev/s/s
  EXPECT_NEAR(runsDryAt(), 1.0 + 0.1 + 0.52, 1e-9);
  drive->SetStalled(true);
  say("FL\rWT1\r");
  drive.reset();
  EXPECT_NEAR(runsDryAt(), 1.62, 1e-9) << "a drive that has gone still waited";
}

/// A bench whose program writes down what reaches it.
struct LoggingBench : Bench {
  LoggingBench() {
    comm.SetRThreshold(1);
    comm.OnComm.Set([this](int) { log += "received " + std::to_string(comm.InBufferCount()) + " "; });
    comm.StateChanged.Set([this] { log += comm.PortOpen() ? "open " : "closed "; });
    desktop.CallAfter(0.001, [this] { log += "timer "; });
    desktop.Post([this] { log += "click "; });
  }
  std::string log;
};

TEST(BlockingWait, TakesBytesInAndServesNothingElse) {
  using Disturb = void (*)(LoggingBench&);
  // "y\x80" and the four digits of its answer take a byte time each.
  constexpr double kByte = SimulatedDrive::kByteTime;
  struct Case {
    const char* what;
    int count;
    Disturb disturb;
    double ends;
    int waiting;
    const char* afterwards;
  };
  const Case cases[] = {
      {"answer", 4, [](LoggingBench&) {}, 6 * kByte, 4, "click timer received 4 "},
      {"part of an answer", 2, [](LoggingBench&) {}, 4 * kByte, 2, "click timer received 2 "},
      {"answer in time and more awaited", 5, [](LoggingBench&) {}, 0.25, 4, "click timer received 4 "},
      {"silence", 1, [](LoggingBench& b) { b.drive.SetSilent(true); }, 0.25, 0, "click timer "},
      {"gathered by the adapter", 1, [](LoggingBench& b) { b.comm.SetLatency(0.1); }, 3 * kByte + 0.1, 4,
       "click timer received 4 "},
      {"hang-up at the third byte", 4,
       [](LoggingBench& b) { b.comm.Arm({.fault = LineFault::HangUp, .byte = 2}); }, 5 * kByte, 2,
       "click timer received 2 closed "},
      {"pulled cable", 4,
       [](LoggingBench& b) { b.desktop.Line().CallAfter(0.002, [&b] { b.comm.Unplug(); }); }, 0.002, 0,
       "click timer closed "},
      {"closed port", 4, [](LoggingBench& b) { b.comm.SetPortOpen(false); }, 0.0, 0, "closed click "}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    LoggingBench bench;
    c.disturb(bench);
    const std::string before = bench.log;
    bench.comm.Output("y\x80");
    EXPECT_EQ(bench.comm.WaitBlocking(c.count, 0.25), c.waiting >= c.count);
    EXPECT_NEAR(bench.desktop.Now(), c.ends, 1e-9);
    EXPECT_EQ(bench.comm.InBufferCount(), c.waiting);
    EXPECT_EQ(bench.log, before);
    bench.desktop.PumpEvents();
    EXPECT_EQ(bench.log, c.afterwards);
  }
}

TEST(SimulatedComm, WhatItHasGatheredEndsWithThePort) {
  HeadlessDesktop desktop;
  SimulatedDrive drive{desktop.Line()};
  drive.SetByteTime(0.0);
  std::optional<SimulatedComm> comm;
  comm.emplace(desktop, desktop.Line());
  comm->Connect(1, &drive);
  comm->SetLatency(0.2);
  for (int opening = 0; opening < 2; ++opening) {
    comm->SetPortOpen(true);
    drive.SendRaw("x");
    Delay(desktop, 0.15);
    EXPECT_EQ(comm->InBufferCount(), 0) << "gathers since its last opening";
    if (opening == 0) comm->SetPortOpen(false);
  }
  comm.reset();
  EXPECT_THROW(Delay(desktop, kForever), HeadlessFault);
  EXPECT_DOUBLE_EQ(desktop.Now(), 0.3) << "somebody still waited for the port";
}

}  // namespace
}  // namespace kavr6
