#ifndef KOVRAN_TOOLS_INSPECT_UNITS_FAULT_LIST_H
#define KOVRAN_TOOLS_INSPECT_UNITS_FAULT_LIST_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kovran::inspect {

// What is wrong with a unit, in words. The first faults are kept, the others are counted: a unit
// can have as many faults as SEI messages.
class fault_list {
public:
    static constexpr std::size_t most_kept = 256;

    void push_back(std::string fault);
    void emplace_back(const char* fault) { push_back(fault); }
    void append(const fault_list& others);
    void clear();

    [[nodiscard]] bool empty() const { return kept_.empty(); }
    [[nodiscard]] std::uint64_t count() const { return kept_.size() + more_; }

    // Those that are kept.
    [[nodiscard]] auto begin() const { return kept_.begin(); }
    [[nodiscard]] auto end() const { return kept_.end(); }
    // How many are not.
    [[nodiscard]] std::uint64_t more() const { return more_; }

    // The kept ones, and a line with the number of the others.
    [[nodiscard]] std::vector<std::string> texts() const;

    [[nodiscard]] bool operator==(const fault_list& other) const {
        return kept_ == other.kept_ && more_ == other.more_;
    }

private:
    std::vector<std::string> kept_;
    std::uint64_t more_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_FAULT_LIST_H
