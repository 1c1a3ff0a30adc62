#include "dialogs/motion_menu.h"

#include "core/drive_models.h"

namespace kavr6 {
namespace {

/// What the selected model can do beyond the modes that all have; nothing without one.
DriveModel ModelOf(const MainScreen& screen) {
  const int model = screen.ModelList.ListIndex();
  return model < 0 ? DriveModel{} : kDriveModels.at(static_cast<std::size_t>(model));
}

}  // namespace

MotionMenu::MotionMenu(MainScreen& screen, Settings& settings, PulseDirDialog& pulseDir,
                       VelocityDialog& velocity, VTLdialog& vtl)
    : Form(screen.Desk(), "MotionMenu"),
      screen_(screen),
      settings_(settings),
      pulseDir_(pulseDir),
      velocity_(velocity),
      vtl_(vtl) {
  SetCaption("Motion Control Mode");
  Activate.Set([this] {
    OfferModes();
    if (Button* const present = ButtonOfPresentMode()) present->Focus();
  });
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
  ShowModeName(screen_, settings_);
  if (SummarizeMotion) SummarizeMotion();
  Hide();
}

void MotionMenu::Load() { CenterOn(screen_, *this); }

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
  const DriveModel model = ModelOf(screen_);
  WyProgram.SetEnabled(model.wyProgram);
  ZuProgram.SetEnabled(model.zuProgram);
}

Button* MotionMenu::ButtonOfPresentMode() {
  const DriveModel model = ModelOf(screen_);
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
