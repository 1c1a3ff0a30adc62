// Puts a simulated drive behind a pseudo-terminal.
#include <exception>
#include <iostream>
#include <span>

#include "apps/drive_simulator/options.h"
#include "apps/drive_simulator/simulator_program.h"

int main(int argc, char** argv) {
  try {
    const auto options = kavr6::ParseOptions(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    kavr6::SimulatorProgram program(options);
    if (options.help) {
      std::cout << kavr6::OptionsHelp() << "\n" << program.OrdersHelp() << "\n";
      return 0;
    }
    program.Run();
  } catch (const std::exception& error) {
    std::cerr << "drive_simulator: " << error.what() << "\n";
    return 1;
  }
}
