#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_TRACE_LINES_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_TRACE_LINES_H

#include "elements/element_path.h"
#include "elements/rbsp.h"
#include "elements/trace_sink.h"
#include "output/output.h"

#include <cstddef>
#include <string>

namespace kovran::inspect {

// A line for each syntax element: where its first bit stands in the file as byte.bit (bit 0 is the
// highest), where in the RBSP, its width, path, descriptor and value.
class trace_lines : public trace_sink {
public:
    // `payload` is that of the unit that is walked.
    trace_lines(rbsp& payload, output& lines) : payload_(payload), lines_(lines) {}

    void begin_structure(const h2645_common_element_name& name) override;
    void end_structure() override;
    void read(const shown_element& read_element) override;
    void begin_message(const h265_nal_sei_reader& message) override;
    void end_message() override;

private:
    // All of a line up to the value.
    void begin_line(const std::string& name, const char* descriptor, std::size_t bit,
                    std::size_t width);

    rbsp& payload_;
    output& lines_;
    element_path path_;
    std::string line_;  // keeps its memory
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_TRACE_LINES_H
