#include "apps/tour/stage.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QTest>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>

#include <sys/prctl.h>

namespace kavr6 {
namespace {

constexpr int kPollMs = 10;
constexpr double kWindowSeconds = 5.0;

}  // namespace

Stage::Stage(std::filesystem::path folder) : folder_(std::move(folder)) {
  std::filesystem::remove_all(folder_ / "ports");
  std::filesystem::create_directories(folder_);
  const bool ours =
      std::filesystem::exists(folder_ / "tour.log");  // and not a folder with files of the user's
  for (const auto& old : std::filesystem::directory_iterator(folder_))
    for (const char* left : {".png", ".csv", ".cnf"})
      if (ours && old.path().extension() == left) std::filesystem::remove(old.path());
  log_.open(folder_ / "tour.log");
  QObject::connect(&dialogTimer_, &QTimer::timeout, [this] { LookForDialog(); });
  dialogTimer_.start(kPollMs);
}

void Stage::Note(const std::string& text) {
  std::cout << text << std::endl;
  log_ << text << std::endl;
}

void Stage::Step(const std::string& what) {
  if (!boxes_.empty()) Fail("this box has not come: " + boxes_.front().text);
  if (!prints_.empty()) Fail("the question for a printer has not come");
  if (!files_.empty()) Fail("this file dialog has not come: " + files_.front().name.string());
  Note(std::to_string(++steps_) + ". " + what);
}

void Stage::Check(bool holds, const std::string& what) {
  if (!holds) Fail("not so: " + what);
  Note("   " + what);
}

void Stage::Fail(const std::string& why) {
  Note("!! " + why);
  if (QWidget* front = QApplication::activeWindow())
    front->grab().save(QString::fromStdString((folder_ / "failed.png").string()));
  std::_Exit(1);
}

void Stage::WaitFor(const std::function<bool()>& done, double seconds, const std::string& what) {
  QElapsedTimer time;
  time.start();
  while (!done()) {
    if (static_cast<double>(time.elapsed()) > seconds * 1000.0) Fail("waited in vain: " + what);
    QTest::qWait(kPollMs);
  }
}

void Stage::Pause(double seconds) { QTest::qWait(static_cast<int>(seconds * 1000.0)); }

QWidget& Stage::Window(const std::string& form) {
  QWidget* found = nullptr;
  WaitFor(
      [&] {
        for (QWidget* window : QApplication::topLevelWidgets())
          if (window->isVisible() && window->objectName().toStdString() == form) found = window;
        return found != nullptr;
      },
      kWindowSeconds, "window " + form);
  // One that has only just opened does not know yet how large its parts are.
  QTest::qWait(kPollMs);
  return *found;
}

void Stage::Click(QWidget& window, const char* name) {
  auto* const widget = window.findChild<QWidget*>(name);
  if (widget == nullptr || !widget->isVisible()) Fail(std::string("nothing to click: ") + name);
  // Of a check box or a radio button only mark and words take the mouse, not the room behind them.
  const bool marked = widget->inherits("QCheckBox") || widget->inherits("QRadioButton");
  QTest::mouseClick(widget, Qt::LeftButton, {}, marked ? QPoint(8, widget->height() / 2) : QPoint());
}

void Stage::Command(QWidget& window, const char* name) {
  auto* const action = window.findChild<QAction*>(name);
  if (action == nullptr || !action->isEnabled()) Fail(std::string("no such command: ") + name);
  action->trigger();
}

void Stage::Choose(QWidget& window, const char* name, int row) {
  auto* const list = window.findChild<QComboBox*>(name);
  if (list == nullptr) Fail(std::string("no list: ") + name);
  list->setFocus();
  // A row of its own for each key: a slow list must not be hurried past the row in between.
  while (list->currentIndex() != row) {
    const int before = list->currentIndex();
    QTest::keyClick(list, before < row ? Qt::Key_Down : Qt::Key_Up);
    if (list->currentIndex() == before) return;
  }
}

void Stage::Type(QWidget& window, const char* name, const char* text) {
  auto* const widget = window.findChild<QWidget*>(name);
  if (widget == nullptr || !widget->isEnabled()) Fail(std::string("nothing to type into: ") + name);
  WaitFor([&] { return window.isActiveWindow(); }, kWindowSeconds, "the window to be active");
  widget->setFocus();
  if (auto* const edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
  QTest::keyClicks(widget, text);
}

void Stage::Press(QWidget& window, Qt::Key key) {
  QWidget* const focused = window.focusWidget();
  QTest::keyClick(focused != nullptr ? focused : &window, key);
}

void Stage::AnswerNextBox(const std::string& text, QMessageBox::StandardButton answer,
                          const std::string& picture) {
  boxes_.push_back({text, answer, picture});
}

void Stage::AnswerNextFileDialog(const std::filesystem::path& name, const std::string& picture) {
  files_.push_back({name, picture});
}

void Stage::AnswerNextPrintDialog(const std::filesystem::path& name, const std::string& picture) {
  prints_.push_back({name, picture});
}

void Stage::LookForDialog() {
  QWidget* const dialog = QApplication::activeModalWidget();
  if (dialog == nullptr || !dialog->isVisible() || dialog == answered_) return;
  if (auto* const box = qobject_cast<QMessageBox*>(dialog)) AnswerBox(*box);
  if (auto* const file = qobject_cast<QFileDialog*>(dialog)) AnswerFileDialog(*file);
  if (auto* const print = qobject_cast<QPrintDialog*>(dialog)) AnswerPrintDialog(*print);
}

void Stage::AnswerBox(QMessageBox& box) {
  const std::string shown = box.text().toStdString();
  if (boxes_.empty() || shown.find(boxes_.front().text) == std::string::npos)
    Fail("unexpected box: " + shown);
  const BoxToCome expected = boxes_.front();
  boxes_.pop_front();
  if (!expected.picture.empty()) Picture(box, expected.picture);
  QAbstractButton* const button = box.button(expected.answer);
  if (button == nullptr) Fail("the box has no such button: " + shown);
  Note("   box: " + expected.text);
  answered_ = &box;
  button->click();
}

void Stage::AnswerFileDialog(QFileDialog& dialog) {
  auto* const edit = dialog.findChild<QLineEdit*>("fileNameEdit");
  if (files_.empty() || edit == nullptr)
    Fail("unexpected file dialog: " + dialog.windowTitle().toStdString());
  const FileToCome expected = files_.front();
  files_.pop_front();
  answered_ = &dialog;
  edit->setText(QString::fromStdString(expected.name.string()));
  if (!expected.picture.empty()) Picture(dialog, expected.picture);
  Note("   file dialog: " + expected.name.filename().string());
  QTest::keyClick(edit, Qt::Key_Return);
}

void Stage::AnswerPrintDialog(QPrintDialog& dialog) {
  auto* const printers = dialog.findChild<QComboBox*>("printers");
  auto* const file = dialog.findChild<QLineEdit*>("filename");
  auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  if (prints_.empty() || printers == nullptr || file == nullptr || buttons == nullptr)
    Fail("unexpected question for a printer");
  const FileToCome expected = prints_.front();
  prints_.pop_front();
  answered_ = &dialog;
  printers->setCurrentIndex(printers->findText("PDF", Qt::MatchContains));
  file->setText(QString::fromStdString(expected.name.string()));
  if (!expected.picture.empty()) Picture(dialog, expected.picture);
  Note("   print dialog: " + expected.name.filename().string());
  buttons->button(QDialogButtonBox::Ok)->click();
}

void Stage::Picture(QWidget& window, const std::string& name) {
  ++pictures_;
  const std::string number = numbered_ ? (pictures_ < 10 ? "0" : "") + std::to_string(pictures_) + "-" : "";
  const std::filesystem::path file = folder_ / (number + name + ".png");
  if (!window.grab().save(QString::fromStdString(file.string()))) Fail("cannot write " + file.string());
  Note("   picture: " + file.filename().string());
}

DriveProgram::DriveProgram(Stage& stage, const QString& program) : stage_(stage) {
  process_.setStandardOutputFile(QString::fromStdString((stage.Folder() / "drive.log").string()));
  process_.setProcessChannelMode(QProcess::MergedChannels);
  // However the tour ends, its drive ends with it.
  process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  process_.start(program, {"--port", "COM1", "--dir", QString::fromStdString(stage.Folder().string())});
  if (!process_.waitForStarted()) stage.Fail("the simulated drive does not start");
  stage.WaitFor([&] { return std::filesystem::is_symlink(stage_.Folder() / "ports" / "COM1"); }, 5.0,
                "the link to the drive");
}

DriveProgram::~DriveProgram() {
  process_.terminate();
  process_.waitForFinished();
}

void DriveProgram::Order(const char* line) {
  process_.write(line);
  process_.write("\n");
  process_.waitForBytesWritten();
}

}  // namespace kavr6
