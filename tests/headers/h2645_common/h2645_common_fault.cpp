#include <kovran/h2645_common/h2645_common_fault.h>

int main() {
    const kovran::h2645_common_fault fault;
    return fault.kind == kovran::h2645_common_fault_kind::none && to_string(fault) == "no fault"
               ? 0
               : 1;
}
