#include <kovran/h265/h265_rules.h>

int main() {
    const kovran::h265_rule* const rule = kovran::h265_find_rule("index_width");
    return rule != nullptr && kovran::h265_find_rule("no rule") == nullptr ? 0 : 1;
}
