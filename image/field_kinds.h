// Kinds of fields from which the image's table is put together: how a value becomes bytes and comes back.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "core/io_modes.h"
#include "core/numbers.h"
#include "image/image_layout.h"
#include "platform/runtime_error.h"

namespace kavr6::field_kinds {

// Units of the drive.
inline constexpr double kMinute = 60;
inline constexpr double kSpeedSteps = 4;      ///< a speed goes in quarters of a rpm
inline constexpr double kAccelStep = 10;      ///< an acceleration in units of 10 rpm per second
inline constexpr double kCurrentSteps = 100;  ///< a current in hundredths of an ampere
inline constexpr double kPercentSteps = 10;
inline constexpr std::size_t kNameWidth = 13;

inline void PutByte(Byte* at, std::int64_t value) {
  if (value < 0 || value > 0xFF) RaiseOverflow();
  *at = static_cast<Byte>(value);
}
inline void PutWord(Byte* at, Long value) { HexBytes16(value, at[0], at[1]); }
inline void PutWord(Byte* at, double value) { PutWord(at, ToLong(value)); }
inline void PutSpeed(Byte* at, double value) { PutWord(at, value * kMinute * kSpeedSteps); }
inline void PutSigned(Byte* at, double value) { SignedString16(ToLong(value), at[0], at[1]); }
inline void PutFloat(Byte* at, double value) { FloatBytes(value, at[0], at[1], at[2], at[3]); }
inline void PutName(Byte* at, std::string_view name) {
  std::string codes = CharacterCodes(name);
  codes.resize(kNameWidth, ' ');
  std::copy(codes.begin(), codes.end(), at);
}

inline double ToSpeed(double word) { return word / kMinute / kSpeedSteps; }
inline double ToAccel(double word) { return word / kMinute * kAccelStep; }
inline double ToCurrent(double word) { return word / kCurrentSteps; }
inline std::string ReadName(ImageReader& reader) {
  std::string codes;
  for (std::size_t i = 0; i < kNameWidth; ++i) codes += static_cast<char>(reader.Str2Num8());
  return NoBadChars(codes);
}

// Where a reader puts what it has read: the settings, whose motor block is the custom motor, or the standard
// motor that the drive reports.
constexpr Settings& InSettings(const ImageTarget& target) { return target.settings; }
constexpr MotorRecord& InStandardMotor(const ImageTarget& target) { return target.uploaded.Motor; }

// Readers for a member of either.
template <auto Member, auto Place = InSettings>
void ReadByte(ImageReader& reader, const ImageTarget& target) {
  Place(target).*Member = reader.Str2Num8();
}
template <auto Member, auto Place = InSettings>
void ReadWord(ImageReader& reader, const ImageTarget& target) {
  Place(target).*Member = reader.Str2Num16();
}
template <auto Member, auto Place = InSettings>
void ReadSigned(ImageReader& reader, const ImageTarget& target) {
  Place(target).*Member = reader.SignedStr2Num16();
}
template <auto Member, auto Place = InSettings>
void ReadFloat(ImageReader& reader, const ImageTarget& target) {
  Place(target).*Member = reader.Str2Float();
}
template <auto Member, auto Place = InSettings>
void ReadHundredths(ImageReader& reader, const ImageTarget& target) {
  Place(target).*Member = reader.Str2Num16() / 100.0;
}
template <auto Member, auto Place = InSettings>
void ReadPercent(ImageReader& reader, const ImageTarget& target) {
  Place(target).*Member = reader.Str2Num16() / kPercentSteps;
}
inline void DropWord(ImageReader& reader, const ImageTarget&) { reader.Str2Num16(); }

// Writers of a member of the settings.
template <auto Member>
void WriteByte(const ImageSource& source, Byte* at) {
  PutByte(at, source.settings.*Member);
}
template <auto Member>
void WriteWord(const ImageSource& source, Byte* at) {
  PutWord(at, source.settings.*Member);
}

// Writers of a column of the motor table's row.
template <auto Member>
void WriteRowByte(const ImageSource& source, Byte* at) {
  PutByte(at, NeededWhole(source.row.*Member));
}
template <auto Member>
void WriteRowWord(const ImageSource& source, Byte* at) {
  PutWord(at, NeededWhole(source.row.*Member));
}
template <auto Member>
void WriteRowFloat(const ImageSource& source, Byte* at) {
  PutFloat(at, Needed(source.row.*Member));
}

/// A number of the motor in use.
template <auto RowMember, auto Member>
Long InUse(const ImageSource& source) {
  return source.settings.CustomMotor ? source.settings.*Member : NeededWhole(source.row.*RowMember);
}
template <auto RowMember, auto Member>
void WriteInUse(const ImageSource& source, Byte* at) {
  PutWord(at, InUse<RowMember, Member>(source));
}

// Whole rows for the fields that come back as they went.
template <auto Member>
constexpr ImageField ByteField(int position, std::string_view name) {
  return {position, 1, name, "byte", "byte", WriteByte<Member>, ReadByte<Member>};
}
template <auto Member>
constexpr ImageField WordField(int position, std::string_view name) {
  return {position, 2, name, "word", "word", WriteWord<Member>, ReadWord<Member>};
}
template <auto Member>
constexpr ImageField FloatField(int position, std::string_view name) {
  constexpr auto write = [](const ImageSource& source, Byte* at) { PutFloat(at, source.settings.*Member); };
  return {position, 4, name, "float", "float", write, ReadFloat<Member>};
}
template <auto Member>
constexpr ImageField SpeedField(int position, std::string_view name) {
  constexpr auto write = [](const ImageSource& source, Byte* at) { PutSpeed(at, source.settings.*Member); };
  constexpr auto read = [](ImageReader& reader, const ImageTarget& target) {
    target.settings.*Member = ToSpeed(reader.Str2Num16());
  };
  return {position, 2, name, "word: value x 240", "word / 240", write, read};
}
template <auto Member>
constexpr ImageField AccelField(int position, std::string_view name) {
  constexpr auto write = [](const ImageSource& source, Byte* at) {
    PutWord(at, source.settings.*Member * kMinute / kAccelStep);
  };
  constexpr auto read = [](ImageReader& reader, const ImageTarget& target) {
    target.settings.*Member = ToAccel(reader.Str2Num16());
  };
  return {position, 2, name, "word: value x 6", "word / 6", write, read};
}
template <auto Member>
constexpr ImageField CurrentField(int position, std::string_view name) {
  constexpr auto write = [](const ImageSource& source, Byte* at) {
    PutWord(at, source.settings.*Member * kCurrentSteps);
  };
  return {position, 2, name, "word: value x 100", "word / 100", write, ReadHundredths<Member>};
}

/// Reader of a code that is brought into 1 to Most.
template <auto Member, Long Most>
void ReadCode(ImageReader& reader, const ImageTarget& target) {
  target.settings.*Member = std::clamp<Long>(reader.Str2Num8(), 1, Most);
}
/// A code of an input or output, which a hub does not use.
template <auto Member, Long Most>
constexpr ImageField HubCodeField(int position, std::string_view name) {
  static_assert(Most == 3 || Most == 8, "the words below");
  constexpr auto write = [](const ImageSource& source, Byte* at) {
    const Settings& s = source.settings;
    PutByte(at, s.OpMode == kOpHub ? kNotUsed : s.*Member);
  };
  return {position,
          1,
          name,
          "byte; 3 when OpMode is 4",
          Most == 3 ? "byte, limited to 1 .. 3" : "byte, limited to 1 .. 8",
          write,
          ReadCode<Member, Most>,
          "a hub drive gets 3 for all of these; the settings then take the 3"};
}

}  // namespace kavr6::field_kinds
