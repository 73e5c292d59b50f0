#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace quiltor {

// For tests: what a module's file says, read from its bytes without loading it.
class WindowsModuleFile {
 public:
  explicit WindowsModuleFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
    const auto dos = read<IMAGE_DOS_HEADER>(0);
    headers_ = read<IMAGE_NT_HEADERS64>(static_cast<size_t>(dos.e_lfanew));
    if (headers_.Signature != IMAGE_NT_SIGNATURE) throw std::runtime_error(path + " is not a Windows module");
    const size_t sections = static_cast<size_t>(dos.e_lfanew) + sizeof headers_;
    for (size_t i = 0; i < headers_.FileHeader.NumberOfSections; ++i) {
      sections_.push_back(read<IMAGE_SECTION_HEADER>(sections + i * sizeof(IMAGE_SECTION_HEADER)));
    }
  }

  std::vector<std::string> exports() const {
    const auto table = read<IMAGE_EXPORT_DIRECTORY>(placeOf(directory(IMAGE_DIRECTORY_ENTRY_EXPORT)));
    std::vector<std::string> names;
    for (DWORD i = 0; i < table.NumberOfNames; ++i)
      names.push_back(text(read<DWORD>(placeOf(table.AddressOfNames) + 4 * i)));
    return names;
  }

  std::vector<std::string> imports() const {
    std::vector<std::string> names;
    for (size_t at = placeOf(directory(IMAGE_DIRECTORY_ENTRY_IMPORT));; at += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
      const auto library = read<IMAGE_IMPORT_DESCRIPTOR>(at);
      if (library.Name == 0) return names;
      names.push_back(text(library.Name));
    }
  }

  // The resource of a type with a name and a number, as the linker stored them.
  std::string resource(const std::u16string& type, WORD number) const {
    const size_t root = placeOf(directory(IMAGE_DIRECTORY_ENTRY_RESOURCE));
    size_t at = folderIn(root, root, [&](const IMAGE_RESOURCE_DIRECTORY_ENTRY& entry) {
      return entry.NameIsString && resourceName(root + entry.NameOffset) == type;
    });
    at = folderIn(root, at, [&](const auto& entry) { return !entry.NameIsString && entry.Id == number; });
    const auto language = read<IMAGE_RESOURCE_DIRECTORY_ENTRY>(at + sizeof(IMAGE_RESOURCE_DIRECTORY));
    const auto data = read<IMAGE_RESOURCE_DATA_ENTRY>(root + language.OffsetToData);
    return std::string(bytes_.data() + placeOf(data.OffsetToData), data.Size);
  }

 private:
  template <class Record>
  Record read(size_t offset) const {
    if (bytes_.size() < offset + sizeof(Record)) throw std::runtime_error("the module's file is cut short");
    Record record;
    std::memcpy(&record, bytes_.data() + offset, sizeof record);
    return record;
  }
  DWORD directory(size_t index) const { return headers_.OptionalHeader.DataDirectory[index].VirtualAddress; }
  // The place in the file of what lies there in memory.
  size_t placeOf(DWORD address) const {
    for (const IMAGE_SECTION_HEADER& section : sections_) {
      if (address >= section.VirtualAddress && address < section.VirtualAddress + section.SizeOfRawData) {
        return address - section.VirtualAddress + section.PointerToRawData;
      }
    }
    throw std::runtime_error("an address of the module lies in none of its sections");
  }
  std::string text(DWORD address) const { return bytes_.data() + placeOf(address); }

  std::u16string resourceName(size_t at) const {
    std::u16string name(read<WORD>(at), u'\0');
    std::memcpy(name.data(), bytes_.data() + at + 2, 2 * name.size());
    return name;
  }
  template <class Wanted>
  size_t folderIn(size_t root, size_t folder, Wanted wanted) const {
    const auto head = read<IMAGE_RESOURCE_DIRECTORY>(folder);
    for (size_t i = 0; i < size_t{head.NumberOfNamedEntries} + head.NumberOfIdEntries; ++i) {
      const auto entry =
          read<IMAGE_RESOURCE_DIRECTORY_ENTRY>(folder + sizeof head + i * sizeof(IMAGE_RESOURCE_DIRECTORY_ENTRY));
      if (wanted(entry)) return root + entry.OffsetToDirectory;
    }
    throw std::runtime_error("the module has no such resource");
  }

  std::vector<char> bytes_;
  IMAGE_NT_HEADERS64 headers_{};
  std::vector<IMAGE_SECTION_HEADER> sections_;
};

// For tests: the properties of the resource by which a host finds an effect, in their order.
struct EffectResource {
  std::vector<std::string> keys;
  std::map<std::string, std::string> values;

  explicit EffectResource(const std::string& bytes) {
    const auto word = [&](size_t at) {
      uint32_t value;
      if (at + 4 > bytes.size()) throw std::runtime_error("the resource is cut short");
      std::memcpy(&value, bytes.data() + at, 4);
      return value;
    };
    if (bytes.size() < 10 || bytes[0] != 1 || bytes[1] != 0 || word(2) != 0) throw std::runtime_error("wrong header");
    size_t at = 10;
    for (uint32_t left = word(6); left > 0; --left) {
      if (bytes.compare(at, 4, "MIB8") != 0 || word(at + 8) != 0) throw std::runtime_error("a property is misplaced");
      const std::string key(bytes.rend() - static_cast<std::ptrdiff_t>(at) - 8,
                            bytes.rend() - static_cast<std::ptrdiff_t>(at) - 4);
      const uint32_t length = word(at + 12);
      if (length % 4 != 0 || at + 16 + length > bytes.size()) throw std::runtime_error("wrong length of " + key);
      keys.push_back(key);
      values[key] = bytes.substr(at + 16, length);
      at += 16 + length;
    }
    if (at != bytes.size()) throw std::runtime_error("something follows the last property");
  }

  uint32_t number(const std::string& key) const {
    uint32_t value;
    if (values.at(key).size() != 4) throw std::runtime_error(key + " is no number");
    std::memcpy(&value, values.at(key).data(), 4);
    return value;
  }
  std::string countedText(const std::string& key) const {
    const std::string& value = values.at(key);
    return value.substr(1, static_cast<unsigned char>(value.at(0)));
  }
};

}  // namespace quiltor
