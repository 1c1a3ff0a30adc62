#include "help/calculator.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace kavr6 {
namespace {

constexpr int kStartRow = 8;

// See CodeWindow: known before the window is built.
constexpr int kWidthTwips = 4800;
constexpr int kLeastHeightTwips = 1500;

}  // namespace

Calculator::Calculator(Desktop& desktop) : Form(desktop, "Calculator") {
  SetCaption("Calculator");
  Resize(kWidthTwips, kLeastHeightTwips);
  MR.SetItems({"200", "400", "1000", "2000", "5000", "10000", "12800", "18000", "20000", "21600", "25000",
               "25400", "25600", "36000", "50000", "50800"});
  VE.SetText("1");
  DE.SetText("25");
  MR.SetListIndex(kStartRow);
  for (Event<>* changed : {&VE.Change, &DE.Change, &MR.Clicked}) changed->Set([this] { DoCalc(); });
  Quit.Clicked.Set([this] { Hide(); });
}

void Calculator::DoCalc() {
  const double velocity = PrefixNumber(VE.Text());
  const double steps = velocity * velocity / 2 / PrefixNumber(DE.Text()) * PrefixNumber(MR.Text()) + 0.5;
  DI.SetCaption(std::isfinite(steps) ? NumberText(std::max(std::floor(steps), 1.0)) : "N/A");
}

}  // namespace kavr6
