// Writes the help's pages from their sources, with the program's facts filled in.
#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "apps/help_writer/help_writer.h"

namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  stream.exceptions(std::ios::badbit | std::ios::failbit);
  return {std::istreambuf_iterator(stream), {}};
}

/// Writes nothing if a page is wrong. Otherwise the target is made anew, so that no page stays whose source
/// has gone.
bool Write(const fs::path& source, const fs::path& target) {
  std::map<fs::path, std::string> pages;
  kavr6::HelpWriter writer;
  for (const auto& entry : fs::directory_iterator(source))
    if (const fs::path name = entry.path().filename(); name.extension() == ".html")
      pages[name] = writer.Filled(name.string(), ContentOf(entry.path()));
  const std::string faults = writer.Faults();
  std::cerr << faults;
  if (!faults.empty()) return false;
  fs::remove_all(target);
  fs::copy(source, target, fs::copy_options::recursive);
  return std::ranges::all_of(pages, [&target](const auto& page) {
    return bool((std::ofstream(target / page.first, std::ios::binary) << page.second).flush());
  });
}

}  // namespace

int main(int argc, char** argv) {
  try {
    if (argc == 3 && Write(argv[1], argv[2])) return 0;
    std::cerr << "help_writer SOURCES PAGES: the pages are not written\n";
  } catch (const std::exception& error) {
    std::cerr << "help_writer: " << error.what() << "\n";
  }
  return 1;
}
