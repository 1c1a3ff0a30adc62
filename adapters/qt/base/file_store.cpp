#include "adapters/qt/base/file_store.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QThread>
#include <array>
#include <cerrno>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif
#ifdef Q_OS_WIN
#include <windows.h>
#endif

#include "adapters/qt/base/text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

enum ErrorNumber {
  kFileNotFound = FileStore::kNoFile,
  kDeviceError = 57,
  kDiskFull = 61,
  kPermissionDenied = 70,
  kAccessError = 75,
  kPathNotFound = FileStore::kNoFolder,
};

constexpr QFile::Permissions kAnyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;

[[noreturn]] void Fail(ErrorNumber number, const QString& cause) {
  throw RuntimeError(number, FromQt(cause));
}

/// The system's words, to go on within a sentence.
QString Clause(const QString& words) {
  QString text = WithoutFullStop(words);
  if (!text.isEmpty()) text[0] = text[0].toLower();
  return text;
}

/// Where the content itself is or would be: links are followed.
QFileInfo Target(const std::string& name) {
  QFileInfo file(ToQt(name));
  // Links that lead in a circle end nowhere.
  constexpr int kMostLinks = 40;
  for (int links = 0; file.isSymLink() && links < kMostLinks; ++links) file.setFile(file.symLinkTarget());
  return file;
}

// Opening anything but an ordinary file could wait for ever.
void RequireOrdinary(const QFileInfo& file) {
  if (file.isDir()) Fail(kAccessError, file.filePath() + " is a folder");
  if (file.exists() && !file.isFile()) Fail(kAccessError, file.filePath() + " is not an ordinary file");
}

void RequireFolder(const QFileInfo& file) {
  const QFileInfo folder(file.absolutePath());
  if (!folder.isDir()) Fail(kPathNotFound, "the folder " + folder.filePath() + " is not there");
}

// A file that is renamed over another asks nobody whether that one may be written to.
void RequireReplaceable(const QFileInfo& file) {
  RequireOrdinary(file);
  if (file.exists() && (!file.isWritable() || !(file.permissions() & kAnyWrite)))
    Fail(kAccessError, file.filePath() + " is read-only");
}

#ifdef Q_OS_WIN
constexpr std::array kDiskFullErrors{ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL};
/// The folder and the file could be written to by then.
constexpr const char* kNotReplaced = "; another program may have the file open";
/// A virus scanner or a backup has a file open for a moment, and no file that is open can be replaced.
constexpr int kTries = 4;
#else
constexpr std::array kDiskFullErrors{ENOSPC, EDQUOT};
constexpr const char* kNotReplaced = "";
constexpr int kTries = 1;
#endif
constexpr unsigned long kMillisecondsBetweenTries = 100;

/// `words`: the system's own. Its number of an error need not outlive their making.
[[noreturn]] void FailWriting(const QString& words) {
  for (const auto error : kDiskFullErrors)
    if (words == qt_error_string(static_cast<int>(error))) Fail(kDiskFull, "the disk is full");
  Fail(kDeviceError, Clause(words));
}

void WriteAll(QSaveFile& file, std::string_view content) {
  while (!content.empty()) {
    const qint64 written = file.write(content.data(), static_cast<qint64>(content.size()));
    if (written <= 0) FailWriting(file.errorString());
    content.remove_prefix(static_cast<std::size_t>(written));
  }
#ifdef Q_OS_UNIX
  // Some disks tell only now that they are full; some cannot be asked.
  if (::fsync(file.handle()) != 0 && errno != EINVAL && errno != ENOTSUP) FailWriting(qt_error_string(errno));
#endif
}

/// Why the target has not been replaced; empty when it has.
QString ReplaceNow(const QFileInfo& target, std::string_view content) {
  QSaveFile file(target.filePath());
  // Without a buffer of the toolkit's an error belongs to the call that meets it.
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
    RequireFolder(target);
    Fail(kAccessError, "the folder " + target.absolutePath() + " cannot be written to (" +
                           Clause(file.errorString()) + ")");
  }
  WriteAll(file, content);
  return file.commit() ? QString() : Clause(file.errorString());
}

}  // namespace

std::string DiskFiles::Read(const std::string& name) const {
  const QFileInfo target = Target(name);
  RequireOrdinary(target);
  QFile file(target.filePath());
  if (!file.open(QIODevice::ReadOnly)) {
    RequireFolder(target);
    if (!target.exists()) Fail(kFileNotFound, "the file " + target.filePath() + " is not there");
    if (!target.isReadable()) Fail(kPermissionDenied, "there is no permission to read " + target.filePath());
    Fail(kDeviceError, Clause(file.errorString()));
  }
  const QByteArray content = file.read(static_cast<qint64>(kMostBytes));
  if (file.error() != QFileDevice::NoError) Fail(kDeviceError, Clause(file.errorString()));
  return content.toStdString();
}

void DiskFiles::Replace(const std::string& name, std::string_view content) {
  const QFileInfo target = Target(name);
  RequireReplaceable(target);
  QString cause = ReplaceNow(target, content);
  for (int tries = 1; !cause.isEmpty() && tries < kTries; ++tries) {
    QThread::msleep(kMillisecondsBetweenTries);
    cause = ReplaceNow(target, content);
  }
  if (!cause.isEmpty()) Fail(kAccessError, cause + kNotReplaced);
}

}  // namespace kavr6
