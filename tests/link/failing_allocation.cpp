// SPDX-License-Identifier: MIT

#include "tests/link/failing_allocation.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

std::size_t smallest_failing_size = none;
int failed_count = 0;

void* allocate(std::size_t size) {
    if (size >= smallest_failing_size) {
        failed_count += 1;
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

} // namespace

Failing_Allocation::Failing_Allocation(std::size_t smallest_failing) {
    failed_count = 0;
    smallest_failing_size = smallest_failing;
}

Failing_Allocation::~Failing_Allocation() { smallest_failing_size = none; }

int Failing_Allocation::failed() const { return failed_count; }

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
