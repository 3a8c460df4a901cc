#include <kovran/h2645_common/h2645_common_element_name.h>

#include <algorithm>

namespace kovran {

std::string to_string(const h2645_common_element_name& name) {
    std::string text = name.prefix;
    text += name.name;
    const unsigned int indices = std::min(name.index_count, name.most_indices);
    for (unsigned int i = 0; i < indices; ++i) {
        text += '[';
        text += std::to_string(name.indices[i]);
        text += ']';
    }
    if (name.run != 0) {
        text += "[0..";
        text += std::to_string(name.run - 1);
        text += ']';
    }
    return text;
}

}  // namespace kovran
