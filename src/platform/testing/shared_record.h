#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace quiltor {

// So many bytes of a file, in the memory of every process that asks for them. A new file holds zeros. Throws
// std::runtime_error when the system refuses.
class SharedBytes {
 public:
  SharedBytes(const std::string& file, std::size_t count);
  ~SharedBytes();
  SharedBytes(const SharedBytes&) = delete;
  SharedBytes& operator=(const SharedBytes&) = delete;

  [[nodiscard]] void* get() const { return memory_; }

 private:
  void* memory_ = nullptr;
  std::size_t count_;
};

// A record that processes share, of atomic members that begin as zeros.
template <class Record>
class SharedRecord {
 public:
  explicit SharedRecord(const std::string& file) : bytes_(file, sizeof(Record)) {}
  Record* operator->() const { return static_cast<Record*>(bytes_.get()); }
  Record& operator*() const { return *static_cast<Record*>(bytes_.get()); }

 private:
  SharedBytes bytes_;
};

}  // namespace quiltor
