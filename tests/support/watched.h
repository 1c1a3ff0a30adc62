// Desktop and serial port of a scene, with somebody who watches what passes through them.
#pragma once

#include <map>
#include <span>
#include <string>
#include <utility>

#include "platform/form.h"
#include "platform/headless/headless_desktop.h"
#include "simulator/simulated_comm.h"

namespace kavr6 {

class Watcher {
 public:
  virtual ~Watcher() = default;
  /// Something may have changed.
  virtual void Look() = 0;
  virtual void Note(const std::string& what) = 0;
  virtual void Wire(bool toDrive, std::span<const std::uint8_t> bytes) = 0;
  virtual void Asked(const MessageBox& box) = 0;
  virtual void Answered(const MessageBox& box, BoxAnswer answer) = 0;
  virtual void Opened(const Form& form, bool modal) = 0;
};

class WatchedDesktop : public HeadlessDesktop {
 public:
  Watcher* watcher = nullptr;

  TaskId CallAfter(double seconds, Task task) override {
    return HeadlessDesktop::CallAfter(seconds, [this, work = std::move(task)] {
      work();
      if (watcher != nullptr) watcher->Look();
    });
  }
  void Beep() override {
    HeadlessDesktop::Beep();
    Note("beep");
  }

 protected:
  [[noreturn]] void EndProcess(int exitCode) override {
    Note("program ends with " + std::to_string(exitCode));
    HeadlessDesktop::EndProcess(exitCode);
  }
  BoxAnswer ShowBox(const MessageBox& box) override {
    if (watcher != nullptr) watcher->Asked(box);
    const BoxAnswer answer = HeadlessDesktop::ShowBox(box);
    if (watcher != nullptr) watcher->Answered(box, answer);
    return answer;
  }
  std::string ShowFileDialog(const FileDialog& dialog) override {
    const std::string name = HeadlessDesktop::ShowFileDialog(dialog);
    const bool open = dialog.purpose == FileDialog::Purpose::Open;
    Note(std::string("file to ") + (open ? "open" : "save") + " asked for, \"" + dialog.filter + "\" ." +
         dialog.defaultExtension + " in \"" + dialog.folder + "\" -> \"" + name + "\"");
    return name;
  }
  bool OpenAddress(const std::string& address) override {
    Note("the system opens " + address);
    return address.find("nobody") == std::string::npos;
  }
  void OpenWindow(Form& form, bool modal) override {
    if (watcher != nullptr) watcher->Opened(form, modal);
  }
  void CloseWindow(Form& form) override { Note(form.Name() + " hidden"); }

 private:
  void Note(const std::string& what) {
    if (watcher != nullptr) watcher->Note(what);
  }
};

class WatchedComm : public SimulatedComm {
 public:
  WatchedComm(Scheduler& program, LineScheduler& line) : SimulatedComm(program, line), line_(line) {}
  Watcher* watcher = nullptr;

  /// From now on whoever writes just this is answered so, and nothing of it reaches the drive. Question and
  /// answer take their time on the line; the answer comes in one piece.
  void Script(const std::string& written, const std::string& answer) { script_[written] = answer; }

 protected:
  void OpenDevice(int number) override {
    const std::string port = "port COM" + std::to_string(number);
    try {
      SimulatedComm::OpenDevice(number);
    } catch (const RuntimeError&) {
      if (watcher != nullptr) watcher->Note(port + " does not open");
      throw;
    }
    if (watcher != nullptr) watcher->Note(port + " opened with \"" + Settings() + "\"");
  }
  void CloseDevice() override {
    if (watcher != nullptr) watcher->Note("port closed");
    SimulatedComm::CloseDevice();
  }
  void Send(std::span<const std::uint8_t> bytes) override {
    if (watcher != nullptr) watcher->Wire(true, bytes);
    const auto found = script_.find({bytes.begin(), bytes.end()});
    if (found == script_.end()) return SimulatedComm::Send(bytes);
    const std::string& answer = found->second;
    const auto length = static_cast<double>(bytes.size() + answer.size());
    line_.CallAfter(length * SimulatedDrive::kByteTime, [this, answer] {
      if (PortOpen() && !answer.empty()) HandOut({answer.begin(), answer.end()});
    });
  }
  void HandOut(const Bytes& bytes) override {
    if (watcher != nullptr) watcher->Wire(false, bytes);
    SimulatedComm::HandOut(bytes);
  }

 private:
  LineScheduler& line_;
  std::map<std::string, std::string> script_;
};

}  // namespace kavr6
