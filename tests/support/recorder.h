// Writes down all that happens in a scene.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/headless/describe.h"
#include "platform/headless/transcript.h"
#include "platform/text_area.h"
#include "tests/support/scene.h"

namespace kavr6 {

/// From its construction on it notes every box with its answer, every byte on the line, every window shown
/// and hidden, and every change of a control, a setting or a shared value of the scene's program.
///
/// Controls tell of their changes at once. Settings and shared values are looked at before each thing noted
/// and after each event; the reply text and the ring, which change with every byte, when the scene rests.
class Recorder : public Watcher {
 public:
  /// All that happens but on the status strip; or the strip alone, whole, whenever the scene rests.
  enum class Part { AllButStrip, Strip };
  explicit Recorder(Scene& scene, Part part = Part::AllButStrip);
  Recorder(const Recorder&) = delete;
  Recorder& operator=(const Recorder&) = delete;
  ~Recorder() override;

  void Step(const std::string& what);
  /// The scene has come to rest.
  void Rest();
  std::string Text() { return transcript_.Text(); }

  void Look() override;
  void Note(const std::string& what) override;
  void Wire(bool toDrive, std::span<const std::uint8_t> bytes) override;
  void Asked(const MessageBox& box) override;
  void Answered(const MessageBox& box, BoxAnswer answer) override;
  void Opened(const Form& form, bool modal) override;

 private:
  void Watch(Form& form);
  void FollowRecord(const std::string& name, const TextArea& area);
  void Follow(const std::string& name, Properties& known, const Properties& found);
  Properties SharedValues() const;
  Properties RestValues() const;
  void LookAtSettings();
  void WatchScene();
  void TellStrip();

  Part part_;
  std::vector<std::string> strip_;
  Scene& scene_;
  Transcript transcript_;
  std::map<const void*, Properties> known_;         // by form or control
  std::map<const TextArea*, std::string> records_;  // texts for reading
  Properties shared_;
  Properties rest_;
  Settings settings_;
  std::string front_;
};

}  // namespace kavr6
