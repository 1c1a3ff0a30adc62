#include "apps/drive_simulator/image_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kavr6 {

std::optional<SimulatedDrive::Image> LoadImageFile(const std::filesystem::path& file) {
  if (!std::filesystem::exists(file)) return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(in), {});
  SimulatedDrive::Image image{};
  if (bytes.size() != image.size())
    throw std::runtime_error(file.string() + " does not hold a drive's image");
  std::copy(bytes.begin(), bytes.end(), image.begin());
  if (!DriveImageSumHolds(image)) throw std::runtime_error("the image in " + file.string() + " is damaged");
  return image;
}

void SaveImageFile(const std::filesystem::path& file, const SimulatedDrive::Image& image) {
  const std::filesystem::path fresh = file.string() + ".new";
  std::ofstream out(fresh, std::ios::binary);
  out.write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
  out.close();
  if (!out) throw std::runtime_error("cannot write " + fresh.string());
  std::filesystem::rename(fresh, file);
}

}  // namespace kavr6
