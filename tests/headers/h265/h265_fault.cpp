#include <kovran/h265/h265_fault.h>

int main() {
    kovran::h265_fault fault;
    fault.kind = kovran::h265_fault_kind::value;
    return to_string(fault).empty() ? 1 : 0;
}
