#ifndef KOVRAN_TESTS_SUPPORT_EXTENSIONS_H
#define KOVRAN_TESTS_SUPPORT_EXTENSIONS_H

#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"

// Extensions of parameter sets, and what fresh records hold after they have been read.
namespace kovran::test {

// From sps_range_extension_flag on, with nothing behind: every extension, every element of each
// once at the least, and seven bits of extension data.
sample<h265_nal_sps> full_sps_extensions();
sample<h265_nal_pps> full_pps_extensions();  // in a PPS with transform_skip_enabled_flag

// The bits of one extension by itself, and its record.
sample<h265_sps_range_extension> sps_range_extension();
sample<h265_sps_3d_extension> sps_3d_extension();
sample<h265_sps_scc_extension> sps_scc_extension();  // of 4:2:0 with 8 bits
sample<h265_pps_range_extension> pps_range_extension();
sample<h265_pps_multilayer_extension> pps_multilayer_extension();  // a table of eight octants
sample<h265_pps_3d_extension> pps_3d_extension();
sample<h265_pps_scc_extension> pps_scc_extension();

bit_writer joined(bit_writer first, const bit_writer& second);

// The smallest parameter sets that take them.
sps_syntax sps_with_extension(const bit_writer& extension);
pps_syntax pps_with_extension(const bit_writer& extension);

// The fields of the extensions of one record, all others of another.
h265_nal_sps with_extensions(h265_nal_sps sps, const h265_nal_sps& extensions);
h265_nal_pps with_extensions(h265_nal_pps pps, const h265_nal_pps& extensions);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_EXTENSIONS_H
