#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_ELEMENT_PATH_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_ELEMENT_PATH_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kovran::inspect {

// Where a walk stands: the names of the structures that are open, each followed by a dot.
class element_path {
public:
    void open(std::string_view name) {
        lengths_.push_back(path_.size());
        path_ += name;
        path_ += '.';
    }
    void close() {
        path_.resize(lengths_.back());
        lengths_.pop_back();
    }

    [[nodiscard]] std::string to(const std::string& name) const { return path_ + name; }

private:
    std::vector<std::size_t> lengths_;
    std::string path_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_ELEMENT_PATH_H
