#include "apps/drive_simulator/orders.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace kavr6 {
namespace {

template <class T, class... Format>
T Parse(const std::string& text, Format... format) {
  T value{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value, format...);
  if (error != std::errc() || rest != end) throw std::runtime_error("'" + text + "' is no number");
  return value;
}

}  // namespace

void Orders::Add(std::string name, std::string arguments, std::string help, std::size_t argumentCount,
                 Run run) {
  orders_.push_back({std::move(name), std::move(arguments), std::move(help), argumentCount, std::move(run)});
}

std::string Orders::Obey(const std::string& line) const {
  std::istringstream in(line);
  const Words words{std::istream_iterator<std::string>(in), {}};
  if (words.empty()) return {};
  if (words[0] == "help") return Help();
  for (const Order& order : orders_) {
    if (order.name != words[0]) continue;
    if (words.size() != 1 + order.argumentCount) return "it is: " + order.name + " " + order.arguments;
    try {
      order.run({words.begin() + 1, words.end()});
      return {};
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
  return "unknown order '" + words[0] + "', try help";
}

std::string Orders::Help() const {
  std::string text = "Orders, one a line:\n";
  for (const Order& order : orders_) {
    std::string left = "  " + order.name + " " + order.arguments;
    left.resize(std::max<std::size_t>(left.size() + 2, 28), ' ');
    text += left + order.help + "\n";
  }
  text += "  help                      this list";
  return text;
}

bool OnOff(const std::string& text) {
  if (text != "on" && text != "off") throw std::runtime_error("it is on or off, not '" + text + "'");
  return text == "on";
}

double Seconds(const std::string& text) {
  const double seconds = Parse<double>(text);
  if (!(seconds >= 0.0 && seconds <= 3600.0)) throw std::runtime_error("seconds are from 0 to 3600");
  return seconds;
}

int Number(const std::string& text, int base, int limit) {
  const int value = Parse<int>(text, base);
  if (value < 0 || value > limit) throw std::runtime_error("'" + text + "' is out of range");
  return value;
}

double Signed(const std::string& text, double limit) {
  const auto value = Parse<double>(text);
  if (!(std::abs(value) <= limit)) throw std::runtime_error("'" + text + "' is out of range");
  return value;
}

}  // namespace kavr6
