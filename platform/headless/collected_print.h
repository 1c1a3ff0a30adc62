// A print job without a printer: tells what it is asked to do.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <utility>

#include "platform/print_job.h"
#include "platform/runtime_error.h"

namespace kavr6 {

struct CollectedPrint : PrintJob {
  bool Cancels = false;                          ///< the user chooses no printer
  bool Fails = false;                            ///< everything but the question is an error
  std::function<void()> During;                  ///< done once, while a dialog stands open
  std::function<void(const std::string&)> Told;  ///< each operation in words

  void SetMargins(const PageMargins& margins) override {
    Do("margins \"" + margins.title + "\" and \"" + margins.file + margins.remark + "\"");
  }
  bool AskForPrinter(int flags) override {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned>(flags));
    StandOpen();
    Tell(std::string("printer asked for, flags ") + digits + (Cancels ? " -> cancelled" : " -> chosen"));
    return !Cancels;
  }
  void SetFont(const PrintFont& font) override {
    Do("font " + font.name + " " + std::to_string(font.points) + (font.bold ? " bold" : ""));
  }
  void PrintLine(int column, const std::string& text) override {
    Do(std::to_string(column) + " \"" + text + "\"");
  }
  void BlankLine() override { Do("blank line"); }
  void EndDoc() override { Do("end of document"); }
  void ShowPreview(int /*flags*/) override {
    Do("preview");
    StandOpen();
  }

 private:
  void Tell(const std::string& what) const {
    if (Told) Told("print: " + what);
  }
  void Do(const std::string& what) const {
    Tell(what + (Fails ? " fails" : ""));
    if (Fails) throw RuntimeError(482, "Printer error");
  }
  void StandOpen() {
    if (const auto during = std::exchange(During, {})) during();
  }
};

}  // namespace kavr6
