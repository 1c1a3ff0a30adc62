// What a report is printed with.
#pragma once

#include <string>

namespace kavr6 {

// Flags of the question for a printer: bits of FileDialogState::Flags.
inline constexpr int kPrintNoSelection = 0x4;
inline constexpr int kPrintNoPageRange = 0x8;
inline constexpr int kPrintNoFile =
    0x180000;  ///< asks for no file; where the machine prints PDF, it may all the same

/// What stands in the margins of each page; texts are UTF-8.
struct PageMargins {
  std::string title;
  std::string file;    ///< without its folder
  std::string remark;  ///< stands behind the file's name
};

struct PrintFont {
  std::string name;  ///< where the machine does not have it, one that comes close
  int points = 0;
  bool bold = false;
};

/// One document after the other, line by line. Long lines go on below at the same column, and lines flow on
/// to further pages. Each operation may fail with a RuntimeError; the document then lacks what failed.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  /// Before the question for a printer, which proposes a name by it.
  virtual void SetMargins(const PageMargins& margins) = 0;
  /// Asks for a printer and waits for the choice, events running; false when the user gives up.
  virtual bool AskForPrinter(int flags) = 0;
  /// For the lines that follow.
  virtual void SetFont(const PrintFont& font) = 0;
  /// A line of UTF-8 that begins `column` character widths from the left edge.
  virtual void PrintLine(int column, const std::string& text) = 0;
  virtual void BlankLine() = 0;
  /// Sends the document to the printer. The next one begins, also after a failure.
  virtual void EndDoc() = 0;
  /// Shows the document instead, until the user closes it or prints it from there, behind the question that
  /// `flags` are for. The next one begins.
  virtual void ShowPreview(int flags) = 0;
};

}  // namespace kavr6
