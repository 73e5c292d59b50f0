#pragma once

#include <array>
#include <cstring>
#include <type_traits>

namespace quiltor::standalone {

// What stands in the slots that this host does not implement: records the call and answers 516.
int unimplementedSlot();

// A suite's table whose every slot is unimplemented; the suite then sets its own. Tables are pointers and nothing else.
template <class Table>
Table tableOfUnimplementedSlots() {
  static_assert(std::is_trivially_copyable_v<Table> && sizeof(Table) % sizeof(void*) == 0);
  std::array<int (*)(), sizeof(Table) / sizeof(void*)> slots;
  slots.fill(&unimplementedSlot);
  Table table;
  std::memcpy(&table, slots.data(), sizeof(Table));
  return table;
}

}  // namespace quiltor::standalone
