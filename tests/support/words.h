// One step of a scenario, word by word.
#pragma once

#include <string>

namespace kavr6 {

/// Words stand between blanks; one in quotes may hold blanks and characters such as \x0D. What does not fit
/// is a std::runtime_error that says so.
class Words {
 public:
  explicit Words(std::string text);

  bool More() const { return !text_.empty(); }
  std::string Next();
  /// Takes the next word if it is this one.
  bool Take(const std::string& word);
  double Number();
  int Whole();
  /// "yes" or "no".
  bool YesNo();
  /// Two hexadecimal digits.
  int Byte();
  /// All that is left, as it stands.
  std::string Rest();
  /// Up to the next "; " outside of quotes.
  Words Step();

 private:
  void SkipBlanks();
  std::size_t EndOfQuotes() const;
  std::string text_;
};

}  // namespace kavr6
