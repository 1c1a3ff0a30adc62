#include "image/parameter_image.h"

#include "image/image_layout.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr std::size_t kChecksumSize = 2;

}  // namespace

void DownloadString(ParameterImage& image, Settings& settings, const MotorRow& row) {
  const ImageSource source{settings, row};
  for (const ImageField& field : ImageLayout())
    if (field.write != nullptr) field.write(source, image.data() + field.position);
}

void StoreChecksum(ParameterImage& image) {
  const Long sum = ByteSum(image);
  image[kImageSize - 2] = static_cast<Byte>(sum / 256);
  image[kImageSize - 1] = static_cast<Byte>(sum % 256);
}

ParameterImage WholeImage(Settings settings, const MotorRow& row) {
  ParameterImage image{};
  DownloadString(image, settings, row);
  StoreChecksum(image);
  return image;
}

bool ChecksumHolds(std::span<const Byte> buffer) {
  if (buffer.size() < kChecksumSize) RaiseSubscript();
  const Long stored = buffer[buffer.size() - 2] * 256 + buffer[buffer.size() - 1];
  return ByteSum(buffer) % 65536 == stored;
}

UploadedMotor DecodeImage(std::span<const Byte> buffer, Settings& settings) {
  ImageReader reader(buffer);
  UploadedMotor uploaded;
  for (const ImageField& field : ImageLayout())
    if (field.readInto != nullptr) field.readInto(reader, {settings, uploaded});
  return uploaded;
}

}  // namespace kavr6
