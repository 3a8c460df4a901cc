#include "reading_elements.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>

namespace kovran::test {
namespace {

// In the standard's words; `previous` is the element before it.
std::string standard_name(const std::string& name, const std::string& previous) {
    static const std::map<std::string, std::string> other_names = {
        {"bit_equal_to_one", "payload_bit_equal_to_one"},
        {"bit_equal_to_zero", "payload_bit_equal_to_zero"},
        {"chroma_offset_l0", "delta_chroma_offset_l0"},
        {"chroma_offset_l1", "delta_chroma_offset_l1"},
        {"matrix_coefficients", "matrix_coeffs"},
        {"scaling_list_delta_coeff", "scaling_list_delta_coef"},
    };
    if (name == "extension_data") {
        return previous.substr(0, 3) + "_extension_data_flag";
    }
    const std::string base = name.substr(0, name.find('['));
    const auto found = other_names.find(base);
    return found == other_names.end() ? name : found->second + name.substr(base.size());
}

// Reserved bits that are one element in the standard; there are several reserved_zero_2bits[i].
bool is_reserved(const std::string& name) {
    return name.find("reserved_zero") != std::string::npos &&
           name.rfind("reserved_zero_2bits", 0) != 0;
}

std::string hexadecimal(unsigned int byte) {
    constexpr const char* digits = "0123456789abcdef";
    return {digits[byte / 16], digits[byte % 16]};
}

// Strings have no number: bytes in hexadecimal, and texts.
std::string text_of(const nlohmann::json& value) {
    return value.is_string() ? value.get<std::string>() : value.dump();
}

}  // namespace

std::vector<expected_element> elements_of(const nlohmann::json& unit) {
    constexpr std::size_t header_bits = 16;
    std::vector<expected_element> all;
    std::int64_t reserved = 0;
    std::size_t sub_layer = 0;
    std::size_t end_of_message = 0;
    for (const nlohmann::json& each : unit.at("elements")) {
        std::string name = standard_name(each.at(0), all.empty() ? "" : all.back().name);
        const auto bit = each.at(2).get<std::size_t>() - header_bits;
        const auto width = each.at(3).get<std::size_t>();
        if (name.rfind("sub_layer_level_present_flag", 0) == 0) {
            ++sub_layer;
        } else if (name == "reserved_zero_2bits") {
            name += '[' + std::to_string(sub_layer++) + ']';
        }
        const bool is_framing = name.rfind("last_payload_", 0) == 0;
        const bool is_nested = bit < end_of_message;
        if (is_framing && is_nested) {
            continue;
        }
        if (name == "last_payload_size_byte") {
            const std::size_t bytes_before = (bit - all.back().bit) / 8 - 1;
            end_of_message = bit + width + 8 * (255 * bytes_before + each.at(1).get<std::size_t>());
        }
        if (is_reserved(name) && !all.empty() && all.back().name == name) {
            reserved = reserved << width | each.at(1).get<std::int64_t>();
            all.back().value = std::to_string(reserved);
            all.back().width += width;
        } else {
            reserved = each.at(1).is_number() ? each.at(1).get<std::int64_t>() : 0;
            all.push_back({name, text_of(each.at(1)), bit, width});
        }
    }
    return all;
}

std::vector<expected_element> message_elements_of(const nlohmann::json& unit) {
    constexpr std::size_t header_bits = 16;
    std::vector<expected_element> all;
    for (const nlohmann::json& each : unit.at("elements")) {
        expected_element next = {standard_name(each.at(0), ""), text_of(each.at(1)),
                                 each.at(2).get<std::size_t>() - header_bits, each.at(3)};
        if (next.name.rfind("rbsp_", 0) == 0) {
            break;
        }
        const std::string base = next.name.substr(0, next.name.find('['));
        const bool is_byte = (base == "uuid_iso_iec_11578" || base == "user_data_payload_byte") &&
                             each.at(1).is_number();
        if (is_byte) {
            next.name = base;
            next.value = hexadecimal(each.at(1));
            if (!all.empty() && all.back().name == base) {
                all.back().value += next.value;
                all.back().width += next.width;
                continue;
            }
        }
        all.push_back(next);
    }
    for (expected_element& each : all) {
        if (each.name == "user_data_payload_byte") {
            each.name += "[0.." + std::to_string(each.width / 8 - 1) + ']';
        }
    }
    return all;
}

bool is_left_out(const std::string& name, const std::vector<expected_element>& messages) {
    for (const char* const left_out : {"ff_byte", "user_data_payload_byte"}) {
        const auto is_named = [left_out](const std::string& other) {
            return other.rfind(left_out, 0) == 0;
        };
        if (is_named(name)) {
            return std::none_of(
                messages.begin(), messages.end(),
                [&is_named](const expected_element& each) { return is_named(each.name); });
        }
    }
    return false;
}

void pass_over_extension(std::vector<expected_element>& all, const std::string& flag) {
    const std::size_t index = index_of(all, flag);
    if (index == all.size() || all[index].value == "0") {
        return;
    }
    const std::size_t stop = index_of(all, "rbsp_stop_one_bit", index);
    const std::size_t begin = all[index].bit + 1;
    const expected_element data = {flag.substr(0, 3) + "_extension_data_flag", not_read, begin,
                                   all.at(stop).bit - begin};
    const auto first = all.begin() + static_cast<std::ptrdiff_t>(index) + 1;
    all.insert(all.erase(first, all.begin() + static_cast<std::ptrdiff_t>(stop)), data);
}

void put_slice_extension_into_bytes(std::vector<expected_element>& all) {
    const std::size_t first = index_of(all, "slice_segment_header_extension_length") + 1;
    if (first > all.size() || all.at(first).name == "slice_segment_header_extension_data_byte[0]") {
        return;
    }
    const std::size_t end = index_of(all, "alignment_bit_equal_to_one", first);
    std::vector<expected_element> bytes;
    std::uint64_t bits = 0;
    std::size_t count = 0;
    for (std::size_t i = first; i < end; ++i) {
        const bool is_exp_golomb = all[i].name == "poc_msb_cycle_val";
        for (std::size_t bit = all[i].width; bit-- > 0; ++count) {
            bits = bits << 1 | ((std::stoull(all[i].value) + (is_exp_golomb ? 1 : 0)) >> bit & 1U);
            if (count % 8 == 7) {
                bytes.push_back({"slice_segment_header_extension_data_byte[" +
                                     std::to_string(bytes.size()) + ']',
                                 std::to_string(bits & 0xFF), all[first].bit + count - 7, 8});
            }
        }
    }
    const auto begin = all.begin() + static_cast<std::ptrdiff_t>(first);
    all.insert(all.erase(begin, all.begin() + static_cast<std::ptrdiff_t>(end)), bytes.begin(),
               bytes.end());
}

std::size_t index_of(const std::vector<expected_element>& all, const std::string& name,
                     std::size_t from) {
    const auto found =
        std::find_if(all.begin() + static_cast<std::ptrdiff_t>(from), all.end(),
                     [&](const expected_element& each) { return each.name == name; });
    return static_cast<std::size_t>(found - all.begin());
}

std::size_t first_of_a_chained_prediction(const std::vector<expected_element>& all) {
    const std::size_t end = index_of(all, "long_term_ref_pics_present_flag");
    const std::string flag = "inter_ref_pic_set_prediction_flag";
    bool predicted_before = false;
    for (std::size_t set = index_of(all, flag); set < end; set = index_of(all, flag, set + 1)) {
        const bool predicted = all[set].value != "0";
        const std::size_t second_pair = index_of(all, "used_by_curr_pic_flag[1]", set);
        if (predicted && predicted_before && second_pair < index_of(all, flag, set + 1)) {
            return second_pair;
        }
        predicted_before = predicted;
    }
    return all.size();
}

bool has_chained_sets(const nlohmann::json& units) {
    return std::any_of(units.begin(), units.end(), [](const nlohmann::json& unit) {
        constexpr unsigned int sps = 33;
        if (unit.at("nal_unit_type") != sps || unit.at("nuh_layer_id") != 0) {
            return false;
        }
        const std::vector<expected_element> elements = elements_of(unit);
        return first_of_a_chained_prediction(elements) != elements.size();
    });
}

bool is_behind_list_modification(const std::string& name) {
    static const std::set<std::string> names = {
        "mvd_l1_zero_flag",   "cabac_init_flag",         "collocated_from_l0_flag",
        "collocated_ref_idx", "luma_log2_weight_denom",  "five_minus_max_num_merge_cand",
        "slice_qp_delta",     "num_entry_point_offsets", "alignment_bit_equal_to_one",
    };
    return names.count(name) == 1;
}

bool is_parsed_message(const std::string& payload_type) {
    return payload_type == "0" || payload_type == "1" || payload_type == "129";
}

bool is_sei_framing(const std::string& name) {
    return name.rfind("last_payload_", 0) == 0 || name.rfind("rbsp_", 0) == 0;
}

bool is_payload_bit(const std::string& name) {
    return name.rfind("payload_bit_equal_to_", 0) == 0;
}

bool is_payload_padding(const std::string& name) {
    return is_payload_bit(name) || name == "reserved_payload_extension_data";
}

}  // namespace kovran::test
