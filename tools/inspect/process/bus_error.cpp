#include "process/bus_error.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

namespace kovran::inspect {
namespace {

// What the signal handler uses.
std::atomic<unsigned char*> watched{nullptr};
std::atomic<std::size_t> watched_size{0};
std::atomic<std::size_t> page_size{1};
std::atomic<bool> lost{false};
static_assert(std::atomic<unsigned char*>::is_always_lock_free);
static_assert(std::atomic<std::size_t>::is_always_lock_free);
static_assert(std::atomic<bool>::is_always_lock_free);

// In place of what is mapped from there on.
bool put_zeros(std::size_t place) {
    constexpr int no_file = -1;
    return ::mmap(watched + place, watched_size - place, PROT_READ,
                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, no_file, 0) != MAP_FAILED;
}

// The signal interrupts nothing but an access to memory, which is tried again afterwards.
extern "C" void handle_bus_error(int number, siginfo_t* what, void*) {
    const int error_before = errno;
    const bool sent_by_a_process = what->si_code <= 0;
    // Of an address below the mapping this is a large number.
    const std::size_t place = reinterpret_cast<std::uintptr_t>(what->si_addr) -
                              reinterpret_cast<std::uintptr_t>(watched.load());
    if (!sent_by_a_process && place < watched_size && put_zeros(place / page_size * page_size)) {
        lost = true;
    } else {
        ::signal(number, SIG_DFL);
        ::raise(number);
    }
    errno = error_before;
}

}  // namespace

void survive_bus_errors() {
    page_size = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    struct sigaction action {};
    action.sa_sigaction = handle_bus_error;
    action.sa_flags = SA_SIGINFO;
    ::sigaction(SIGBUS, &action, nullptr);
}

void watch_mapping(unsigned char* begin, std::size_t size) noexcept {
    watched = begin;
    watched_size = size;
    lost = false;
}

void require_mapped_bytes() {
    if (lost) {
        throw input_lost();
    }
}

failure input_lost() {
    return failure("the input file became shorter, or its disk failed, while it was being read");
}

}  // namespace kovran::inspect
