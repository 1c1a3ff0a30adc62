#include "dialogs/numeric_entry.h"

#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "platform/form.h"
#include "platform/headless_desktop.h"

namespace kavr6 {
namespace {

TEST(NumericEntry, LeftFieldShowsTheNearestNumberItTakes) {
  using Entries = std::vector<std::pair<const char*, const char*>>;
  const std::tuple<const char*, const char*, Entries> cases[] = {
      {"PulseDirDialog", "SPR", {{"201", "200"}, {"203.6", "204"}, {"51200", "51200"}, {"", "200"}}},
      {"VTLdialog",
       "txtNoiseFilter",
       {{"0.7", "0.714"}, {"0.5", "0.5"}, {"6", "5"}, {"20", "15"}, {"", "0.1"}}},
      {"PulseDirDialog", "txtStepFilterFreq", {{"1e9", "10000"}}},
      {"VTLdialog", "txtStepFilterFreq", {{"1e9", "2500"}}},
      {"VTLdialog", "txtTxDelay", {{" 12abc", "12"}, {"abc", "0"}}},
      {"VelocityDialog", "txtSpeed2", {{"0", "0.0125"}}},
      {"VelocityDialog", "CmdScale", {{"-3.14159", "-3.142"}, {"", "0.000"}}},
      {"IOdialog", "txtBrakeDelay", {{"1.5", "1.5"}}},
      {"IOdialog", "txtMaxAccel", {{"2.5", "3"}}},
      {"MotorDialog", "txtIdlePercent", {{"2.5", "2"}}},
      {"MotorDialog", "IdleDelayTime", {{"0.285", "0.29"}}},
      {"AdvancedSettings", "txtCmdOffset", {{"-1e300", "-10000"}}}};
  HeadlessDesktop desktop;
  for (const auto& [dialog, field, entries] : cases) {
    Form form(desktop, dialog);
    TextBox box(form, field);
    TextBox other(form, "other");
    EXPECT_THROW(LimitEntry(other), std::logic_error);
    LimitEntry(box);
    for (const auto& [typed, text] : entries) {
      box.Type(typed);
      EXPECT_EQ(box.Text(), typed) << "while the field has the focus";
      other.Focus();
      EXPECT_EQ(box.Text(), text) << dialog << '.' << field << ' ' << typed;
    }
  }
}

TEST(NumericEntry, ResultsOfEveryRowAreWithinItAndStay) {
  for (const EntryLimits& row : EntryLimitsTable()) {
    for (const char* typed : {"", "7.77777", "63.9", "1e300", "-1e300"}) {
      const std::string clean = CleanEntry(typed, row);
      EXPECT_EQ(CleanEntry(clean, row), clean) << row.field << ' ' << typed;
      EXPECT_EQ(ClampEntry(clean, row.min, row.max), std::stod(clean)) << row.field << ' ' << typed;
    }
  }
}

}  // namespace
}  // namespace kavr6
