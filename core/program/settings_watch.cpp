#include "core/program/settings_watch.h"

#include <algorithm>
#include <utility>

#include "image/parameter_image.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr double kIdle = 0.3;  // seconds

/// True where `held` has been another value; it takes this one.
template <class T>
bool Moves(T& held, const T& now) {
  if (held == now) return false;
  held = now;
  return true;
}

}  // namespace

// Each is brought up to date, whatever the others say.
bool SettingsWatch::Moved() {
  bool moved = Moves(ground_.settings, p_.settings);
  moved |= Moves(ground_.motor, p_.motorTable.RowIfAny());
  moved |= Moves(ground_.model, p_.state.ModelIndex.Get());
  moved |= Moves(ground_.port, p_.state.CommIndex.Get());
  moved |= Moves(ground_.file, p_.state.FileName);
  moved |= Moves(ground_.fileRevision, p_.files.FileRevision());
  moved |= Moves(ground_.front, p_.desk.ActiveFormName());
  moved |= Moves(ground_.image, p_.state.Drive.HeldRevision());
  moved |= Moves(ground_.upsets, p_.state.Drive.Upsets());
  return moved;
}

InFile SettingsWatch::File() const {
  if (p_.state.FileName.empty()) return InFile::NoFile;
  return comparedUpsets_ == p_.state.Drive.Upsets() ? inFile_ : InFile::Unknown;
}

void SettingsWatch::Look() {
  if (Moved()) CompareSoon();
}

void SettingsWatch::CompareSoon() {
  p_.desk.Cancel(comparing_);
  comparing_ = p_.desk.CallAfter(kIdle, [this] { Compare(); });
}

void SettingsWatch::Compare() {
  inDrive_ = CompareImages();
  inFile_ = p_.files.LookAtFile();
  comparedImage_ = p_.state.Drive.HeldRevision();
  comparedUpsets_ = p_.state.Drive.Upsets();
  Compared.Raise();
}

InDrive SettingsWatch::CompareImages() const {
  const auto& held = p_.state.Drive.Held();
  if (!held) return InDrive::Unknown;
  try {
    return std::ranges::equal(WholeImage(p_.settings, p_.motorTable.Row()), *held) ? InDrive::Yes
                                                                                   : InDrive::No;
  } catch (const RuntimeError&) {
    return InDrive::No;  // no drive can hold what cannot be sent
  }
}

}  // namespace kavr6
