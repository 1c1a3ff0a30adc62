// Plays the main job through the real windows, without a person, and leaves pictures of it.
#include <QApplication>
#include <QCommandLineParser>
#include <QFont>
#include <QLocale>
#include <iostream>

#include "adapters/qt/windows/style/program_style.h"
#include "apps/tour/tour.h"

namespace {

using kavr6::kMotorFile;

/// The folder gets what lies beside the program: motor table and help pages.
void Furnish(const std::filesystem::path& folder) {
  const std::filesystem::path program = QCoreApplication::applicationDirPath().toStdString();
  constexpr auto kNewly = std::filesystem::copy_options::overwrite_existing;
  std::filesystem::copy_file(program / kMotorFile, folder / kMotorFile, kNewly);
  std::filesystem::copy(program / "KAVR6 help", folder / "KAVR6 help",
                        std::filesystem::copy_options::recursive | kNewly);
}

void SetTypeSize(const QString& points) {
  if (points.isEmpty()) return;
  QFont font = QApplication::font();
  font.setPointSize(points.toInt());
  QApplication::setFont(font);
}

}  // namespace

int main(int argc, char** argv) {
  // The tour acts in the file dialogs as well: they have to be the toolkit's own.
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  kavr6::style::UseProgramStyle();
  QApplication application(argc, argv);
  QApplication::setApplicationName(kavr6::kProgramTitle);
  QApplication::setApplicationVersion(KAVR6_VERSION);
  QLocale::setDefault(QLocale::c());
  QCommandLineParser options;
  options.addHelpOption();
  options.addPositionalArgument("folder", "Where the pictures go, \"tour\" unless named.", "[folder]");
  options.addOption({"windows", "No tour: one picture of every window, its name is the window's."});
  options.addOption({"dark", "With --windows: in dark colours."});
  options.addOption({"points", "The size of the type.", "number"});
  options.process(application);
  const QStringList names = options.positionalArguments();
  try {
    SetTypeSize(options.value("points"));
    if (options.isSet("dark")) kavr6::style::PretendSystemScheme(kavr6::style::Scheme::Dark);
    kavr6::Stage stage(std::filesystem::absolute(names.isEmpty() ? "tour" : names.first().toStdString()));
    Furnish(stage.Folder());
    kavr6::Tour tour(stage);
    if (options.isSet("windows"))
      tour.Photograph();
    else
      tour.Play();
    stage.Note(std::to_string(stage.Steps()) + " steps, " + std::to_string(stage.Pictures()) +
               " pictures in " + stage.Folder().string());
  } catch (const std::exception& error) {
    std::cerr << "!! " << error.what() << '\n';
    return 1;
  }
  return 0;
}
