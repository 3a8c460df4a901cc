#include "support/allocation_failure.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace kovran::test {
namespace {

std::size_t allocation_calls = 0;
std::size_t bytes_asked_for = 0;
std::size_t blocks = 0;
std::size_t allocations_until_failure = 0;  // 0: no failure is due

void* allocate(std::size_t size) noexcept {
    ++allocation_calls;
    bytes_asked_for += size;
    if (allocations_until_failure > 0 && --allocations_until_failure == 0) {
        return nullptr;
    }
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block != nullptr) {
        ++blocks;
    }
    return block;
}

void* allocate_or_throw(std::size_t size) {
    void* const block = allocate(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void release(void* block) noexcept {
    if (block != nullptr) {
        --blocks;
        std::free(block);
    }
}

}  // namespace

allocation_count::allocation_count()
    : allocations_before_(allocation_calls),
      bytes_before_(bytes_asked_for),
      blocks_before_(blocks) {}

std::size_t allocation_count::allocations() const {
    return allocation_calls - allocations_before_;
}

std::size_t allocation_count::bytes() const {
    return bytes_asked_for - bytes_before_;
}

bool allocation_count::all_freed() const {
    return blocks == blocks_before_;
}

allocation_failure::allocation_failure(std::size_t n) {
    allocations_until_failure = n;
}

allocation_failure::~allocation_failure() {
    allocations_until_failure = 0;
}

bool allocation_failure::happened() const {
    return allocations_until_failure == 0;
}

}  // namespace kovran::test

void* operator new(std::size_t size) {
    return kovran::test::allocate_or_throw(size);
}
void* operator new[](std::size_t size) {
    return kovran::test::allocate_or_throw(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return kovran::test::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return kovran::test::allocate(size);
}
void operator delete(void* block) noexcept {
    kovran::test::release(block);
}
void operator delete[](void* block) noexcept {
    kovran::test::release(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    kovran::test::release(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
    kovran::test::release(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    kovran::test::release(block);
}
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    kovran::test::release(block);
}
