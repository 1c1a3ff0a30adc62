// Makes the motor database file from the catalogue: make_motor_table CATALOGUE.csv DATABASE
#include <exception>
#include <fstream>
#include <iostream>

#include "adapters/sqlite/motor_catalogue.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make_motor_table CATALOGUE.csv DATABASE\n";
    return 2;
  }
  try {
    std::ifstream text(argv[1]);
    if (!text) {
      std::cerr << argv[1] << ": cannot be opened\n";
      return 1;
    }
    kavr6::WriteMotorFile(kavr6::ReadCatalogue(text), argv[2]);
  } catch (const kavr6::CatalogueError& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return 1;
  } catch (const std::exception& error) {
    std::cerr << argv[2] << ": " << error.what() << '\n';
    return 1;
  }
  return 0;
}
