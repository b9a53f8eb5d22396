#pragma once

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <type_traits>
#include <vector>

namespace support {

/// The slot of the virtual operation that `member` points to, counted as interfaces count them: a virtual destructor,
/// the first operation where there is one, takes slot 0 alone. Reads the pointer as the Itanium ABI lays it out on
/// x86-64: one more than the offset in the table of function pointers, in which a destructor takes two places.
template <class Class, class Function>
std::size_t slotOf(Function Class::*member) {
    std::uintptr_t words[2];
    static_assert(sizeof(member) == sizeof(words));
    std::memcpy(words, &member, sizeof(words));
    EXPECT_EQ(words[0] % sizeof(void*), 1U) << "not a virtual operation";
    return (words[0] - 1) / sizeof(void*) - (std::has_virtual_destructor_v<Class> ? 1 : 0);
}

/// The members stand in the slots from `first` on, without a gap.
template <class... Members>
void expectSlotsFrom(std::size_t first, Members... members) {
    const std::vector<std::size_t> slots{slotOf(members)...};
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i], first + i) << "operation " << i << " of the list";
}

}  // namespace support
