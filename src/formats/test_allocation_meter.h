#pragma once

#include <cstdint>

namespace quiltor {

// For tests: the most memory that operator new had given out at one moment since the meter was made, beyond what was
// out then. One meter at a time.
class AllocationMeter {
 public:
  AllocationMeter();
  int64_t peak() const;

 private:
  int64_t before_;
};

}  // namespace quiltor
