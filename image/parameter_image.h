// The settings as one block of bytes, and back.
#pragma once

#include <array>
#include <span>

#include "core/settings.h"
#include "image/byte_codec.h"
#include "motor/motor_calculations.h"
#include "motor/motor_row.h"

namespace kavr6 {

inline constexpr std::size_t kImageSize = 161;
using ParameterImage = std::array<Byte, kImageSize>;

/// Writes positions 0 to 158. Clears StallPrevent in the settings in pulse mode. A value that does not fit
/// its field is a RuntimeError, and so is an empty column of the row.
void DownloadString(ParameterImage& image, Settings& settings, const MotorRow& row);
/// Writes ByteSum into positions 159 and 160.
void StoreChecksum(ParameterImage& image);
/// What a download of these settings sends, with its sum; they stay as they are. RuntimeError as
/// DownloadString.
ParameterImage WholeImage(Settings settings, const MotorRow& row);
/// The last two bytes of the buffer, whatever its length, hold the sum of those before them.
bool ChecksumHolds(std::span<const Byte> buffer);

/// What the image holds beside the settings.
struct UploadedMotor {
  MotorRecord Motor;  ///< the standard motor that the drive reports; lead angles stay 0
  Long ARfreq = 0;    ///< resonance word, to be turned back into load inertia
};

/// Replaces the settings by what the image holds, positions 0 to 158. The image is not the exact mirror of
/// what is written: see docs/image.md. RuntimeError for a buffer that is too short and for a running current
/// of 0; the fields before that place have then been replaced.
UploadedMotor DecodeImage(std::span<const Byte> buffer, Settings& settings);

}  // namespace kavr6
