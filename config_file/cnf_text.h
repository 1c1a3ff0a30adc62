// Lines and values of a configuration file as text, both ways.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/settings.h"

namespace kavr6 {

/// Makes a file, line by line. Texts are UTF-8. A quote in a text is doubled. A line end in a text becomes
/// blanks: texts do not go on over a line, so that a quote forgotten in a file spoils its own line only.
class CnfWriter {
 public:
  void NextLine();
  /// A text without quotes, alone on its line.
  void Bare(std::string_view text) { text_ += text; }
  /// The next value of the line. In print form numbers stand in zones of 14 columns, and a comma stands
  /// before the first of them only. RuntimeError for a number that is not finite.
  template <class T>
  void Value(const T& value, bool printForm = false);
  /// Everything so far, its last line ended.
  std::string Text() const { return text_ + "\r\n"; }

 private:
  void Separate();
  void Print(const std::string& number);

  std::string text_;
  std::size_t lineStart_ = 0;
  bool printed_ = false;
};

/// Reads a file as a sequence of values, by statements of some values each. A line ends with CR LF, LF, CR or
/// the file. A value ends with blanks, a comma or its line; a line with nothing but blanks is passed over.
/// Values are taken over line ends: when a line has no more, the next value is the first of the lines below,
/// and what a statement leaves of its line belongs to the next statement. So it does not matter where the
/// lines behind the first are broken. A file may go on behind its last statement; a value too many before
/// that makes all that follow it wrong. Every failure is a RuntimeError that names the place in the file: the
/// line, and the value on that line.
class CnfReader {
 public:
  /// `content` stays where it is. A UTF-8 byte order mark is no part of it.
  explicit CnfReader(std::string_view content);
  /// The first line as it stands. Comes before all else.
  std::string_view FirstLine();
  /// Begins a statement. A file that ends here lacks whole lines, one that ends in a statement lacks a value.
  void NextStatement() { inStatement_ = false; }
  /// Passes over a value: a text in quotes, or whatever stands before a comma or the line's end.
  void Discard();
  /// The next value. It is stored when all of it is right: a text in quotes, #TRUE# or #FALSE#, a number
  /// within the range of its type, rounded half to even for a whole one. In a text two quotes are one, and a
  /// lone one is an error; but three quotes that do not read so are the text of one quote. A text that is
  /// not UTF-8 counts as one character code a byte.
  void Value(double& value);
  void Value(float& value);
  void Value(Long& value);
  void Value(Integer& value);
  void Value(bool& value);
  void Value(std::string& value);

  /// Number of the line of the last value, from 1.
  int Line() const { return line_; }

 private:
  void NextLine();
  void SkipBlanks();
  void BeginValue();
  std::string_view EndValue(std::size_t length);
  std::string_view Plain();
  std::string Quoted();
  template <class T>
  void Number(T& value, T (*convert)(double));
  [[noreturn]] void Fail(int number, const std::string& cause) const;

  std::string_view file_;  ///< what is behind the line
  std::string_view rest_;  ///< of the line
  bool inStatement_ = false;
  int line_ = 0;
  int value_ = 0;
};

}  // namespace kavr6
