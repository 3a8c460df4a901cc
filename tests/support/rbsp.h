#ifndef KOVRAN_TESTS_SUPPORT_RBSP_H
#define KOVRAN_TESTS_SUPPORT_RBSP_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace kovran::test {

// Bytes in a buffer that ends where they end, so that the address sanitizer sees an access to one
// byte too many. They start `misalignment` bytes after a multiple of 64.
class exact_bytes {
public:
    exact_bytes(const unsigned char* bytes, std::size_t size, std::size_t misalignment = 0)
        : memory_(static_cast<unsigned char*>(::operator new[](misalignment + size, alignment))),
          begin_(memory_.get() + misalignment),
          size_(size) {
        std::copy_n(bytes, size, begin_);
    }
    exact_bytes(std::initializer_list<unsigned char> bytes)
        : exact_bytes(bytes.begin(), bytes.size()) {}
    explicit exact_bytes(const std::vector<unsigned char>& bytes, std::size_t misalignment = 0)
        : exact_bytes(bytes.data(), bytes.size(), misalignment) {}

    unsigned char* begin() const { return begin_; }
    unsigned char* end() const { return begin_ + size_; }
    unsigned char* at(std::size_t offset) const { return begin_ + offset; }
    std::size_t size() const { return size_; }

    std::vector<unsigned char> first(std::size_t count) const { return {begin_, begin_ + count}; }

private:
    static constexpr std::align_val_t alignment{64};

    struct release {
        void operator()(unsigned char* memory) const { ::operator delete[](memory, alignment); }
    };

    std::unique_ptr<unsigned char, release> memory_;
    unsigned char* begin_;
    std::size_t size_;
};

// Bytes and a reader over them: `test::rbsp input{0b010'1'0000};`.
class rbsp {
    exact_bytes bytes_;  // before `reader`, which points into it

public:
    rbsp() : rbsp(exact_bytes(nullptr, 0)) {}
    rbsp(std::initializer_list<unsigned char> bytes) : rbsp(exact_bytes(bytes)) {}
    explicit rbsp(const std::vector<unsigned char>& bytes) : rbsp(exact_bytes(bytes)) {}
    explicit rbsp(exact_bytes&& bytes)
        : bytes_(std::move(bytes)), reader(bytes_.begin(), bytes_.end()) {}

    h2645_common_bitreader reader;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_RBSP_H
