// A report as lines of text.
#pragma once

#include <string>
#include <vector>

#include "platform/print_job.h"

namespace kavr6 {

struct TextLine {
  int column = 0;
  std::string text;  ///< empty for a blank line
  PrintFont font;
};

/// Collects what is printed.
class TextPrint : public PrintJob {
 public:
  const PageMargins& Margins() const { return margins_; }
  const std::vector<TextLine>& Lines() const { return lines_; }

  void SetMargins(const PageMargins& margins) override { margins_ = margins; }
  bool AskForPrinter(int /*flags*/) override { return true; }
  void SetFont(const PrintFont& font) override { font_ = font; }
  void PrintLine(int column, const std::string& text) override { lines_.push_back({column, text, font_}); }
  void BlankLine() override { lines_.push_back({0, {}, font_}); }
  void EndDoc() override {}
  void ShowPreview(int /*flags*/) override {}

 private:
  PageMargins margins_;
  PrintFont font_;
  std::vector<TextLine> lines_;
};

}  // namespace kavr6
