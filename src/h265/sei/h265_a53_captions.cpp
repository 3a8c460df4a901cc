#include <kovran/h265/sei/h265_a53_captions.h>

#include "h2645_common/resize.h"
#include "h265/sei/t35_application_data.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

bool h265_a53_captions::parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    start_all_afresh(process_em_data_flag, process_cc_data_flag, additional_data_flag, cc_count,
                     em_data, cc_data, valid);
    auto reader = t35_application_data(user_data, h265_t35_kind::a53_captions);
    if (!reader) {
        return false;
    }
    process_em_data_flag = reader->get<bool>(1);
    process_cc_data_flag = reader->get<bool>(1);
    additional_data_flag = reader->get<bool>(1);
    cc_count = reader->get<unsigned char>(5);
    em_data = reader->get<unsigned char>(8);
    constexpr std::size_t cc_bits = 24;
    if (!t35_data_holds(*reader, cc_count * cc_bits) || !try_resize(cc_count, cc_data)) {
        return false;
    }
    for (cc_t& cc : cc_data) {
        reader->skip(5);  // marker_bits
        cc.cc_valid = reader->get<bool>(1);
        cc.cc_type = reader->get<unsigned char>(2);
        cc.cc_data_1 = reader->get<unsigned char>(8);
        cc.cc_data_2 = reader->get<unsigned char>(8);
    }
    valid = true;
    return true;
}

}  // namespace kovran
