#include "standalone/scripting/files/host_files.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <random>

#include "standalone/scripting/files/text_encoding.h"

namespace quiltor::standalone {
namespace {

constexpr const char* kMissing = "File or folder does not exist";
constexpr const char* kPermission = "Permission denied";
constexpr unsigned kShuffleSeed = 35;

double milliseconds(const QDateTime& time) {
  return time.isValid() ? static_cast<double>(time.toMSecsSinceEpoch()) : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace

QString HostFiles::system() const { return paths_.style() == HostPaths::Style::Windows ? "Windows" : "Macintosh"; }

bool HostFiles::isRefused(const QString& diskPath) const {
  return std::ranges::any_of(rules_.unwritable, [&diskPath](const QString& folder) {
    return diskPath == folder || diskPath.startsWith(folder + "/");
  });
}

QString HostFiles::temporary() {
  QString path;
  do {
    path = paths_.special("temp") + "/script-" + QString::number(++temporaryCount_) + ".tmp";
  } while (kind(path) != 0);
  return path;
}

bool HostFiles::knowsEncoding(const QString& name) const { return isKnownEncoding(name); }

int HostFiles::kind(const QString& path) const {
  const QFileInfo info(paths_.onDisk(path));
  if (!info.exists()) return 0;
  return info.isDir() ? 2 : 1;
}

double HostFiles::length(const QString& path) const {
  const QFileInfo info(paths_.onDisk(path));
  return info.isFile() ? static_cast<double>(info.size()) : -1;
}

double HostFiles::modified(const QString& path) const {
  return milliseconds(QFileInfo(paths_.onDisk(path)).lastModified());
}

double HostFiles::created(const QString& path) const {
  return milliseconds(QFileInfo(paths_.onDisk(path)).birthTime());
}

QStringList HostFiles::entries(const QString& path) const {
  const auto filters = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  QStringList names = QDir(paths_.onDisk(path)).entryList(filters, QDir::Name | QDir::IgnoreCase);
  if (rules_.order == FileRules::Order::Reversed) std::ranges::reverse(names);
  if (rules_.order == FileRules::Order::Shuffled) std::ranges::shuffle(names, std::mt19937(kShuffleSeed));
  return names;
}

QString HostFiles::remove(const QString& path) {
  const QString disk = paths_.onDisk(path);
  if (kind(path) == 0) return kMissing;
  if (isRefused(disk)) return kPermission;
  if (kind(path) == 1) return QFile::remove(disk) ? "" : kPermission;
  return QDir().rmdir(disk) ? "" : "I/O error";
}

QString HostFiles::create(const QString& path) {
  const QString disk = paths_.onDisk(path);
  if (kind(path) != 0) return "File or folder already exists";
  if (isRefused(disk)) return kPermission;
  return QDir().mkdir(disk) ? "" : kMissing;
}

QString HostFiles::rename(const QString& path, const QString& name) {
  const QString disk = paths_.onDisk(path);
  if (kind(path) == 0) return kMissing;
  if (isRefused(disk)) return kPermission;
  return QFile::rename(disk, QFileInfo(disk).path() + "/" + name) ? "" : "I/O error";
}

QString HostFiles::copy(const QString& from, const QString& to) {
  const QString target = paths_.onDisk(to);
  if (kind(from) != 1) return kMissing;
  if (isRefused(target)) return kPermission;
  if (from == to || kind(to) == 2) return "I/O error";
  if (kind(to) == 1 && !QFile::remove(target)) return kPermission;
  return QFile::copy(paths_.onDisk(from), target) ? "" : kMissing;
}

TextFile* HostFiles::open(const QString& path, const QString& mode, const QString& encoding) {
  openError_.clear();
  const QString disk = paths_.onDisk(path);
  if (mode != "r" && isRefused(disk)) {
    openError_ = kPermission;
    return nullptr;
  }
  return TextFile::open(disk, mode, encoding, openError_);
}

}  // namespace quiltor::standalone
