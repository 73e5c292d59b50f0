#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>

#include "platform/testing/shared_record.h"

namespace quiltor {

SharedBytes::SharedBytes(const std::string& file, std::size_t count) : count_(count) {
  const int descriptor = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  const bool sized = descriptor >= 0 && ftruncate(descriptor, static_cast<off_t>(count)) == 0;
  memory_ = sized ? mmap(nullptr, count, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0) : MAP_FAILED;
  if (descriptor >= 0) close(descriptor);
  if (memory_ == MAP_FAILED) throw std::runtime_error("cannot share " + file);
}

SharedBytes::~SharedBytes() { munmap(memory_, count_); }

}  // namespace quiltor
