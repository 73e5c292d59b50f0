#pragma once

#include <QString>

namespace quiltor::standalone {

// How the scripting host names files. Inside, a path is its plain, absolute form with slashes: "/c/My Dir/a b.png" for
// C:\My Dir\a b.png and the path itself on a POSIX system. Scripts see up to five spellings of it, different on
// purpose.
//
// With the names of Windows the drives are folders of `root`, so that scripts can be run as on that system: C:\a is
// root/c/a on disk.
class HostPaths {
 public:
  enum class Style { Posix, Windows };

  // The names of this system. Scripts are told that they run on a Macintosh, the one documented system with such paths.
  HostPaths();
  // The names of Windows, for files below `root`.
  explicit HostPaths(QString root);

  [[nodiscard]] Style style() const { return style_; }

  // What a script wrote: native or in URI notation, absolute or not, "~" for the home folder. Percent escapes are
  // decoded.
  [[nodiscard]] QString absolute(const QString& text) const;

  [[nodiscard]] QString fsName(const QString& path) const;       // native and plain
  [[nodiscard]] QString fullName(const QString& path) const;     // with slashes, plain, "~" for the home folder
  [[nodiscard]] QString absoluteUri(const QString& path) const;  // the full name, percent-encoded
  [[nodiscard]] QString relativeUri(const QString& path) const;  // from the current folder, percent-encoded
  [[nodiscard]] QString onDisk(const QString& path) const;       // where the file really is
  [[nodiscard]] QString fromDisk(const QString& diskPath) const;
  [[nodiscard]] QString parent(const QString& path) const;     // empty at a volume's root
  [[nodiscard]] static QString lastName(const QString& path);  // plain

  // "appData", "userData", "temp", ...: empty for a name that is none or has no folder here.
  [[nodiscard]] QString special(const QString& name) const;
  [[nodiscard]] const QString& current() const { return current_; }
  void setCurrent(const QString& path) { current_ = path; }

  [[nodiscard]] static QString encode(const QString& plain);
  [[nodiscard]] static QString decode(const QString& encoded);

 private:
  [[nodiscard]] QString normalised(const QString& text) const;

  Style style_;
  QString root_;
  QString home_;
  QString current_;
};

}  // namespace quiltor::standalone
