// The host terminal.
#pragma once

#include <functional>
#include <string>

#include "platform/file_store.h"
#include "platform/text_area.h"
#include "tools/line_memory.h"
#include "tools/live_tool.h"
#include "tools/power_up_capture.h"

namespace kavr6 {

/// Window "VTLterm": sends what is typed, a line at a time, and keeps a record of that and of all that the
/// drive says. The text session with the drive lasts as long as the window is the front one.
class VTLterm : public LiveTool {
 public:
  /// All of them outlive the window.
  VTLterm(const DriveLine& line, Desktop& desktop, FileStore& files);

  Frame FrameHistory{*this, "FrameHistory"};
  TextArea History{*this, "History", TextArea::Use::Read};
  Frame FrameCommands{*this, "FrameCommands"};
  TextArea CommandText{*this, "CommandText", TextArea::Use::Edit};
  /// The lines sent so far, the newest first: the one that is picked goes into CommandText.
  ListBox Earlier{*this, "Earlier"};
  Button Help{*this, "Help", "Help"};
  Button Save{*this, "Save", "Save..."};
  Button Quit{*this, "Quit", "Close", Button::Role::Cancel};

  /// Opens the list of commands.
  std::function<void()> ShowCommandList;

  /// A drive has announced itself with these three bytes.
  void DoPowerUp(const std::string& text);
  /// Takes the pending command into the record.
  void CheckIdle();

 protected:
  void Load() override { CenterOnScreen(*this); }
  bool MayClose() override;
  void ProcessChar(std::uint8_t byte) override;
  void GiveBack() override;

 private:
  void WireSession();
  void BeginSession();
  void EndSession(std::string_view command);
  void SendLine();
  void Record(const std::string& text, bool own = false);
  void LimitHistory();
  void Recall(const std::string& line);
  void SaveRecord();

  FileStore& files_;
  std::string folder_;  // where the last record was saved
  std::string PendingCommand;
  PowerUpCapture announcement_;
  LineMemory memory_;
};

}  // namespace kavr6
