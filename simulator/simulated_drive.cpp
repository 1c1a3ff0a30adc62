#include "simulator/simulated_drive.h"

#include <algorithm>
#include <string_view>

namespace kavr6 {
namespace {

constexpr std::uint8_t kAccepted = 6;
constexpr std::uint8_t kRefused = 21;
constexpr std::uint8_t kPowerUpHeader = 0xFF;
constexpr std::uint8_t kAlarmHeader = 0xFC;
constexpr std::uint8_t kRevisionHeader = 0xF1;

constexpr std::uint8_t kStatusWordRequest = 128;
constexpr std::uint8_t kLetterRequest = 142;

/// For how long after its announcement a drive waits for a live tool's answer, in seconds.
constexpr double kAnnounced = 2.0;

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
      interpreter_(scheduler),
      works_(scheduler),
      language_(works_, [this](const std::string& bytes) {
        Send({DriveEvent::Kind::Answer, bytes, "text", asked_}, replyDelay_);
      }) {
  interpreter_.Heard = [this](std::string_view bytes, bool known) {
    asked_ = interpreter_.TextMode() && TextLanguage::Asks(std::string(bytes.substr(0, bytes.find('\r'))));
    Tell({known ? DriveEvent::Kind::Command : DriveEvent::Kind::Unknown, std::string(bytes), {}, asked_});
  };
  works_.motor.AlarmRaised = [this](int word) { TellAlarm(word); };
  works_.registers.Load(image_);
  LearnCommands();
  LearnMaintenance();
  LearnOffset();
  LearnTextLanguage();
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
  interpreter_.Add("HM", 0, nothing);
  interpreter_.Add("HR", 0, textMode);
  interpreter_.Add("d", kImageBytes, [this](Arguments image) { TakeImage(image); });
  interpreter_.Add("u", 0, [this](Arguments) { Answer(std::string(image_.begin(), image_.end()), "image"); });
}

void SimulatedDrive::LearnMaintenance() {
  using Arguments = std::span<const std::uint8_t>;
  interpreter_.Add("a", 0, [this](Arguments) { AnswerHistory(); });
  interpreter_.Add("o", 0, [this](Arguments) { history_.fill(0); });
  // "zzn" needs no row of its own: clearing twice and enabling is what its letters do.
  interpreter_.Add("z", 0, [this](Arguments) { works_.motor.ClearAlarm(); });
  interpreter_.Add("n", 0, [this](Arguments) { works_.motor.Enable(); });
  interpreter_.Add("i4071", 0, [this](Arguments) {
    image_ = FactoryImage();
    ImageHasChanged();
  });
}

// Later firmware wants a guard code with the command that measures the analog input.
void SimulatedDrive::LearnOffset() {
  const bool early =
      (works_.revision == 0 && works_.letter < 'k') || (works_.revision == 1 && works_.letter == 'A');
  const std::string_view guard = early ? "" : "4071";
  interpreter_.Add("O", guard.size(), [this, guard](std::span<const std::uint8_t> code) {
    if (!std::equal(code.begin(), code.end(), guard.begin())) return;
    Answer(BytesOf({kAnalogOffset >> 8 & 0xFF, kAnalogOffset & 0xFF}), "analog offset");
  });
}

void SimulatedDrive::LearnTextLanguage() {
  interpreter_.TextLine = [this](const std::string& line) {
    language_.Take(line);
    asked_ = false;
  };
  TextSession& session = language_.Session();
  session.Leave = [this] { interpreter_.SetTextMode(false); };
  session.PowerUp = [this] { Restart(); };
  session.Save = [this] {
    works_.registers.Keep();
    works_.registers.StoreIn(image_);
    if (ImageChanged) ImageChanged();
  };
}

void SimulatedDrive::SetIdentity(int revisionByte, int modelCode, char letter) {
  works_.revision = revisionByte;
  works_.model = modelCode;
  works_.letter = letter;
  LearnOffset();
}

void SimulatedDrive::StoreImage(const Image& image) {
  image_ = image;
  works_.registers.Load(image_);
}

void SimulatedDrive::ImageHasChanged() {
  works_.registers.Load(image_);
  if (ImageChanged) ImageChanged();
}

void SimulatedDrive::Identify() { Answer(BytesOf({works_.revision, works_.model}), "identity"); }

void SimulatedDrive::AnswerWord(std::uint8_t which) {
  if (which == kStatusWordRequest) Answer(HexWord(StatusWord()), "status word");
  if (which == kLetterRequest) Answer(HexWord(static_cast<std::uint8_t>(works_.letter)), "sub-revision");
}

void SimulatedDrive::TakeImage(std::span<const std::uint8_t> bytes) {
  if (refusing_ || !DriveImageSumHolds(bytes)) {
    Answer(BytesOf({kRefused}), "image refused");
    return;
  }
  std::copy(bytes.begin(), bytes.end(), image_.begin());
  Answer(BytesOf({kAccepted}), "image stored");
  ImageHasChanged();
}

void SimulatedDrive::AnswerHistory() {
  std::string bytes;
  for (const int word : history_) bytes += BytesOf({word >> 8 & 0xFF, word & 0xFF});
  Answer(bytes, "alarm history");
}

// A single "0" means nothing. Two in a row soon after the power-up announcement are a live tool's answer to
// it, and take up the text session again. What the tool was saying in the moment of the restart may be heard
// between announcement and answer.
void SimulatedDrive::TakeZero() {
  const double now = scheduler_.Now();
  if (now - announcedAt_ <= kAnnounced && now - zeroAt_ <= CommandInterpreter::kPause)
    interpreter_.SetTextMode(true);
  zeroAt_ = now;
}

void SimulatedDrive::Restart() {
  interpreter_.Reset();
  line_.Clear();
  language_.Kill();
  works_.registers.Recall();
  works_.registers.Load(image_);
  works_.terminals.ReleaseOutputs();
  works_.motor.Restart();
  announcedAt_ = scheduler_.Now();
  zeroAt_ = -kForever;
  Message(BytesOf({kPowerUpHeader, works_.revision, works_.model}), "power-up");
}

void SimulatedDrive::TellAlarm(int alarmWord) {
  std::rotate(history_.begin(), history_.end() - 1, history_.end());
  history_[0] = alarmWord;
  Message(BytesOf({kAlarmHeader, alarmWord >> 7 & 0x7F, alarmWord & 0x7F}), "alarm");
}

void SimulatedDrive::SetInput(std::size_t input, bool high) {
  if (works_.terminals.High(input) == high) return;
  works_.terminals.SetInput(input, high);
  works_.motor.InputChanged(input);
  language_.InputChanged(input);
}

void SimulatedDrive::ReportRevision() {
  Message(BytesOf({kRevisionHeader, works_.revision, works_.letter}), "revision");
}

void SimulatedDrive::SetSilent(bool silent) {
  silent_ = silent;
  if (silent) line_.Clear();
}

void SimulatedDrive::Send(const DriveEvent& event, double delay) {
  if (silent_) return;
  const std::string& bytes = event.bytes;
  line_.Put(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), delay,
            [this, event] { Tell(event); });
}

}  // namespace kavr6
