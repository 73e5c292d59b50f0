#include "standalone/scripting/files/host_paths.h"

#include <QDir>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>
#include <map>
#include <utility>

#include "platform/data_folder.h"

namespace quiltor::standalone {
namespace {

// "/c" or "/c/...": a drive.
bool hasDrive(const QString& path) {
  return path.size() >= 2 && path[0] == '/' && path[1].isLetter() && (path.size() == 2 || path[2] == '/');
}

bool isNetworkPath(const QString& path) { return path.startsWith("//"); }

QString withoutEndSlash(QString path) {
  while (path.size() > 1 && path.endsWith('/')) path.chop(1);
  return path;
}

}  // namespace

HostPaths::HostPaths()
    : style_(Style::Posix), home_(withoutEndSlash(QDir::homePath())), current_(withoutEndSlash(QDir::currentPath())) {}

HostPaths::HostPaths(QString root)
    : style_(Style::Windows), root_(withoutEndSlash(std::move(root))), home_("/c/Users/user"), current_(home_) {}

QString HostPaths::encode(const QString& plain) {
  return QString::fromLatin1(QUrl::toPercentEncoding(plain, ";/?:@&=+$,#!'()*"));
}

QString HostPaths::decode(const QString& encoded) { return QUrl::fromPercentEncoding(encoded.toUtf8()); }

// Without ".", ".." and doubled slashes; a network path keeps its two.
QString HostPaths::normalised(const QString& text) const {
  const bool network = style_ == Style::Windows && isNetworkPath(text);
  QStringList parts;
  for (const QString& part : text.split('/', Qt::SkipEmptyParts)) {
    if (part == ".") continue;
    if (part != "..") {
      parts.append(part);
    } else if (!parts.isEmpty()) {
      parts.removeLast();
    }
  }
  return (network ? "//" : "/") + parts.join('/');
}

QString HostPaths::absolute(const QString& text) const {
  QString path = decode(text);
  if (style_ == Style::Windows) {
    path.replace('\\', '/');
    if (path.size() >= 2 && path[0].isLetter() && path[1] == ':') path = "/" + path.left(1) + "/" + path.mid(2);
    if (hasDrive(path)) path[1] = path[1].toLower();
  }
  if (path == "~" || path.startsWith("~/")) path = home_ + path.mid(1);
  if (!path.startsWith('/')) path = current_ + "/" + path;
  return normalised(path);
}

QString HostPaths::fsName(const QString& path) const {
  if (style_ == Style::Posix) return path;
  QString name = path;
  if (hasDrive(path)) {
    name = path.mid(1, 1).toUpper() + ":" + path.mid(2);
    if (name.size() == 2) name += '/';
  }
  return name.replace('/', '\\');
}

QString HostPaths::fullName(const QString& path) const {
  if (path == home_) return "~";
  return path.startsWith(home_ + "/") ? "~" + path.mid(home_.size()) : path;
}

QString HostPaths::absoluteUri(const QString& path) const { return encode(fullName(path)); }

QString HostPaths::relativeUri(const QString& path) const {
  QStringList from = current_.split('/', Qt::SkipEmptyParts);
  QStringList to = path.split('/', Qt::SkipEmptyParts);
  while (!from.isEmpty() && !to.isEmpty() && from.first() == to.first()) {
    from.removeFirst();
    to.removeFirst();
  }
  const QStringList up(from.size(), "..");
  return encode((up + to).join('/'));
}

QString HostPaths::onDisk(const QString& path) const { return style_ == Style::Posix ? path : root_ + path; }

QString HostPaths::fromDisk(const QString& diskPath) const {
  const bool isBelow = style_ == Style::Windows && diskPath.startsWith(root_ + "/");
  return normalised(isBelow ? diskPath.mid(root_.size()) : diskPath);
}

QString HostPaths::parent(const QString& path) const {
  if (path == "/" || (style_ == Style::Windows && hasDrive(path) && path.size() == 2)) return "";
  const QString folder = path.left(path.lastIndexOf('/'));
  if (style_ == Style::Windows && folder.size() <= 1) return "";
  return folder.isEmpty() ? "/" : folder;
}

QString HostPaths::lastName(const QString& path) { return path.mid(path.lastIndexOf('/') + 1); }

QString HostPaths::special(const QString& name) const {
  if (style_ == Style::Windows) {
    static const std::map<QString, QString> folders{{"appData", "/c/ProgramData"},
                                                    {"userData", "/c/Users/user/AppData/Roaming"},
                                                    {"temp", "/c/Users/user/AppData/Local/Temp"},
                                                    {"desktop", "/c/Users/user/Desktop"},
                                                    {"myDocuments", "/c/Users/user/Documents"},
                                                    {"commonFiles", "/c/Program Files/Common Files"},
                                                    {"startup", "/c/Program Files/Host"},
                                                    {"system", "/c/Windows"}};
    const auto found = folders.find(name);
    return found == folders.end() ? "" : found->second;
  }
  const auto standard = [](QStandardPaths::StandardLocation place) { return QStandardPaths::writableLocation(place); };
  // The two that the effect knows too: both must mean the same folders.
  if (name == "appData") return normalised(QString::fromStdString(allUsersDataFolder()));
  if (name == "userData") return normalised(QString::fromStdString(userDataFolder()));
  if (name == "temp") return normalised(QDir::tempPath());
  if (name == "desktop") return normalised(standard(QStandardPaths::DesktopLocation));
  if (name == "myDocuments") return normalised(standard(QStandardPaths::DocumentsLocation));
  if (name == "commonFiles") return "/usr/share";
  if (name == "startup") return normalised(QDir::currentPath());
  if (name == "system") return "/usr";
  return "";
}

}  // namespace quiltor::standalone
