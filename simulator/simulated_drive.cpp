#include "simulator/simulated_drive.h"

#include <algorithm>
#include <string_view>

#include "core/alarms.h"
#include "core/status_word.h"

namespace kavr6 {
namespace {

constexpr std::uint8_t kAccepted = 6;
constexpr std::uint8_t kRefused = 21;
constexpr std::uint8_t kPowerUpHeader = 0xFF;
constexpr std::uint8_t kAlarmHeader = 0xFC;
constexpr std::uint8_t kRevisionHeader = 0xF1;

constexpr std::uint8_t kStatusWordRequest = 128;
constexpr std::uint8_t kLetterRequest = 142;

/// What the analog input shows at zero volts, in half millivolts.
constexpr int kAnalogOffset = -25;

std::string BytesOf(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes += static_cast<char>(value);
  return bytes;
}

/// The low 16 bits as four hexadecimal characters.
std::string HexWord(int word) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[static_cast<std::size_t>(word >> shift & 15)];
  return text;
}

}  // namespace

SimulatedDrive::SimulatedDrive(Scheduler& scheduler)
    : scheduler_(scheduler),
      line_(scheduler, kByteTime,
            [this](std::uint8_t byte) {
              const auto transmit = Transmit;  // it may be taken away from within the call
              if (transmit) transmit(byte);
            }),
      interpreter_(scheduler) {
  interpreter_.TextLine = [this](const std::string& line) { TextLine(line); };
  interpreter_.Heard = [this](std::string_view bytes, bool known) {
    if (bytes != "0") announced_ = false;
    Tell(known ? DriveEvent::Kind::Command : DriveEvent::Kind::Unknown, std::string(bytes), {});
  };
  LearnCommands();
  LearnMaintenance();
  LearnOffset();
}

void SimulatedDrive::LearnCommands() {
  using Arguments = std::span<const std::uint8_t>;
  const auto nothing = [](Arguments) {};
  const auto textMode = [this](Arguments) { interpreter_.SetTextMode(true); };
  interpreter_.Add("C", 0, [this](Arguments) { Identify(); });
  interpreter_.Add("y", 1, [this](Arguments which) { AnswerWord(which[0]); });
  interpreter_.Add("S", 0, nothing);
  interpreter_.Add("0", 0, [this](Arguments) { TakeZero(); });
  interpreter_.Add("QT", 0, nothing);
  interpreter_.Add("HR", 0, textMode);
  interpreter_.Add("d", kImageBytes, [this](Arguments image) { TakeImage(image); });
  interpreter_.Add("u", 0, [this](Arguments) { Answer(std::string(image_.begin(), image_.end()), "image"); });
}

void SimulatedDrive::LearnMaintenance() {
  using Arguments = std::span<const std::uint8_t>;
  interpreter_.Add("a", 0, [this](Arguments) { AnswerHistory(); });
  interpreter_.Add("o", 0, [this](Arguments) { history_.fill(0); });
  // "zzn" needs no row of its own: clearing twice and enabling is what its letters do.
  interpreter_.Add("z", 0, [this](Arguments) {
    if (!alarmSticking_) alarm_ = 0;
  });
  interpreter_.Add("n", 0, [this](Arguments) { enabled_ = (alarm_ & kDisablingAlarms) == 0; });
  interpreter_.Add("i4071", 0, [this](Arguments) {
    image_ = FactoryImage();
    if (ImageChanged) ImageChanged();
  });
}

// Later firmware wants a guard code with the command that measures the analog input.
void SimulatedDrive::LearnOffset() {
  const bool early = (revision_ == 0 && letter_ < 'k') || (revision_ == 1 && letter_ == 'A');
  const std::string_view guard = early ? "" : "4071";
  interpreter_.Add("O", guard.size(), [this, guard](std::span<const std::uint8_t> code) {
    if (!std::equal(code.begin(), code.end(), guard.begin())) return;
    Answer(BytesOf({kAnalogOffset >> 8 & 0xFF, kAnalogOffset & 0xFF}), "analog offset");
  });
}

void SimulatedDrive::TextLine(const std::string& line) {
  if (line == "QT" || line == "HM") interpreter_.SetTextMode(false);
}

void SimulatedDrive::SetIdentity(int revisionByte, int modelCode, char letter) {
  revision_ = revisionByte;
  model_ = modelCode;
  letter_ = letter;
  LearnOffset();
}

int SimulatedDrive::StatusWord() const {
  return (enabled_ ? kStatusEnabled : 0) | ((alarm_ & kDisablingAlarms) != 0 ? kStatusFault : 0) |
         (alarm_ != 0 ? kStatusAlarm : 0);
}

void SimulatedDrive::Identify() { Answer(BytesOf({revision_, model_}), "identity"); }

void SimulatedDrive::AnswerWord(std::uint8_t which) {
  if (which == kStatusWordRequest) Answer(HexWord(StatusWord()), "status word");
  if (which == kLetterRequest) Answer(HexWord(static_cast<std::uint8_t>(letter_)), "sub-revision");
}

void SimulatedDrive::TakeImage(std::span<const std::uint8_t> bytes) {
  if (refusing_ || !DriveImageSumHolds(bytes)) {
    Answer(BytesOf({kRefused}), "image refused");
    return;
  }
  std::copy(bytes.begin(), bytes.end(), image_.begin());
  Answer(BytesOf({kAccepted}), "image stored");
  if (ImageChanged) ImageChanged();
}

void SimulatedDrive::AnswerHistory() {
  std::string bytes;
  for (const int word : history_) bytes += BytesOf({word >> 8 & 0xFF, word & 0xFF});
  Answer(bytes, "alarm history");
}

// A single "0" means nothing. Two in a row right after the power-up announcement are a live tool's answer to
// it, and take up the text session again.
void SimulatedDrive::TakeZero() {
  if (announced_ && scheduler_.Now() - zeroAt_ <= CommandInterpreter::kPause) interpreter_.SetTextMode(true);
  zeroAt_ = scheduler_.Now();
}

void SimulatedDrive::Restart() {
  interpreter_.Reset();
  line_.Clear();
  alarm_ = 0;
  enabled_ = true;
  announced_ = true;
  zeroAt_ = -kForever;
  Send(BytesOf({kPowerUpHeader, revision_, model_}), 0.0, DriveEvent::Kind::Message, "power-up");
}

void SimulatedDrive::RaiseAlarm(int alarmWord) {
  alarm_ = alarmWord & 0xFFFF;
  std::rotate(history_.begin(), history_.end() - 1, history_.end());
  history_[0] = alarm_;
  if ((alarm_ & kDisablingAlarms) != 0) enabled_ = false;
  Send(BytesOf({kAlarmHeader, alarm_ >> 7 & 0x7F, alarm_ & 0x7F}), 0.0, DriveEvent::Kind::Message, "alarm");
}

void SimulatedDrive::ReportRevision() {
  Send(BytesOf({kRevisionHeader, revision_, letter_}), 0.0, DriveEvent::Kind::Message, "revision");
}

void SimulatedDrive::SetSilent(bool silent) {
  silent_ = silent;
  if (silent) line_.Clear();
}

void SimulatedDrive::Send(const std::string& bytes, double delay, DriveEvent::Kind kind,
                          const std::string& meaning) {
  if (silent_) return;
  line_.Put(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), delay,
            [this, bytes, kind, meaning] { Tell(kind, bytes, meaning); });
}

}  // namespace kavr6
