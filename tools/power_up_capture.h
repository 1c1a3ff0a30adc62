// The announcement of a drive that has started, as live tools meet it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "link/drive_line.h"

namespace kavr6 {

/// Finds the three bytes of an announcement in a stream: 255, revision byte, model byte. One that has begun
/// stays begun until its third byte, however late that comes.
class PowerUpCapture {
 public:
  /// Takes the byte when it begins an announcement or belongs to one, whatever its value there; calls
  /// DoPowerUp with the third. False: the byte is the tool's.
  bool Take(std::uint8_t byte);
  std::function<void(const std::string& text)> DoPowerUp;
  /// The rest of one that has begun goes elsewhere.
  void Forget() { InPowerUp = false; }

 private:
  std::string PowerUpText;
  bool InPowerUp = false;
};

/// Tells the record that the drive has started, where these can be the bytes of an announcement that has come
/// whole: in a message they are below 128.
void TellRestart(DriveRecord& drive, std::uint8_t revision, std::uint8_t model);

/// What terminal and monitor do about an announcement: the answer that takes up the text session again, for
/// model bytes below 100; a beep; DriveVersion without a letter.
void AnswerPowerUp(const DriveLine& line, std::uint8_t revision, std::uint8_t model);

}  // namespace kavr6
