#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include "standalone/scripting/files/file_rules.h"
#include "standalone/scripting/files/host_paths.h"
#include "standalone/scripting/files/text_file.h"

namespace quiltor::standalone {

// What File and Folder of a script do on disk. Paths are those of HostPaths. Functions that return a text return the
// host's words for what went wrong, empty for success.
class HostFiles : public QObject {
  Q_OBJECT
  Q_PROPERTY(QString system READ system)
  Q_PROPERTY(QString current READ current WRITE setCurrent)
  Q_PROPERTY(bool writingDenied READ writingDenied)
  Q_PROPERTY(bool openingDenied READ openingDenied)

 public:
  // The names of Windows from now on, for files below `root`.
  void useWindowsNames(const QString& root) { paths_ = HostPaths(root); }
  [[nodiscard]] FileRules& rules() { return rules_; }

  [[nodiscard]] QString system() const;
  [[nodiscard]] QString current() const { return paths_.current(); }
  void setCurrent(const QString& path) { paths_.setCurrent(path); }
  [[nodiscard]] bool writingDenied() const { return rules_.writing != FileRules::Writing::Allowed; }
  [[nodiscard]] bool openingDenied() const { return rules_.writing == FileRules::Writing::Denied; }

  // --- Names ---
  Q_INVOKABLE QString absolute(const QString& text) const { return paths_.absolute(text); }
  Q_INVOKABLE QString fsName(const QString& path) const { return paths_.fsName(path); }
  Q_INVOKABLE QString fullName(const QString& path) const { return paths_.fullName(path); }
  Q_INVOKABLE QString absoluteUri(const QString& path) const { return paths_.absoluteUri(path); }
  Q_INVOKABLE QString relativeUri(const QString& path) const { return paths_.relativeUri(path); }
  Q_INVOKABLE QString onDisk(const QString& path) const { return paths_.onDisk(path); }
  Q_INVOKABLE QString fromDisk(const QString& diskPath) const { return paths_.fromDisk(diskPath); }
  Q_INVOKABLE QString parent(const QString& path) const { return paths_.parent(path); }
  Q_INVOKABLE QString lastName(const QString& path) const { return HostPaths::lastName(path); }
  Q_INVOKABLE QString special(const QString& name) const { return paths_.special(name); }
  Q_INVOKABLE QString encode(const QString& plain) const { return HostPaths::encode(plain); }
  Q_INVOKABLE QString decode(const QString& encoded) const { return HostPaths::decode(encoded); }
  Q_INVOKABLE bool knowsEncoding(const QString& name) const;
  // A name in the system's folder for temporary files that nothing has yet.
  Q_INVOKABLE QString temporary();

  // --- What is there ---
  Q_INVOKABLE int kind(const QString& path) const;             // 0 nothing, 1 a file, 2 a folder
  Q_INVOKABLE double length(const QString& path) const;        // bytes; -1 without the file
  Q_INVOKABLE double modified(const QString& path) const;      // milliseconds since 1970, NaN without the file
  Q_INVOKABLE double created(const QString& path) const;       // the same
  Q_INVOKABLE QStringList entries(const QString& path) const;  // names in the order of the rules

  // --- Changes ---
  Q_INVOKABLE QString remove(const QString& path);  // a folder only when it is empty
  Q_INVOKABLE QString create(const QString& path);  // a folder, whose parent must be there
  Q_INVOKABLE QString rename(const QString& path, const QString& name);
  Q_INVOKABLE QString copy(const QString& from, const QString& to);  // replaces; makes no folders
  // Null, with the reason in openError(), when it cannot be opened. The script's engine owns what it gets.
  Q_INVOKABLE quiltor::standalone::TextFile* open(const QString& path, const QString& mode, const QString& encoding);
  Q_INVOKABLE QString openError() const { return openError_; }

 private:
  [[nodiscard]] bool isRefused(const QString& diskPath) const;

  HostPaths paths_;
  FileRules rules_;
  QString openError_;
  int temporaryCount_ = 0;
};

}  // namespace quiltor::standalone
