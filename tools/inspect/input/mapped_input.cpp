#include "input/mapped_input.h"

#include <algorithm>
#include <utility>

#include <sys/mman.h>

namespace kovran::inspect {
namespace {

// A multiple of any page size.
constexpr std::size_t step = std::size_t{8} << 20;

}  // namespace

void* map_file(const file_descriptor& file, std::size_t size) {
    void* const mapping = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
    if (mapping == MAP_FAILED) {
        return nullptr;
    }
    ::madvise(mapping, size, MADV_SEQUENTIAL);
    return mapping;
}

mapped_input::mapped_input(file_descriptor file, void* mapping, std::size_t size)
    : input(std::move(file), size), mapping_(static_cast<unsigned char*>(mapping)), size_(size) {
    move_window(mapping_, mapping_, 0);
}

mapped_input::~mapped_input() {
    ::munmap(mapping_, size_);
}

bool mapped_input::read_more() {
    const auto left = static_cast<std::size_t>(mapping_ + size_ - end());
    move_window(begin(), end() + std::min(left, step), offset());
    return left != 0;
}

void mapped_input::drop(std::size_t count) {
    move_window(begin() + count, end(), offset() + count);
    const auto left_behind = static_cast<std::size_t>(begin() - mapping_) / step * step;
    if (left_behind > given_back_) {
        ::madvise(mapping_ + given_back_, left_behind - given_back_, MADV_DONTNEED);
        given_back_ = left_behind;
    }
}

}  // namespace kovran::inspect
