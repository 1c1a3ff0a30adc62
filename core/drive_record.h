// What is known of the drive at the other end of the line.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/news.h"

namespace kavr6 {

/// Told by all who hear of the drive, or hear nothing where they should; itself it asks for nothing. What it
/// is no longer sure of it forgets.
class DriveRecord {
 public:
  enum class Presence {
    NeverHeard,
    Answers,
    Silent,       ///< the last question has had no answer
    LineLost,     ///< the port has closed by itself, or has opened again and nothing has been heard since
    AnotherPort,  ///< heard on another port than that in use
  };
  using Image = std::vector<std::uint8_t>;

  /// `news` outlives the record.
  explicit DriveRecord(News& news) : news_(news) {}
  DriveRecord(const DriveRecord&) = delete;
  DriveRecord& operator=(const DriveRecord&) = delete;

  /// Raised after each change of what follows below.
  Event<> Changed;

  // What the drive tells.
  /// An answer or a message that is none of those below.
  void Heard();
  /// Revision byte as a revision, and model byte. A drive other than the one known is news, and all that was
  /// known of that one is forgotten.
  void Identified(float revision, int model);
  /// The letter of the revision, which belongs to the identity.
  void LetterIs(const std::string& letter);
  /// Asked for its letter it has not told one.
  void LetterUntold();
  void Restarted(float revision, int model);
  /// The word of an alarm that stands; 0 ends it.
  void Alarm(int word);
  /// An alarm stands or has been cleared; the drive does not say which.
  void FaultStands();
  void FaultCleared();
  /// The drive has been told to clear its alarm and gives no answer to that: the alarm stands until it tells.
  void ClearSent();
  /// It has stored this image, or has given it.
  void Holds(std::span<const std::uint8_t> image);

  // What others know.
  /// A question on the open line has had no answer in time.
  void NoAnswer();
  /// An answer has not come whole: what comes next may be left of it and look like anything.
  void Doubt() { doubt_ = true; }
  /// The drive is told to speak its text language, and to leave it. Where the line is closed it hears
  /// nothing.
  void TextSessionBegins();
  void TextSessionEnds();
  void PortOpened(int port);
  /// `unwanted`: the port has been lost, or one that was to be opened has refused; else somebody has closed
  /// it, to open one at once.
  void PortClosed(bool unwanted);
  /// What the drive holds may have been changed, or has not been stored as it should.
  void ForgetImage();
  /// The drive has been told to take its factory values.
  void Restored();
  /// The drive has moved the list of models, or somebody has chosen in it.
  void ListMoved(bool byDrive);

  Presence State() const { return presence_; }
  /// False before any drive has told what it is.
  bool Known() const { return revision_ != 0; }
  /// The one that is heard has told so itself: since its line has opened, and since the last silence.
  bool Sure() const { return sure_; }
  /// What looks like an identity now need not be one.
  bool Doubtful() const { return doubt_; }
  /// A session in the text language has ended and the drive on this port cannot have heard of it: it does not
  /// know the other commands.
  bool LeftInText() const { return !inSession_ && textPort_ != 0 && textPort_ == port_; }
  int ModelCode() const { return model_; }
  /// "KAVR6-Bx", or what else there is to say.
  std::string Model() const;
  /// "1.52 k"
  std::string Firmware() const;
  /// Grows with every word of the drive.
  int Words() const { return words_; }
  /// Minutes of the day: of the last word of the drive, of the alarm, and since when the state holds.
  int HeardAt() const { return heardAt_; }
  int AlarmAt() const { return alarmAt_; }
  int Since() const { return since_; }
  bool AlarmStands() const { return alarm_.has_value(); }
  bool ListSetByDrive() const { return listSetByDrive_; }
  int HeardOnPort() const { return heardOn_; }
  /// The last image that this drive has taken with its acknowledgement, or given; none when not sure.
  const std::optional<Image>& Held() const { return held_; }
  /// Grows whenever that becomes another one, or none.
  int HeldRevision() const { return heldRevision_; }
  /// Grows whenever it is another drive, or the same one as new.
  int Upsets() const { return upsets_; }

 private:
  /// True where that is more than was known.
  bool Speaks();
  void Upset();
  void Another();
  void DropImage();
  void TakeIdentity(float revision, int model);
  void SetAlarm(std::optional<int> word);
  void Move(Presence presence);

  News& news_;
  Presence presence_ = Presence::NeverHeard;
  int since_ = 0;
  int heardAt_ = 0;
  int alarmAt_ = 0;
  float revision_ = 0;
  int model_ = 0;
  std::string letter_;
  bool sure_ = false;
  bool doubt_ = false;
  int words_ = 0;
  std::optional<int> alarm_;  // 0: without a word for it
  bool listSetByDrive_ = false;
  int port_ = 0;  // 0: none is open
  int heardOn_ = 0;
  int lostPort_ = 0;
  int closedPort_ = 0;  // on purpose, to open one at once
  int textPort_ = 0;    // on which a drive was told to speak its text language
  bool inSession_ = false;
  std::optional<Image> held_;
  int heldRevision_ = 0;
  int upsets_ = 0;
};

}  // namespace kavr6
