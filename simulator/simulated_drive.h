// A KAVR6 drive as its serial line shows it, for tests, training and a first start without hardware.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "simulator/byte_line.h"
#include "simulator/command_interpreter.h"
#include "simulator/drive_works.h"
#include "simulator/text_language.h"

namespace kavr6 {

/// Something that has passed over a drive's line, for people who watch it.
struct DriveEvent {
  enum class Kind {
    Command,  ///< a whole command has come in; Answer and Message have left whole
    Answer,
    Message,
    Unknown,  ///< a byte that begins no command
  };
  Kind kind = Kind::Command;
  std::string bytes;
  std::string meaning;  ///< a few words, such as "identity"; "text" for an answer in the text language
  bool query = false;   ///< a line of text that does nothing but ask, or its answer
};

/// Bytes in, bytes out, on the time of a Scheduler. Answers leave at line speed, 9600 baud with 10 bits a
/// byte, one behind the other.
class SimulatedDrive {
 public:
  static constexpr std::size_t kImageBytes = kDriveImageBytes;
  static constexpr double kByteTime = 10.0 / 9600.0;
  using Image = DriveImage;

  explicit SimulatedDrive(Scheduler& scheduler);
  SimulatedDrive(const SimulatedDrive&) = delete;
  SimulatedDrive& operator=(const SimulatedDrive&) = delete;
  ~SimulatedDrive() = default;

  /// A whole byte has come in over the line.
  void Receive(std::uint8_t byte) { interpreter_.Take(byte); }
  /// Called for each byte the moment it has left the drive whole.
  std::function<void(std::uint8_t)> Transmit;
  std::function<void(const DriveEvent&)> Observe;
  /// The line has sent a new image into the store.
  std::function<void()> ImageChanged;

  /// What the drive is: revision byte r for firmware 1 + r / 100, letter of the sub-revision. The model code
  /// may be any byte. A new drive is 52, 41, 'k'.
  void SetIdentity(int revisionByte, int modelCode, char letter);
  /// The stored configuration, with a valid checksum at first; it outlives a restart.
  const Image& StoredImage() const { return image_; }
  void StoreImage(const Image& image);

  int AlarmWord() const { return works_.motor.AlarmWord(); }
  int StatusWord() const { return works_.motor.StatusWord() | language_.WaitBits(); }
  /// The text language is spoken, not the single-letter commands.
  bool TextMode() const { return interpreter_.TextMode(); }

  // Things that happen to a drive.
  /// Power off and on: whatever was going on is forgotten, then the 3-byte announcement is sent. Image and
  /// alarm history are kept, the alarm is not; the text language begins again with what has been saved.
  void Restart();
  /// The alarm word becomes this one, and is remembered in the history and told in an alarm message, which
  /// has room for its lower 14 bits. A serious alarm disables the motor.
  void RaiseAlarm(int alarmWord) { works_.motor.RaiseAlarm(alarmWord & 0xFFFF); }
  /// Low is closed. For the numbers of the inputs see DriveTerminals.
  void SetInput(std::size_t input, bool high);
  /// At the analog input; nothing: they wander a little.
  void SetVolts(std::optional<double> volts) { works_.terminals.SetVolts(volts); }
  void SetEncoder(long count) { works_.motor.SetEncoderCount(static_cast<double>(count)); }
  /// Somebody holds the shaft.
  void SetStalled(bool stalled) { works_.motor.SetStalled(stalled); }
  /// Tells its firmware revision without being asked.
  void ReportRevision();
  /// Sends these bytes as they are.
  void SendRaw(const std::string& bytes) { Message(bytes, "raw bytes"); }

  // Misbehaviour; each stays until it is taken back.
  /// A silent drive sends nothing; what it was sending is cut off. It still listens and acts.
  void SetSilent(bool silent);
  /// Each answer begins this much later, in seconds.
  void SetReplyDelay(double seconds) { replyDelay_ = seconds; }
  /// Refuses every downloaded image, whatever its sum.
  void SetRefusing(bool refusing) { refusing_ = refusing; }
  /// The cause of the alarm does not go away: commands do not clear it.
  void SetAlarmSticking(bool sticking) { works_.motor.SetAlarmSticking(sticking); }
  /// Time that each sent byte takes, for partners that are in a hurry; 0 is at once.
  void SetByteTime(double seconds) { line_.SetByteTime(seconds); }

 private:
  void LearnCommands();
  void LearnMaintenance();
  void LearnOffset();
  void LearnTextLanguage();
  void ImageHasChanged();
  void TellAlarm(int alarmWord);
  void Identify();
  void AnswerWord(std::uint8_t which);
  void TakeImage(std::span<const std::uint8_t> bytes);
  void AnswerHistory();
  void TakeZero();

  void Answer(const std::string& bytes, const std::string& meaning) {
    Send({DriveEvent::Kind::Answer, bytes, meaning}, replyDelay_);
  }
  void Message(const std::string& bytes, const std::string& meaning) {
    Send({DriveEvent::Kind::Message, bytes, meaning}, 0.0);
  }
  void Send(const DriveEvent& event, double delay);
  void Tell(const DriveEvent& event) const {
    if (Observe) Observe(event);
  }

  Scheduler& scheduler_;
  ByteLine line_;
  CommandInterpreter interpreter_;
  DriveWorks works_;
  TextLanguage language_;
  Image image_ = FactoryImage();
  std::array<int, 8> history_{};  // alarms, the most recent first

  double announcedAt_ = -kForever;
  double zeroAt_ = -kForever;
  bool asked_ = false;  // the line of text that is being done only asks

  bool silent_ = false;
  bool refusing_ = false;
  double replyDelay_ = 0.0;
};

}  // namespace kavr6
