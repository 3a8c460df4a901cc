#ifndef KOVRAN_TESTS_SUPPORT_FENCED_MEMORY_H
#define KOVRAN_TESTS_SUPPORT_FENCED_MEMORY_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <stdexcept>

namespace kovran::test {

// One page of memory between two that cannot be touched: what reads or writes a byte before it or
// behind it ends the program, in every build.
class fenced_memory {
public:
    fenced_memory()
        : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
          pages_(mmap(nullptr, 3 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        if (pages_ == MAP_FAILED || mprotect(begin(), page_, PROT_READ | PROT_WRITE) != 0) {
            throw std::runtime_error("no memory with fences");
        }
    }
    fenced_memory(const fenced_memory&) = delete;
    fenced_memory& operator=(const fenced_memory&) = delete;
    ~fenced_memory() { munmap(pages_, 3 * page_); }

    // The first byte behind the one fence.
    [[nodiscard]] unsigned char* begin() const {
        return static_cast<unsigned char*>(pages_) + page_;
    }
    // So many bytes right before the other one, no more than a page.
    [[nodiscard]] unsigned char* last(std::size_t size) const {
        if (size > page_) {
            throw std::length_error("more than a page");
        }
        return begin() + page_ - size;
    }

private:
    std::size_t page_;
    void* pages_;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_FENCED_MEMORY_H
