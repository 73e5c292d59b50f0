#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "platform/testing/locked.h"

namespace quiltor {

namespace fs = std::filesystem;

namespace {

// Other permissions until the end of the scope.
class Permissions {
 public:
  Permissions(fs::path path, fs::perms permissions) : path_(std::move(path)), before_(fs::status(path_).permissions()) {
    fs::permissions(path_, permissions);
  }
  ~Permissions() { fs::permissions(path_, before_); }
  Permissions(const Permissions&) = delete;
  Permissions& operator=(const Permissions&) = delete;

 private:
  fs::path path_;
  fs::perms before_;
};

constexpr fs::perms kReadOnly =
    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec;

}  // namespace

struct Locked::Lock {
  Permissions permissions;
};

Locked::Locked(const std::string& path) : lock_(new Lock{{path, fs::perms::none}}) {}
Locked::~Locked() = default;

struct WriteProtected::Protection {
  Permissions permissions;
};

WriteProtected::WriteProtected(const std::string& folder) : protection_(new Protection{{folder, kReadOnly}}) {}
WriteProtected::~WriteProtected() = default;

bool asOrdinaryUser(const std::function<bool()>& work) {
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    const bool ordinary = geteuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0);
    _exit(ordinary && work() ? 0 : 1);
  }
  int status = -1;
  return waitpid(child, &status, 0) == child && status == 0;
}

}  // namespace quiltor
