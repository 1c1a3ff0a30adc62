// Lines and values of a configuration file as text, both ways.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/settings.h"

namespace kavr6 {

/// Makes a file, line by line. Texts are UTF-8; a character that would end one early is replaced.
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

/// Reads a file, line by line. A line ends with CR LF, LF, CR or the file; a value on it with blanks, a comma
/// or the line. What is left of a line is passed over. Every failure is a RuntimeError that names the place.
class CnfReader {
 public:
  /// `content` stays where it is. A UTF-8 byte order mark is no part of it.
  explicit CnfReader(std::string_view content);
  void NextLine();
  /// The next value of the line, whatever it is, without quotes.
  std::string_view Bare();
  /// The next value of the line. It is stored when all of it is right: a text in quotes, #TRUE# or #FALSE#, a
  /// number within the range of its type, rounded half to even for a whole one. A text that is not UTF-8
  /// counts as one character code a byte.
  void Value(double& value);
  void Value(float& value);
  void Value(Long& value);
  void Value(Integer& value);
  void Value(bool& value);
  void Value(std::string& value);

  /// Number of the line, from 1.
  int Line() const { return line_; }

 private:
  void BeginValue();
  std::string_view EndValue(std::size_t length, std::size_t quotes);
  std::string_view Plain();
  std::string_view Quoted();
  template <class T>
  void Number(T& value, T (*convert)(double));
  [[noreturn]] void Fail(int number, const std::string& cause) const;

  std::string_view file_;  ///< what is behind the line
  std::string_view rest_;  ///< of the line
  bool fileEnds_ = false;  ///< with the line
  int line_ = 0;
  int value_ = 0;
};

}  // namespace kavr6
