// What a drive of the family holds when it leaves the factory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kavr6 {

inline constexpr std::size_t kDriveImageBytes = 161;
using DriveImage = std::array<std::uint8_t, kDriveImageBytes>;

/// Pulse and direction, 2 A for the catalogue motor KM23-2P-300, inputs and outputs unused; the checksum
/// holds.
DriveImage FactoryImage();

/// Sum over all bytes but the last two, modulo 65536.
int DriveImageSum(std::span<const std::uint8_t> image);
/// Puts the sum into the last two bytes, high one first.
void SealDriveImage(DriveImage& image);
/// The last two bytes hold the sum.
bool DriveImageSumHolds(std::span<const std::uint8_t> image);

}  // namespace kavr6
