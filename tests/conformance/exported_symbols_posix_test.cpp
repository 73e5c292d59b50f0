#include <elf.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace quiltor {
namespace {

// The names that a shared library offers to others, from its dynamic symbol table.
class SharedLibrary {
 public:
  explicit SharedLibrary(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
    header_ = read<Elf64_Ehdr>(0);
    if (std::memcmp(header_.e_ident, ELFMAG, SELFMAG) != 0) throw std::runtime_error(path + " is not an ELF file");
  }

  std::vector<std::string> definedSymbols() const {
    std::vector<std::string> names;
    for (size_t index = 0; index < header_.e_shnum; ++index) {
      const Elf64_Shdr table = section(index);
      if (table.sh_type != SHT_DYNSYM) continue;
      const Elf64_Shdr strings = section(table.sh_link);
      for (size_t at = 0; at < table.sh_size; at += sizeof(Elf64_Sym)) {
        const auto symbol = read<Elf64_Sym>(table.sh_offset + at);
        const bool local = ELF64_ST_BIND(symbol.st_info) == STB_LOCAL;
        if (symbol.st_shndx != SHN_UNDEF && !local) names.emplace_back(&bytes_.at(strings.sh_offset + symbol.st_name));
      }
    }
    return names;
  }

 private:
  template <class Record>
  Record read(size_t offset) const {
    if (bytes_.size() < offset + sizeof(Record)) throw std::runtime_error("the ELF file is cut short");
    Record record;
    std::memcpy(&record, bytes_.data() + offset, sizeof record);
    return record;
  }
  Elf64_Shdr section(size_t index) const { return read<Elf64_Shdr>(header_.e_shoff + index * header_.e_shentsize); }

  std::vector<char> bytes_;
  Elf64_Ehdr header_{};
};

TEST(Module, ExportsItsEntryPointAndNothingElse) {
  EXPECT_THAT(SharedLibrary(QUILTOR_MODULE_PATH).definedSymbols(), testing::ElementsAre("EntryPointFunc"));
}

}  // namespace
}  // namespace quiltor
