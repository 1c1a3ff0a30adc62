// Makes the motor database file from the catalogue: make_motor_table CATALOGUE.csv DATABASE
#include <exception>
#include <filesystem>
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
    const auto rows = kavr6::ReadCatalogue(text);
    // Motors that files and drives have brought along live in the database only: the file before is kept.
    const std::filesystem::path database = argv[2];
    if (std::filesystem::exists(database)) {
      std::filesystem::path before = database;
      before += ".before";
      std::filesystem::remove(before);  // copying does not replace it on Windows, asked to or not
      std::filesystem::copy_file(database, before);
      std::cout << "the motor database before is kept as " << argv[2] << ".before\n";
    }
    kavr6::WriteMotorFile(rows, database);
  } catch (const kavr6::CatalogueError& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return 1;
  } catch (const std::exception& error) {
    std::cerr << argv[2] << ": " << error.what() << '\n';
    return 1;
  }
  return 0;
}
