#include "input/mapped_input.h"

#include "process/bus_error.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace kovran::inspect {
namespace {

// A multiple of any page size: where in a file and in memory mappings begin.
constexpr std::uint64_t alignment = std::uint64_t{64} << 10;

// Null where it fails.
unsigned char* map_bytes(const file_descriptor& file, std::uint64_t offset, std::size_t size) {
    void* const mapping =
        ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), static_cast<off_t>(offset));
    if (mapping == MAP_FAILED) {
        return nullptr;
    }
    ::madvise(mapping, size, MADV_SEQUENTIAL);
    return static_cast<unsigned char*>(mapping);
}

// The place from `first` on that the file stores, or its end; the bytes before it are zeros.
std::uint64_t end_of_hole(const file_descriptor& file, std::uint64_t first, std::uint64_t size) {
    const off_t data = ::lseek(file.number(), static_cast<off_t>(first), SEEK_DATA);
    if (data >= 0) {
        return std::min(static_cast<std::uint64_t>(data), size);
    }
    return errno == ENXIO ? size : first;
}

bool is_not_zero(unsigned char byte) {
    return byte != 0;
}

}  // namespace

bool mapped_input::can_map(const file_descriptor& file, std::uint64_t size) {
    const auto first_piece = static_cast<std::size_t>(std::min<std::uint64_t>(size, sizes{}.piece));
    unsigned char* const mapping = map_bytes(file, 0, first_piece);
    if (mapping == nullptr) {
        return false;
    }
    ::munmap(mapping, first_piece);
    return true;
}

mapped_input::mapped_input(file_descriptor file, std::uint64_t size)
    : mapped_input(std::move(file), size, sizes{}) {}

mapped_input::mapped_input(file_descriptor file, std::uint64_t size, sizes limits)
    : input(std::move(file), size), file_size_(size), limits_(limits) {}

mapped_input::~mapped_input() {
    unmap();
}

bool mapped_input::read_more() {
    require_mapped_bytes();
    if (static_cast<std::uint64_t>(file().status().st_size) < file_size_) {
        throw input_lost();
    }
    const std::uint64_t last = place_of(end());
    if (last == file_size_) {
        return false;
    }
    if (size() >= limits_.largest_window) {
        throw unit_too_large(offset(), limits_.largest_window);
    }
    map(std::min(file_size_, last + limits_.piece));
    return true;
}

void mapped_input::drop(std::size_t count) {
    require_mapped_bytes();
    move_window(begin() + count, end(), offset() + count);
}

std::uint64_t mapped_input::skip_hole() {
    constexpr std::uint64_t left = 2;  // as in a start code
    require_mapped_bytes();
    const std::uint64_t hole = place_of(end());
    const std::uint64_t last = end_of_hole(file(), hole, file_size_);
    if (last <= hole + left || std::any_of(begin(), end(), is_not_zero)) {
        return 0;
    }
    const std::uint64_t skipped = last - left - offset();
    unmap();
    move_window(nullptr, nullptr, offset() + skipped);
    return skipped;
}

// The window from its begin up to `last`.
void mapped_input::map(std::uint64_t last) {
    const std::uint64_t window = offset();
    const std::uint64_t first = window / alignment * alignment;
    const auto size = static_cast<std::size_t>(last - first);
    unmap();
    mapping_ = map_bytes(file(), first, size);
    if (mapping_ == nullptr) {
        throw std::bad_alloc();
    }
    mapping_size_ = size;
    watch_mapping(mapping_, mapping_size_);
    move_window(mapping_ + (window - first), mapping_ + mapping_size_, window);
}

void mapped_input::unmap() {
    if (mapping_ != nullptr) {
        watch_mapping(nullptr, 0);
        ::munmap(mapping_, mapping_size_);
        mapping_ = nullptr;
        move_window(nullptr, nullptr, offset());
    }
}

}  // namespace kovran::inspect
