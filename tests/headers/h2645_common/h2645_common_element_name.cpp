#include <kovran/h2645_common/h2645_common_element_name.h>

int main() {
    kovran::h2645_common_element_name name;
    name.name = "pic_type";
    return to_string(name) == "pic_type" ? 0 : 1;
}
