#pragma once

#include <functional>
#include <memory>
#include <string>

namespace quiltor {

// Until the end of the scope an ordinary user cannot read a file or list a folder. What reads it runs in
// asOrdinaryUser().
class Locked {
 public:
  explicit Locked(const std::string& path);
  ~Locked();
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  struct Lock;
  std::unique_ptr<Lock> lock_;
};

// Until the end of the scope an ordinary user can make nothing new below a folder. What tries runs in asOrdinaryUser().
class WriteProtected {
 public:
  explicit WriteProtected(const std::string& folder);
  ~WriteProtected();
  WriteProtected(const WriteProtected&) = delete;
  WriteProtected& operator=(const WriteProtected&) = delete;

 private:
  struct Protection;
  std::unique_ptr<Protection> protection_;
};

// Does the work as a user who is no administrator; where that takes another process, in one that is over when this
// returns. What the work gives, or false when it could not be done.
[[nodiscard]] bool asOrdinaryUser(const std::function<bool()>& work);

}  // namespace quiltor
