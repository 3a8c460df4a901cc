#ifndef KOVRAN_TESTS_SUPPORT_TRACING_HOST_H
#define KOVRAN_TESTS_SUPPORT_TRACING_HOST_H

#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kovran::test {

// What a traced parse_standard() told of one structure.
struct traced_reading {
    bool read = false;
    h265_trace trace;
    h265_fault fault;
    std::size_t first_bit = 0;  // where the structure begins in the RBSP: the payload of a message
    unsigned int payload_type = 0;  // of a message

    // The first element with this name from `from` on, with its indices or without;
    // trace.elements.size() when there is none.
    std::size_t find(const std::string& name, std::size_t from = 0) const;
};

// A host that reads NAL units of the base layer by the standard's rules and keeps the parameter
// sets that could be read. The first SPS is the active one until a unit says otherwise.
class tracing_host {
public:
    // Takes the bytes behind the NAL unit header. Gives one reading, of an SEI unit one for each
    // message that has a record, of a type that has none nothing.
    std::vector<traced_reading> read(h265_nal_unit_type type,
                                     const std::vector<unsigned char>& rbsp);

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;

private:
    traced_reading read_structure(h265_nal_unit_type type, h2645_common_bitreader reader);
    std::vector<traced_reading> read_messages(h265_nal_unit_type type, unsigned char* begin,
                                              unsigned char* end);
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_TRACING_HOST_H
