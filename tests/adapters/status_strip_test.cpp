// The strip at the foot of the main screen says what it can in the width it gets, and cuts no name.
#include "adapters/qt/windows/widgets/status_strip.h"

#include <QTest>

#include <gtest/gtest.h>

#include "adapters/qt/windows/widgets/picture.h"
#include "adapters/qt/windows/widgets/status_text.h"

namespace kavr6::widgets {
namespace {

constexpr auto kLongestDevice =
    "COM1 open, /dev/serial/by-id/usb-Prolific_Technology_Inc._USB-Serial_Controller_D-if00-port0";

TEST(StatusText, GivesWayAtCommasAndFolders) {
  StatusText text;
  text.setText(kLongestDevice);
  const QFontMetrics metrics = text.fontMetrics();
  QStringList seen;
  for (int width = text.sizeHint().width(); width >= 0; --width) {
    const QString shown = text.Fitting(width);
    if (seen.isEmpty() || seen.last() != shown) seen << shown;
    EXPECT_TRUE(metrics.horizontalAdvance(shown) <= width || shown == "COM1 open …") << width;
  }
  const QString device = "usb-Prolific_Technology_Inc._USB-Serial_Controller_D-if00-port0";
  EXPECT_EQ(seen, (QStringList{kLongestDevice, "COM1 open, …/serial/by-id/" + device,
                               "COM1 open, …/by-id/" + device, "COM1 open, …/" + device, "COM1 open …"}));
  // Such a blank holds the parts of a name together.
  text.setText("COM1 open, a device,\u00A0and its maker");
  EXPECT_EQ(text.Fitting(text.sizeHint().width() - 2), "COM1 open …");
}

TEST(StatusStrip, IsWholeInEveryWidth) {
  StatusStrip strip;
  const char* const words[] = {kLongestDevice,
                               "KAVR6-Wy-220 tells of an alarm, KAVR6-Zu-220 is chosen, heard 12:31",
                               "In drive: not known", "File changed by another program"};
  std::vector<StatusText*> texts;
  for (const char* const cell : words) {
    new Picture(&strip);
    texts.push_back(new StatusText(&strip));
    texts.back()->setText(cell);
  }
  texts[2]->setProperty("breaks", true);
  texts[3]->setProperty("joined", true);
  strip.show();
  const int widest = strip.sizeHint().width();
  // In the width of two rows, the longest of which holds the shortest words of drive and line.
  for (int width = widest + 50; width > 420; width -= 7) {
    strip.resize(width, strip.heightForWidth(width));
    QTest::qWait(0);
    for (const StatusText* text : texts) {
      EXPECT_TRUE(strip.rect().contains(text->geometry())) << width << ": " << text->text().toStdString();
      EXPECT_LE(text->fontMetrics().horizontalAdvance(text->Fitting(text->width())), text->width());
      for (const StatusText* other : texts)
        EXPECT_TRUE(text == other || !text->geometry().intersects(other->geometry())) << width;
    }
    const QString line = texts[0]->Fitting(texts[0]->width());
    const QString drive = texts[1]->Fitting(texts[1]->width());
    EXPECT_EQ(drive == texts[1]->text() && line == texts[0]->text(), width >= widest) << width;
    // A device keeps its folders until the drive's cell has nothing more to give.
    EXPECT_TRUE(line == texts[0]->text() || line == "COM1 open …" || drive == texts[1]->Fitting(0)) << width;
  }
  EXPECT_GT(texts[2]->y(), texts[0]->y());  // a narrow one has two rows
}

}  // namespace
}  // namespace kavr6::widgets
