// The orders that a person or a script gives the simulated drive.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kavr6 {

/// A list of orders, each a word and perhaps arguments on one line of text.
class Orders {
 public:
  using Words = std::vector<std::string>;
  /// Gets what stands behind the order's word. A std::runtime_error's text goes to the user.
  using Run = std::function<void(const Words& arguments)>;

  void Add(std::string name, std::string arguments, std::string help, std::size_t argumentCount, Run run);
  /// Carries out one line and returns what to tell the user, often nothing. Empty lines do nothing.
  std::string Obey(const std::string& line) const;
  std::string Help() const;

 private:
  struct Order {
    std::string name;
    std::string arguments;
    std::string help;
    std::size_t argumentCount;
    Run run;
  };
  std::vector<Order> orders_;
};

// Arguments, as text; std::runtime_error for anything else.
bool OnOff(const std::string& text);
double Seconds(const std::string& text);
/// `limit` is the largest value allowed.
int Number(const std::string& text, int base, int limit);
/// From -`limit` to `limit`.
double Signed(const std::string& text, double limit);

}  // namespace kavr6
