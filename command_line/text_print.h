// A report as lines of text.
#pragma once

#include <string>
#include <vector>

#include "platform/print_job.h"

namespace kavr6 {

/// Collects what is printed, without fonts and margins.
class TextPrint : public PrintJob {
 public:
  const std::vector<std::string>& Lines() const { return lines_; }

  void SetMargins(const PageMargins& /*margins*/) override {}
  bool AskForPrinter(int /*flags*/) override { return true; }
  void SetFont(const PrintFont& /*font*/) override {}
  void PrintLine(int column, const std::string& text) override {
    lines_.push_back(std::string(static_cast<std::size_t>(column), ' ') + text);
  }
  void BlankLine() override { lines_.emplace_back(); }
  void EndDoc() override {}
  void ShowPreview(int /*flags*/) override {}

 private:
  std::vector<std::string> lines_;
};

}  // namespace kavr6
