#ifndef KOVRAN_TESTS_SUPPORT_ALLOCATION_FAILURE_H
#define KOVRAN_TESTS_SUPPORT_ALLOCATION_FAILURE_H

#include <cstddef>

// The operator new of the test program, which the shared object calls as well, counts, and fails
// when it is told to. Over-aligned memory is left alone.
namespace kovran::test {

// Counts from its construction on.
class allocation_count {
public:
    allocation_count();

    // Calls of operator new, those that failed included.
    std::size_t allocations() const;

    // What they asked for in all; what was freed meanwhile is not taken off.
    std::size_t bytes() const;

    // Whether there are as many blocks as at the construction.
    bool all_freed() const;

private:
    std::size_t allocations_before_;
    std::size_t bytes_before_;
    std::size_t blocks_before_;
};

// While it lives, the n-th allocation after its construction fails; n counts from 1.
class allocation_failure {
public:
    explicit allocation_failure(std::size_t n);
    ~allocation_failure();
    allocation_failure(const allocation_failure&) = delete;
    allocation_failure& operator=(const allocation_failure&) = delete;

    // False while there have been fewer than n allocations.
    bool happened() const;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_ALLOCATION_FAILURE_H
