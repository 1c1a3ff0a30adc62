// The numbers that a drive's text language sets and tells.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "simulator/factory_image.h"

namespace kavr6 {

/// One number by its letters. `place` is where the stored image holds it, in a word or byte of `scale` to the
/// unit; a place of -1: the image does not hold it.
struct Register {
  std::string_view letters;
  double start;
  double least;
  double most;
  bool whole = true;      ///< takes whole numbers only
  bool buffered = false;  ///< a new value waits its turn behind the moves before it
  int place = -1;
  int width = 2;
  double scale = 1.0;
};

class Registers {
 public:
  Registers();

  /// Null for letters that name no number.
  static const Register* Find(std::string_view letters);
  /// Of letters that are known.
  double operator[](std::string_view letters) const { return values_.at(std::string(letters)); }
  void Set(std::string_view letters, double value) { values_.at(std::string(letters)) = value; }

  /// Takes what the image holds, brought into the ranges of the language.
  void Load(const DriveImage& image);
  /// Puts into the image what it has a place for, and the sum.
  void StoreIn(DriveImage& image) const;
  /// Keeps all values, and takes back those that were kept last.
  void Keep() { kept_ = values_; }
  void Recall() { values_ = kept_; }

 private:
  using Values = std::map<std::string, double, std::less<>>;
  Values values_;
  Values kept_;
};

// Numbers that the language sets in another way than by their letters.
inline constexpr std::string_view kStepsPerTurn = "steps";    ///< "MR" sets them by a code
inline constexpr std::string_view kAddress = "address";       ///< code of the character that "DA" sets
inline constexpr std::string_view kJogInputs = "jog inputs";  ///< 1 between "JE" and "JD"

}  // namespace kavr6
