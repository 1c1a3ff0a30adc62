// Plays the main job through the real windows, without a person, and leaves pictures of it.
// Usage: tour [FOLDER]
#include <QApplication>
#include <QLocale>
#include <iostream>

#include "apps/tour/tour.h"

int main(int argc, char** argv) {
  // The tour acts in the file dialogs as well: they have to be the toolkit's own.
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  QApplication::setApplicationName(kavr6::kProgramTitle);
  QApplication::setApplicationVersion(KAVR6_VERSION);
  QLocale::setDefault(QLocale::c());
  try {
    kavr6::Stage stage(std::filesystem::absolute(argc > 1 ? argv[1] : "tour"));
    std::filesystem::copy_file(QCoreApplication::applicationDirPath().toStdString() + "/" + kavr6::kMotorFile,
                               stage.Folder() / kavr6::kMotorFile,
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::copy(
        QCoreApplication::applicationDirPath().toStdString() + "/KAVR6 help", stage.Folder() / "KAVR6 help",
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    kavr6::Tour(stage).Play();
    stage.Note(std::to_string(stage.Steps()) + " steps, " + std::to_string(stage.Pictures()) +
               " pictures in " + stage.Folder().string());
  } catch (const std::exception& error) {
    std::cerr << "!! " << error.what() << '\n';
    return 1;
  }
  return 0;
}
