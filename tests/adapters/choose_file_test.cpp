#include "adapters/qt/windows/choose_file.h"

#include <QTemporaryDir>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

#include "adapters/qt/base/text.h"

namespace kavr6 {
namespace {

constexpr auto kOpen = FileDialog::Purpose::Open;
constexpr auto kSave = FileDialog::Purpose::Save;

/// Types a name, answers the question that follows, and gives up when the dialog is still there then.
struct User {
  QString typed;
  bool agrees;
  std::string log;

  void Act() {
    QWidget* const window = QApplication::activeModalWidget();
    if (window == nullptr) return;
    QTimer::singleShot(0, [this] { Act(); });
    if (auto* const box = qobject_cast<QMessageBox*>(window)) {
      log += "asked ";
      QAbstractButton* const yes = box->button(QMessageBox::Yes);
      agrees&& yes != nullptr ? yes->click() : box->reject();
    } else if (!typed.isEmpty()) {
      log += window->windowTitle().toStdString() + " ";
      window->findChild<QLineEdit*>("fileNameEdit")->setText(std::exchange(typed, {}));
      QTest::keyClick(window->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    } else {
      EXPECT_EQ(qobject_cast<QFileDialog*>(window)->nameFilters(), QStringList("Words (*.cnf)"));
      QTest::keyClick(window, Qt::Key_Escape);
    }
  }
};

TEST(ChooseFile, GivesTheFullNameAndAsksBeforeAFileIsReplaced) {
  const QTemporaryDir folder;
  QFile(folder.filePath("there.cnf")).open(QIODevice::WriteOnly);
  using Row = std::tuple<FileDialog::Purpose, const char*, bool, const char*, const char*>;
  const Row cases[] = {{kOpen, "there", false, "Open ", "there.cnf"},
                       {kOpen, "absent", false, "Open asked ", nullptr},
                       {kOpen, "", false, "", nullptr},
                       {kSave, "n\u00e9w", false, "Save As ", "n\u00e9w.cnf"},
                       {kSave, "there", true, "Save As asked ", "there.cnf"},
                       {kSave, "there", false, "Save As asked ", nullptr}};
  for (const auto& [purpose, typed, agrees, log, expected] : cases) {
    User user{typed, agrees, {}};
    QTimer::singleShot(0, [&user] { user.Act(); });
    const std::string chosen =
        ChooseFile({purpose, "Words|*.cnf", "cnf", folder.path().toStdString()}, nullptr, [] {});
    EXPECT_EQ(chosen, expected == nullptr ? "" : PathFromQt(folder.filePath(expected)));
    EXPECT_EQ(user.log, log) << typed;
    QCoreApplication::processEvents();  // the user sees that the dialog has gone
  }
}

}  // namespace
}  // namespace kavr6
