#include "annex_b_unit.h"

#include <kovran/h265/h265_nal_writer.h>

#include <cstddef>
#include <vector>

namespace kovran::test {

std::string annex_b_unit(h265_nal_unit_type type, const bit_writer& rbsp) {
    h265_nal header;
    header.nal_unit_type = type;
    header.nuh_temporal_id_plus1 = 1;
    header.valid = true;
    const std::vector<unsigned char>& payload = rbsp.bytes();
    std::vector<unsigned char> unit(h265_nal_writer::recommended_output_size(payload.size()));
    h265_nal_writer writer(unit.data(), unit.data(), unit.data() + unit.size(), nalfmt_annex_b);
    const std::size_t size =
        writer.block_encode(payload.data(), payload.size(), header, /*zero_bytes=*/1);
    return {unit.begin(), unit.begin() + static_cast<std::ptrdiff_t>(size)};
}

}  // namespace kovran::test
