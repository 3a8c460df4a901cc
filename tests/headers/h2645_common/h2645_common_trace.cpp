#include <kovran/h2645_common/h2645_common_trace.h>

int main() {
    kovran::h2645_common_trace trace;
    trace.structures.resize(1);
    trace.elements.resize(1);
    trace.elements[0].structure = 0;
    trace.elements[0].name = "pic_type";
    return path_of(trace, trace.elements[0]) == path_of(trace, trace.structures[0]) + "." +
                                                    to_string(name_of(trace, trace.elements[0]))
               ? 0
               : 1;
}
