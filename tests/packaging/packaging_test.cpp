// What is installed beside the programs says what they say of themselves, and all of it is found from
// anywhere.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "adapters/qt/base/program_folders.h"

namespace kavr6 {
namespace {

QString OutputOf(const QString& program, const QStringList& arguments, const QString& folder = {}) {
  QProcess process;
  process.setWorkingDirectory(folder);
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString();
  EXPECT_EQ(process.exitCode(), 0) << program.toStdString();
  return QString::fromUtf8(process.readAll());
}

QString Help() { return OutputOf(KAVR6_PROGRAM, {"--help"}); }

/// The lines of a section of the help.
QStringList Section(const QString& name) {
  return Help().section("\n" + name + "\n", 1).section("\n\n", 0, 0).split('\n', Qt::SkipEmptyParts);
}

/// The first words of these lines, in alphabetical order.
std::string Names(const QStringList& lines) {
  QStringList names;
  for (const QString& line : lines) names.append(line.simplified().section(' ', 0, 0));
  names.sort();
  return names.join(' ').toStdString();
}

/// What the shell offers for the last of these words.
std::string Offered(const QStringList& words, const QString& folder) {
  const QString script = "source " KAVR6_SOURCE
                         "/packaging/completion/kavr6.bash; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                         "_kavr6 \"$1\" \"${@: -1}\" \"${@: -2:1}\"; printf '%s\\n' \"${COMPREPLY[@]}\"";
  return Names(OutputOf("bash", QStringList{"-c", script, "bash", KAVR6_PROGRAM} + words, folder)
                   .split('\n', Qt::SkipEmptyParts));
}

TEST(ManPage, SaysAllThatTheHelpSays) {
  QFile file(KAVR6_BUILD "/packaging/kavr6.1");
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QStringList page = QString::fromUtf8(file.readAll()).replace("\\-", "-").split('\n');
  for (const char* section : {"Commands", "Options", "Exit codes"}) {
    const QStringList lines = Section(section);
    EXPECT_GE(lines.size(), 7);
    for (const QString& line : lines) {
      const QStringList columns = line.trimmed().split(QRegularExpression("  +"));
      const qsizetype entry = page.indexOf(".B " + columns[0]);
      ASSERT_GE(entry, 0) << line.toStdString();
      EXPECT_EQ(page.value(entry + 1), columns.value(1));
    }
  }
  for (const QString& line : Section("Examples")) EXPECT_TRUE(page.contains(line)) << line.toStdString();
  EXPECT_FALSE(page.join(' ').contains('@'));
}

TEST(Completion, OffersWhatTheHelpNames) {
  const QTemporaryDir folder;
  for (const char* name : {"machine.cnf", "motors.mdb"}) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  }
  const std::pair<QStringList, std::string> cases[] = {
      {{""}, Names(Section("Commands"))},
      {{"--"}, Names(Section("Options"))},
      {{"verify", "--"}, "--help --json --motors --port --version"},
      {{"re"}, "read report"},
      {{"write", "--no"}, "--no-verify"},
      {{"report", "--pdf", "ma"}, "machine.cnf"},
      {{"write", "m"}, "machine.cnf motors.mdb"},
      {{"write", "--motors", "mo"}, "motors.mdb"},
      {{"write", "--json", "ma"}, "machine.cnf"}};
  for (const auto& [words, offered] : cases)
    EXPECT_EQ(Offered(words, folder.path()), offered) << words.join(' ').toStdString();
}

TEST(Installed, IsFoundFromWhereverItLies) {
  const QTemporaryDir folder;
  const QString prefix = folder.filePath("any place");
  OutputOf("cmake", {"--install", KAVR6_BUILD, "--prefix", prefix});
  QFile settings(prefix + "/settings.cnf");
  EXPECT_TRUE(QFile::copy(KAVR6_SOURCE "/tests/windowless/factory.cnf", settings.fileName()));
  EXPECT_TRUE(OutputOf(prefix + "/bin/kavr6", {"report", settings.fileName()}).contains("Run current"));
  OutputOf(prefix + "/bin/kavr6", {"report", settings.fileName(), "--pdf", prefix + "/sheet.pdf"});
  EXPECT_TRUE(QFile::exists(prefix + "/sheet.pdf"));
  const ProgramFolders found = FoldersOf((prefix + "/bin").toStdString());
  EXPECT_TRUE(found.installed);
  EXPECT_TRUE(std::filesystem::exists(found.data / "KAVR6 help" / "index.html"));
  const ProgramFolders here = FoldersOf(QFileInfo(KAVR6_PROGRAM).path().toStdString());
  EXPECT_FALSE(here.installed);
  EXPECT_EQ(here.data, QFileInfo(KAVR6_PROGRAM).path().toStdString());
}

}  // namespace
}  // namespace kavr6
