#pragma once

#include <cstdint>
#include <memory>

namespace quiltor {

// Until the end of the scope no file that this process writes grows beyond so many bytes: whoever writes more meets
// what a full disk answers.
class SmallDisk {
 public:
  explicit SmallDisk(int64_t mostBytes);
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

 private:
  struct Limit;
  std::unique_ptr<Limit> limit_;
};

}  // namespace quiltor
