#include <kovran/h265/h265_trace.h>

int main() {
    kovran::h265_trace trace;
    trace.elements.push_back(kovran::h265_traced_element{});
    trace.structures.push_back(kovran::h265_traced_structure{});
    trace.clear();
    return trace.elements.empty() && trace.structures.empty() ? 0 : 1;
}
