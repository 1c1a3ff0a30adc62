// The lists and fixed texts that the setup dialogs offer, row by row.
#include "tests/dialogs/setup_dialogs.h"

namespace kavr6 {
namespace {

using DialogLists = SetupDialogs;

std::string RowsOf(const ListBox& list) {
  std::string rows;
  for (int row = 0; row < list.Count(); ++row) {
    rows += list.Item(row);
    if (list.ItemData(row) != 0) rows += " = " + std::to_string(list.ItemData(row));
    rows += '\n';
  }
  return rows;
}

TEST_F(DialogLists, OfferTheirWordsInTheOrderOfTheCodes) {
  const std::string tach =
      "100 pulses/rev\n200 pulses/rev\n400 pulses/rev\n800 pulses/rev\n1600 pulses/rev\n";
  const std::pair<const ListBox&, std::string> lists[] = {
      {vtl.ListCM, R"(7: Step & Direction = 7
10: Commanded Vel = 10
11: Analog Velocity = 11
12: Analog Vel, X1=run = 12
13: Analog Vel, X5=change speed = 13
14: Analog Vel, X1=run, X5=change speed = 14
15: Fixed Velocity = 15
16: Fixed Vel, X1=run = 16
17: Fixed Vel, X5=change speed = 17
18: Fixed Vel, X1=run, X5=change speed = 18
21: Point to Point Positioning = 21
22: Analog Positioning = 22
)"},
      {vtl.LstBitRate, "9600\n19200\n38400\n57600\n115200\n"},
      {vtl.ListPulseType, "Pulse & Direction\nCW & CCW Pulse\nA/B Quadrature\n"},
      {velocity.ListAnalogRange, "\u00B110V\n0 to 10V\n\u00B15V\n0 to 5V\n"},
      {velocity.MotionOut.TachPPR, tach},
      {io.MotionOut.TachPPR, tach},
      {io.ListLimits, "closed\nopen\nnot used\n"}};
  for (const auto& [list, rows] : lists) EXPECT_EQ(RowsOf(list), rows) << list.Name();

  std::string units;
  for (const int range : {1, 2, 3, 0}) {
    velocity.ListAnalogRange.SetListIndex(range);
    units += velocity.lblAnalogUnits.Caption() + " ";
  }
  EXPECT_EQ(units, "rev/sec at +10V rev/sec at +5V rev/sec at +5V rev/sec at +10V ");
  EXPECT_EQ(
      regen.lblRegenWatts.Caption() + " " + regen.lblRegenOhms.Caption() + " " + regen.lblRegenSecs.Caption(),
      "50 40 .3125");
}

TEST_F(DialogLists, CodesPickTheirRowsAndButtons) {
  // What a code of the field selects when its dialog is opened, from code 0 on.
  const std::tuple<SetupDialog*, Long Settings::*, std::string, std::string> cases[] = {
      {&vtl, &Settings::BitRateCode, "LstBitRate", "0 0 1 2 3 4 4 "},
      {&vtl, &Settings::PulseType, "ListPulseType", "0 1 2 2 "},
      {&io, &Settings::LimitMode, "ListLimits", "2 0 1 2 2 "},
      {&io, &Settings::MotionOutMode, "TachPPR", "0 0 0 0 0 1 2 3 4 0 "},
      {&io, &Settings::MotionOutMode, "optMotionOpen optMotionClosed optMotionOff optMotionTach",
       "2 0 1 2 3 3 3 3 3 3 "},
      {&io, &Settings::EnableMode, "optServoOpen optServoClosed optEnableAuto", "0 0 1 2 0 "},
      {&io, &Settings::AlarmOutMode, "optCloseAlarm optOpenAlarm optNoAlarm", "2 0 1 2 2 "},
      {&io, &Settings::AlarmResetMode, "chkAlarmInput", "- 0 - - - "},
      {&io, &Settings::BrakeMode, "optBrakeClose optBrakeOpen", "0 0 1 1 1 "},
      {&io, &Settings::BrakeMode, "chkBrake", "- 0 0 - - "}};
  for (const auto& [dialog, field, names, expected] : cases) {
    std::string picked;
    for (Long code = 0; picked.size() < expected.size(); ++code) {
      settings.*field = code;
      dialog->Open();
      picked += Picked(*dialog, names) + " ";
      dialog->Hide();
    }
    EXPECT_EQ(picked, expected) << names;
  }
  std::string boxes;
  for (const Long bit : {1, 2, 4, 8, 16, 32}) {
    settings.ProtocolFlags = bit;
    vtl.Open();
    boxes += Picked(vtl, "chkAddress chkAckNak chkConverter chkRedLion") + " ";
    vtl.Hide();
  }
  EXPECT_EQ(boxes, "- 0 1 - 2 3 ");
}

}  // namespace
}  // namespace kavr6
