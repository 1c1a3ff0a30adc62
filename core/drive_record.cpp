#include "core/drive_record.h"

#include <utility>

#include "core/alarms.h"
#include "core/drive_models.h"
#include "core/drive_state.h"

namespace kavr6 {
namespace {

std::string NameOfPort(int port) { return "COM" + std::to_string(port); }

std::string AlarmNames(int word) {
  std::string names;
  for (std::size_t bit = 0; bit < kAlarms.size(); ++bit)
    if ((word >> bit & 1) != 0) names += (names.empty() ? "" : ", ") + std::string(kAlarms[bit].history);
  return names;
}

}  // namespace

std::string DriveRecord::Model() const {
  if (model_ == 0) return "A drive";
  const int index = ModelIndex(model_);
  if (index < 0) return "Unknown model " + std::to_string(model_);
  return std::string(kDriveModels[static_cast<std::size_t>(index)].name);
}

std::string DriveRecord::Firmware() const { return ShownRevision(revision_, letter_); }

void DriveRecord::Move(Presence presence) {
  if (presence_ != presence) since_ = news_.Minute();
  presence_ = presence;
}

bool DriveRecord::Speaks() {
  if (port_ == 0) return false;  // bytes that were left when the line went
  ++words_;
  const int now = news_.Minute();
  if (presence_ == Presence::Answers && heardAt_ == now) return false;
  Move(Presence::Answers);
  heardAt_ = now;
  heardOn_ = port_;
  return true;
}

void DriveRecord::DropImage() {
  if (!held_) return;
  held_.reset();
  ++heldRevision_;
}

void DriveRecord::Upset() {
  DropImage();
  alarm_.reset();
  ++upsets_;
}

void DriveRecord::Another() {
  Upset();
  news_.Tell("Another drive answers: " + Model() + ", firmware " + Firmware());
}

void DriveRecord::Heard() {
  if (Speaks()) Changed.Raise();
}

void DriveRecord::TakeIdentity(float revision, int model) {
  if (revision == revision_ && model == model_) return;
  revision_ = revision;
  model_ = model;
  letter_.clear();
}

void DriveRecord::Identified(float revision, int model) {
  const bool another = Known() && (revision != revision_ || (model != model_ && model_ != 0));
  TakeIdentity(revision, model);
  sure_ = true;
  doubt_ = false;
  textPort_ = 0;
  Speaks();
  if (another) Another();
  Changed.Raise();
}

void DriveRecord::LetterIs(const std::string& letter) {
  const bool another = !letter_.empty() && letter != letter_;
  letter_ = letter;
  Speaks();
  if (another) Another();
  Changed.Raise();
}

void DriveRecord::LetterUntold() {
  if (letter_.empty()) return;
  // Perhaps it is another one, whose firmware has none.
  letter_.clear();
  DropImage();
  Changed.Raise();
}

void DriveRecord::Restarted(float revision, int model) {
  if (doubt_ && ModelIndex(model) < 0) return Heard();
  TakeIdentity(revision, model);
  // It may be another one of the same kind, whose letter nobody has asked yet.
  letter_.clear();
  sure_ = true;
  doubt_ = false;
  if (!inSession_) textPort_ = 0;
  Speaks();
  Upset();
  news_.Tell(Model() + " started");
  Changed.Raise();
}

void DriveRecord::SetAlarm(std::optional<int> word) {
  if (word != alarm_) alarmAt_ = news_.Minute();
  alarm_ = word;
}

void DriveRecord::Alarm(int word) {
  if (word == 0) return FaultCleared();
  if (port_ == 0) return;
  Speaks();
  if (alarm_ != word) news_.Tell("Alarm", ": " + AlarmNames(word));
  SetAlarm(word);
  Changed.Raise();
}

void DriveRecord::FaultStands() {
  if (port_ == 0) return;
  Speaks();
  if (!alarm_) {
    SetAlarm(0);
    news_.Tell("Alarm");
  }
  Changed.Raise();
}

void DriveRecord::FaultCleared() {
  const bool more = Speaks();
  if (alarm_) news_.Tell("Alarm is over");
  if (std::exchange(alarm_, std::nullopt) || more) Changed.Raise();
}

void DriveRecord::ClearSent() {
  if (alarm_) news_.Tell("Alarm told to clear", ", not confirmed");
}

void DriveRecord::Holds(std::span<const std::uint8_t> image) {
  Speaks();
  held_.emplace(image.begin(), image.end());
  ++heldRevision_;
  Changed.Raise();
}

void DriveRecord::NoAnswer() {
  // Behind a silence there may be another drive when it ends.
  const bool held = held_.has_value();
  DropImage();
  sure_ = false;
  doubt_ = true;
  const bool news = presence_ != Presence::Silent;
  if (news) {
    Move(Presence::Silent);
    news_.Tell(
        "No answer from the drive",
        LeftInText() ? ": it may still speak its text language; open and close the Status Monitor" : "");
  }
  if (held || news) Changed.Raise();
}

void DriveRecord::PortOpened(int port) {
  port_ = port;
  DropImage();
  sure_ = false;
  doubt_ = false;
  if (heardOn_ == 0) {
    Move(Presence::NeverHeard);
  } else if (port != heardOn_) {
    Move(Presence::AnotherPort);
    alarm_.reset();
  }
  const bool back = std::exchange(lostPort_, 0) == port;
  // A port that is closed only to be opened once more has been open all the time.
  if (std::exchange(closedPort_, 0) != port) news_.Tell(NameOfPort(port) + (back ? " is back" : " opened"));
  Changed.Raise();
}

void DriveRecord::PortClosed(bool unwanted) {
  closedPort_ = unwanted ? 0 : port_;
  if (port_ == 0) return;
  DropImage();
  alarm_.reset();
  if (presence_ != Presence::NeverHeard) Move(Presence::LineLost);
  if (unwanted) {
    lostPort_ = port_;
    news_.Tell(NameOfPort(port_) + " lost");
  }
  port_ = 0;
  Changed.Raise();
}

void DriveRecord::TextSessionBegins() {
  inSession_ = true;
  if (port_ != 0) textPort_ = port_;
}

void DriveRecord::TextSessionEnds() {
  inSession_ = false;
  if (port_ != 0) textPort_ = 0;
}

void DriveRecord::ForgetImage() {
  if (!held_) return;
  DropImage();
  Changed.Raise();
}

void DriveRecord::Restored() {
  DropImage();
  ++upsets_;
  news_.Tell("Drive told to take its factory values");
  Changed.Raise();
}

void DriveRecord::ListMoved(bool byDrive) {
  listSetByDrive_ = byDrive;
  Changed.Raise();
}

}  // namespace kavr6
