#include <kovran/h265/h265_nal_sei_pic_timing.h>

#include "h2645_common/reading.h"
#include "h2645_common/store_lookup.h"
#include "h265/h265_nal_sei_pic_timing.syntax.h"
#include "h265/reading_rules.h"

#include <iterator>

namespace kovran {

bool h265_nal_sei_pic_timing::parse(h2645_common_bitreader& reader, const h265_nal_sps& sps) {
    reading<own_rules> walk(reader);
    return pic_timing(walk, *this, sps);
}

bool h265_nal_sei_pic_timing::parse_standard(h2645_common_bitreader& reader,
                                             const h265_nal_sps& sps) {
    *this = {};
    reading<standard_rules> walk(reader);
    return pic_timing(walk, *this, sps);
}

bool h265_nal_sei_pic_timing::parse(h2645_common_bitreader& reader,
                                    const h2645_common_base_store<h265_nal_sps>& store) {
    const h265_nal_sps* const sps =
        store.active_id != store.no_id ? find_entry(store, store.active_id) : nullptr;
    if (sps == nullptr) {
        valid = false;
        return false;
    }
    return parse(reader, *sps);
}

bool h265_nal_sei_pic_timing::parse_standard(h2645_common_bitreader& reader,
                                             const h2645_common_base_store<h265_nal_sps>& store) {
    const h265_nal_sps* const sps =
        store.active_id != store.no_id ? find_entry(store, store.active_id) : nullptr;
    if (sps == nullptr) {
        *this = {};
        return false;
    }
    return parse_standard(reader, *sps);
}

const char* h265_nal_sei_pic_timing::pic_struct_to_str() const {
    static constexpr const char* names[] = {
        "Progressive frame",
        "Top field",
        "Bottom field",
        "Top field, bottom field, in that order",
        "Bottom field, top field, in that order",
        "Top field, bottom field, top field repeated, in that order",
        "Bottom field, top field, bottom field repeated, in that order",
        "Frame doubling",
        "Frame tripling",
        "Top field paired with previous bottom field in output order",
        "Bottom field paired with previous top field in output order",
        "Top field paired with next bottom field in output order",
        "Bottom field paired with next top field in output order",
    };
    return pic_struct < std::size(names) ? names[pic_struct] : "?";
}

const char* h265_nal_sei_pic_timing::source_scan_type_to_str() const {
    static constexpr const char* names[] = {"interlaced", "progressive", "unknown"};
    return source_scan_type < std::size(names) ? names[source_scan_type] : "?";
}

}  // namespace kovran
