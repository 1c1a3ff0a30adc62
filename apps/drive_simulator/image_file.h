// The drive's configuration from run to run.
#pragma once

#include <filesystem>
#include <optional>

#include "simulator/simulated_drive.h"

namespace kavr6 {

/// Nothing when there is no such file; std::runtime_error when it holds no whole image with a good checksum.
std::optional<SimulatedDrive::Image> LoadImageFile(const std::filesystem::path& file);
/// Replaces the file as a whole; std::runtime_error on failure.
void SaveImageFile(const std::filesystem::path& file, const SimulatedDrive::Image& image);

}  // namespace kavr6
