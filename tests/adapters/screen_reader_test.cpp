// What a screen reader tells: every stop of the Tab key in every window, and what changes by itself.
#include <QAccessible>
#include <QTest>
#include <QtWidgets>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "adapters/qt/windows/binder.h"
#include "adapters/qt/windows/forms.h"
#include "core/motion_codes.h"
#include "dialogs/setup_dialog.h"
#include "tests/support/scene.h"

namespace kavr6 {
namespace {

QString Cut(const QString& text) {
  constexpr int kMost = 70;
  const QString line = text.simplified();
  return line.size() <= kMost ? line : line.left(kMost) + "...";
}

/// How a control is called. A drop-down list is called by the label beside it, otherwise it is known only by
/// what is said about it.
QString NameOf(QWidget& widget) {
  QAccessibleInterface& heard = *QAccessible::queryAccessibleInterface(&widget);
  if (heard.role() != QAccessible::ComboBox) return heard.text(QAccessible::Name);
  for (const auto& [label, relation] : heard.relations(QAccessible::Label))
    if (relation == QAccessible::Label) return label->text(QAccessible::Name);
  return heard.text(QAccessible::Description);
}

/// The rows of a list or a grid as they are heard: what stands in their first column.
QString Rows(QWidget& view) {
  const auto* const items = qobject_cast<QAbstractItemView*>(&view);
  if (items == nullptr) return {};
  QStringList rows;
  QAccessibleTableInterface* const table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
  for (int row = 0; table != nullptr && row < table->rowCount() && row < 40; ++row)
    if (QAccessibleInterface* const cell = table->cellAt(row, 0))
      if (const QString text = cell->text(QAccessible::Name).trimmed(); !text.isEmpty()) rows += text;
  return " [" + rows.join(" | ") + "]";
}

/// Role, name, value with its range, state and description of one control.
QString Told(QWidget& widget) {
  QAccessibleInterface& heard = *QAccessible::queryAccessibleInterface(&widget);
  const QString name = NameOf(widget);
  QString line = QString(qAccessibleRoleString(heard.role())) + " '" + name + "'";
  if (QAccessibleValueInterface* const number = heard.valueInterface())
    line += " = " + number->currentValue().toString() + " of " + number->minimumValue().toString() + " to " +
            number->maximumValue().toString();
  else if (const QString value = heard.text(QAccessible::Value); !value.isEmpty() && value != name)
    line += " = '" + Cut(value) + "'";
  if (heard.state().checkable) line += heard.state().checked ? ", set" : ", not set";
  if (heard.state().disabled) line += ", greyed";
  line += Rows(widget);
  const QString description = heard.text(QAccessible::Description);
  if (!description.isEmpty() && description != name) line += " - " + description;
  return line;
}

/// Where the Tab key stops, and the option buttons that the arrow keys reach from there.
QList<QWidget*> Stops(QWidget& window) {
  QList<QWidget*> stops;
  for (QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain())
    if (at->isVisibleTo(&window) && at->focusProxy() == nullptr &&
        ((at->focusPolicy() & Qt::TabFocus) != 0 || qobject_cast<QRadioButton*>(at) != nullptr))
      stops.append(at);
  return stops;
}

struct ScreenReader : SceneTest {
  QWidget* Bound(Form& form) {
    windows.push_back(BuildWindow(form.Name()));
    binders.push_back(std::make_unique<Binder>(form, *windows.back()));
    return windows.back().get();
  }
  std::string Read(Form& form) {
    QWidget* const window = Bound(form);
    window->show();
    QTest::qWait(1);
    std::string told = "\n" + form.Name() + ": " + form.Caption() + "\n";
    for (QWidget* stop : Stops(*window)) {
      EXPECT_FALSE(NameOf(*stop).trimmed().isEmpty())
          << form.Name() << "." << stop->objectName().toStdString() << " is heard without a name";
      told += "  " + Told(*stop).toStdString() + "\n";
    }
    window->hide();
    return told;
  }
  std::vector<std::unique_ptr<QWidget>> windows;
  std::vector<std::unique_ptr<Binder>> binders;  // these follow the controls as long as there are any
};

TEST_F(ScreenReader, EveryControlOfEveryWindowIsHeardAsAPersonHasReadItHere) {
  scene.drive.SetIdentity(52, 43, 'k');  // of the kind that has everything
  std::string told;
  for (Form* form : scene.Forms()) {
    if (form == &program.Splash) continue;
    if (auto* const dialog = dynamic_cast<SetupDialog*>(form)) {
      dialog->Open();
    } else {
      form->Show();
    }
    told += Read(*form);
    if (form != &main) form->Hide();
  }
  std::ifstream file(KAVR6_SCREEN_READER ".txt");
  std::ostringstream expected;
  expected << file.rdbuf();
  if (told != expected.str() && std::getenv("KAVR6_WRITE_TRANSCRIPTS") != nullptr)
    std::ofstream(KAVR6_SCREEN_READER ".got") << told;
  EXPECT_EQ(told, expected.str());
}

TEST_F(ScreenReader, ModeAndFirmwareAreHeardWithTheirMeaningAsTheyChange) {
  const QWidget* const window = Bound(main);
  const auto heard = [&](const char* label) {
    return QAccessible::queryAccessibleInterface(window->findChild<QWidget*>(label))
        ->text(QAccessible::Name)
        .toStdString();
  };
  EXPECT_EQ(heard("DriveVersion"), "Firmware revision of the drive");
  EXPECT_EQ(heard("MotionDesc"), "Motion mode: Pulse & Direction");
  state.DriveVersion = "1.52 k";
  settings.OpMode = kOpZuProgram;
  ShowModeName(state, settings);
  EXPECT_EQ(heard("DriveVersion"), "Firmware revision of the drive: 1.52 k");
  EXPECT_EQ(heard("MotionDesc"), "Motion mode: Zu Program");
}

}  // namespace
}  // namespace kavr6
