// The 161 bytes of the parameter image, field by field: the one description that writer, reader and the table
// in docs/image.md share.
#pragma once

#include <span>
#include <string_view>

#include "image/parameter_image.h"

namespace kavr6 {

/// What an image is written from.
struct ImageSource {
  Settings& settings;
  const MotorRow& row;
};

/// What an image is read into.
struct ImageTarget {
  Settings& settings;
  UploadedMotor& uploaded;
};

/// One field. The texts are for people and stand in docs/image.md as they are.
struct ImageField {
  /// Writes the field's bytes, the first one at `at`.
  using Write = void (*)(const ImageSource& source, Byte* at);
  /// Reads the field's bytes, all of them and no more.
  using Read = void (*)(ImageReader& reader, const ImageTarget& target);

  int position;
  int width;
  std::string_view name;
  std::string_view written;
  std::string_view read;
  Write write;                ///< null for the checksum, which StoreChecksum writes
  Read readInto;              ///< null for the checksum, which ChecksumHolds tests
  std::string_view why = {};  ///< why reader and writer differ, where they do
};

/// All fields in the order of their positions, without gap or overlap.
std::span<const ImageField> ImageLayout();

}  // namespace kavr6
