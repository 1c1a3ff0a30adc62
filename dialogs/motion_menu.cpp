#include "dialogs/motion_menu.h"

#include <array>
#include <string>
#include <vector>

#include "core/drive_models.h"

namespace kavr6 {
namespace {

struct Mode {
  Button MotionMenu::*button;
  const char* purpose;
  bool DriveModel::*needs = nullptr;  ///< what a model must be able to do; null: all can
};
constexpr std::array kModes{
    Mode{&MotionMenu::PulseDirMode, "Step pulses or an encoder move the motor."},
    Mode{&MotionMenu::VelocityMode, "A fixed speed, or a speed by the analog input."},
    Mode{&MotionMenu::VTLmode, "A host computer sends commands over the serial line."},
    Mode{&MotionMenu::WyProgram, "The drive runs a program written for Wy drives.", &DriveModel::wyProgram},
    Mode{&MotionMenu::ZuProgram, "The drive runs the program that is stored in it.", &DriveModel::zuProgram},
    Mode{&MotionMenu::HubProg, "The drive belongs to a network of several axes."},
};

/// "Needs A-B, -C or -D.": the models that can do it, by what they do not have in common.
std::string Needed(bool DriveModel::*ability) {
  std::vector<std::string> names;
  for (const DriveModel& model : kDriveModels)
    if (model.*ability) names.emplace_back(model.name);
  std::string words = "Needs ";
  for (std::size_t i = 0; i < names.size(); ++i)
    words +=
        i == 0 ? names[i] : (i + 1 == names.size() ? " or " : ", ") + names[i].substr(names[i].find('-'));
  return words + ".";
}

/// A model that can do everything: which mode is in use does not depend on what the drive can do.
constexpr DriveModel kAllAbilities{{}, 0, 0, true, true};

/// What the selected model can do beyond the modes that all have; nothing without one.
DriveModel ModelOf(const DriveState& state) {
  const int model = state.ModelIndex;
  return model < 0 ? DriveModel{} : kDriveModels.at(static_cast<std::size_t>(model));
}

}  // namespace

MotionMenu::MotionMenu(const SetupParts& parts, PulseDirDialog& pulseDir, VelocityDialog& velocity,
                       VTLdialog& vtl)
    : Form(parts.over.Desk(), "MotionMenu"),
      over_(parts.over),
      state_(parts.state),
      settings_(parts.settings),
      pulseDir_(pulseDir),
      velocity_(velocity),
      vtl_(vtl) {
  SetCaption("Motion Control Mode");
  Activate.Set([this] {
    OfferModes();
    if (Button* const present = ButtonOfPresentMode(ModelOf(state_))) present->Focus();
  });
  for (const Mode& mode : kModes) (this->*mode.button).SetToolTip(mode.purpose);
  WireModes();
  Cancel.Clicked.Set([this] { Hide(); });
}

void MotionMenu::WireModes() {
  PulseDirMode.Clicked.Set([this] {
    pulseDir_.Open();
    Hide();
  });
  VelocityMode.Clicked.Set([this] {
    velocity_.Open();
    Hide();
  });
  VTLmode.Clicked.Set([this] {
    vtl_.OpenFor(kOpVtl);
    Hide();
  });
  WyProgram.Clicked.Set([this] {
    vtl_.OpenFor(kOpWyProgram);
    ShowMode();
  });
  // The next two write no setting that the user has typed: the settings do not count as changed.
  ZuProgram.Clicked.Set([this] {
    settings_.OpMode = kOpZuProgram;
    settings_.ControlMode = kControlPointToPoint;
    settings_.StepsPerRev = kFixedStepsPerRev;
    ShowMode();
  });
  HubProg.Clicked.Set([this] {
    settings_.OpMode = kOpHub;
    ShowMode();
  });
}

void MotionMenu::ShowMode() {
  ShowModeName(state_, settings_);
  if (SummarizeMotion) SummarizeMotion();
  Hide();
}

void MotionMenu::Load() { CenterOn(over_, *this); }

void MotionMenu::MotionClick() {
  if (Desk().ShiftDown()) {
    OpenDialogOfMode();
  } else {
    Show();
  }
}

void MotionMenu::OpenDialogOfMode() {
  switch (settings_.OpMode) {
    case kOpVtl:
    case kOpVtlToo:
      return vtl_.OpenFor(kOpVtl);
    case kOpPulseOrVelocity:
      return settings_.ControlMode == kControlVelocity ? velocity_.Open() : pulseDir_.Open();
    case kOpWyProgram:
      return vtl_.OpenFor(kOpWyProgram);
    default:
      return;
  }
}

void MotionMenu::OfferModes() {
  const DriveModel model = ModelOf(state_);
  const Button* const present = ButtonOfPresentMode(kAllAbilities);
  for (const Mode& mode : kModes) {
    Button& button = this->*mode.button;
    const bool able = mode.needs == nullptr || model.*mode.needs;
    button.SetEnabled(able);
    button.SetToolTip(mode.purpose + (able ? std::string() : "\n" + Needed(mode.needs)));
    button.SetMark(&button == present ? "in use" : "");
  }
}

Button* MotionMenu::ButtonOfPresentMode(const DriveModel& model) {
  switch (settings_.OpMode) {
    case kOpZuProgram:
      return model.zuProgram ? &ZuProgram : &VTLmode;
    case kOpVtl:
    case kOpVtlToo:
      return &VTLmode;
    case kOpPulseOrVelocity:
      return settings_.ControlMode == kControlVelocity ? &VelocityMode : &PulseDirMode;
    case kOpHub:
      return &HubProg;
    case kOpWyProgram:
      return model.wyProgram ? &WyProgram : &VTLmode;
    default:
      return nullptr;
  }
}

}  // namespace kavr6
