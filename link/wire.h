// What goes over the line outside the text language: the commands of the tool and the messages of the drive.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kavr6 {

// Commands. They take no end mark.
inline constexpr std::string_view kIdentify = "C";
inline constexpr std::string_view kReadWord = "y";  ///< and the byte that says which
inline constexpr std::string_view kBeforeTransfer = "S";
inline constexpr std::string_view kPortChanged = "0";
inline constexpr std::string_view kQuitText = "QT";
inline constexpr std::string_view kTakeUpText = "00";
inline constexpr std::string_view kDownload = "d";
inline constexpr std::string_view kUpload = "u";
inline constexpr std::string_view kMeasureOffset = "O";
inline constexpr std::string_view kMeasureOffsetGuarded = "O4071";
inline constexpr std::string_view kReadHistory = "a";
inline constexpr std::string_view kClearHistory = "o";
inline constexpr std::string_view kClearAlarm = "z";
inline constexpr std::string_view kEnableMotor = "n";
inline constexpr std::string_view kClearAlarmAndEnable = "zzn";
inline constexpr std::string_view kRestoreFactory = "i4071";  ///< the drive acts on the whole text alone

/// Bytes of a message of the drive; the first one is its MessageHeader.
inline constexpr int kMessageSize = 3;
/// A byte from here on begins a message; the other two of it, and all text, are below.
inline constexpr int kFirstHeader = 128;
/// The alarm word of a message: seven bits in each of its bytes.
constexpr int AlarmWord(int second, int third) { return second * kFirstHeader + third; }
/// Ends a line of the text language.
inline constexpr char kReturn = '\r';

/// Words that kReadWord asks for.
inline constexpr std::uint8_t kStatusWord = 128;
inline constexpr std::uint8_t kSubRevision = 142;

/// The drive's answers to an image.
inline constexpr std::uint8_t kAcknowledge = 6;
inline constexpr std::uint8_t kRefusal = 21;

struct WireCommand {
  std::string_view bytes;
  int argument;  ///< the byte that follows, -1 for none
  std::string_view meaning;
  std::string_view reply;
  double limit;  ///< seconds for which the reply is awaited, 0 where none is
};

inline constexpr std::array<WireCommand, 17> kWireCommands{{
    {kIdentify, -1, "which drive is it", "revision byte, model byte", 0.5},
    {kReadWord, kSubRevision, "letter of the revision", "4 hexadecimal digits, the last two are its code",
     0.5},
    {kReadWord, kStatusWord, "status word", "4 hexadecimal digits", 1.0},
    {kBeforeTransfer, -1, "a transfer follows", "", 0},
    {kPortChanged, -1, "sent once after a change of the port", "", 0},
    {kQuitText, -1, "back from the text language; answers a power-up message", "", 0},
    {kTakeUpText, -1, "a live tool's answer to a power-up message: the text session goes on", "", 0},
    {kDownload, -1, "take an image; its 161 bytes follow", "6 accepted, 21 refused", 1.0},
    {kUpload, -1, "send the image", "161 bytes", 0.5},
    {kMeasureOffset, -1, "measure the analog input, firmware up to 1.00j and 1.01A", "signed word, 1/2 mV",
     0.5},
    {kMeasureOffsetGuarded, -1, "measure the analog input, later firmware", "signed word, 1/2 mV", 0.5},
    {kReadHistory, -1, "the last alarms", "8 alarm words, the most recent first", 0.5},
    {kClearHistory, -1, "forget the last alarms", "", 0},
    {kClearAlarm, -1, "clear the alarm", "", 0},
    {kEnableMotor, -1, "enable the motor", "", 0},
    {kClearAlarmAndEnable, -1, "both of these, from the window that tells of the alarm", "", 0},
    {kRestoreFactory, -1, "forget all settings and take the factory values", "", 0},
}};

/// Seconds for which the reply to a command is awaited.
constexpr double ReplyLimit(std::string_view bytes, int argument = -1) {
  for (const WireCommand& command : kWireCommands)
    if (command.bytes == bytes && command.argument == argument) return command.limit;
  return 0;
}

/// Messages that a drive sends unasked: a header and two bytes below kFirstHeader.
enum class MessageHeader : std::uint8_t {
  ZuFirmware = 0xEF,
  DspReflash = 0xF0,
  Revision = 0xF1,
  Status = 0xF3,
  IgnoredF4 = 0xF4,
  IgnoredF7 = 0xF7,
  IgnoredF8 = 0xF8,
  IgnoredF9 = 0xF9,
  Alarm = 0xFC,
  PowerUp = 0xFF,
};

struct WireMessage {
  MessageHeader header;
  std::string_view second;
  std::string_view third;
  std::string_view meaning;
};

inline constexpr std::array<WireMessage, 10> kWireMessages{{
    {MessageHeader::ZuFirmware, "1 mismatch, else reflash", "",
     "the stored-program firmware asks for help: a box"},
    {MessageHeader::DspReflash, "", "", "the motor firmware waits to be reloaded: a box"},
    {MessageHeader::Revision, "revision byte", "code of the letter", "the firmware's revision"},
    {MessageHeader::Status, "0 no fault", "", "the drive has a fault"},
    {MessageHeader::IgnoredF4, "", "", "nothing"},
    {MessageHeader::IgnoredF7, "", "", "nothing"},
    {MessageHeader::IgnoredF8, "", "", "nothing"},
    {MessageHeader::IgnoredF9, "", "", "nothing"},
    {MessageHeader::Alarm, "bits 7 to 13 of the alarm word", "bits 0 to 6", "an alarm"},
    {MessageHeader::PowerUp, "revision byte", "model byte", "the drive has started"},
}};

}  // namespace kavr6
