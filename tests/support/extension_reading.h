#ifndef KOVRAN_TESTS_SUPPORT_EXTENSION_READING_H
#define KOVRAN_TESTS_SUPPORT_EXTENSION_READING_H

#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/extensions.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

// Parameter sets with extensions, read by the standard's rules, and what tests expect of them.
namespace kovran::test {

// What a parameter set calls what both have.
template <class Record>
struct extended_set;

template <>
struct extended_set<h265_nal_sps> {
    using store = h2645_common_base_store<h265_nal_vps>;
    using syntax = sps_syntax;
    static constexpr auto store_with = vps_store_with;
    static constexpr auto with_extension = sps_with_extension;
    static constexpr auto full_extensions = full_sps_extensions;
    static constexpr auto extension_flag = &h265_nal_sps::sps_extension_flag;
    static constexpr auto range_extension_flag = &h265_nal_sps::sps_range_extension_flag;
    static constexpr auto range_extension = &h265_nal_sps::sps_range_extension;
    static constexpr auto extension_4bits = &h265_nal_sps::sps_extension_4bits;
    static constexpr auto extension_data_flag = &h265_nal_sps::sps_extension_data_flag;
    static constexpr auto range_extension_sample = sps_range_extension;
    static constexpr const char* prefix = "sps_";
    static constexpr const char* last_of_range_extension = "cabac_bypass_alignment_enabled_flag";
};

template <>
struct extended_set<h265_nal_pps> {
    using store = h2645_common_base_store<h265_nal_sps>;
    using syntax = pps_syntax;
    static constexpr auto store_with = sps_store_with;
    static constexpr auto with_extension = pps_with_extension;
    static constexpr auto full_extensions = full_pps_extensions;
    static constexpr auto extension_flag = &h265_nal_pps::pps_extension_present_flag;
    static constexpr auto range_extension_flag = &h265_nal_pps::pps_range_extension_flag;
    static constexpr auto range_extension = &h265_nal_pps::pps_range_extension;
    static constexpr auto extension_4bits = &h265_nal_pps::pps_extension_4bits;
    static constexpr auto extension_data_flag = &h265_nal_pps::pps_extension_data_flag;
    static constexpr auto range_extension_sample = pps_range_extension;
    static constexpr const char* prefix = "pps_";
    static constexpr const char* last_of_range_extension = "log2_sao_offset_scale_chroma";
};

template <class Record>
struct reading {
    bool read = false;
    Record record;
    h265_fault fault;
    h265_trace trace;
    std::size_t bits = 0;
};

// Into a record that may have held something else, with and without a trace and a fault: all are
// the same. There is no parameter set that it refers to.
template <class Record>
reading<Record> read_into(const Record& used, const std::vector<unsigned char>& bytes) {
    typename extended_set<Record>::store store;
    reading<Record> result;
    result.record = used;
    rbsp input{bytes};
    result.read = result.record.parse_standard(input.reader, store, result.trace, &result.fault);
    result.bits = input.reader.bit_position();

    Record untraced = used;
    rbsp other_input{bytes};
    EXPECT_EQ(untraced.parse_standard(other_input.reader, store), result.read);
    EXPECT_EQ(other_input.reader.bit_position(), result.bits);
    EXPECT_TRUE(same_fields(untraced, result.record));

    Record without_fault = used;
    h265_trace trace;
    rbsp third_input{bytes};
    EXPECT_EQ(without_fault.parse_standard(third_input.reader, store, trace), result.read);
    EXPECT_EQ(trace.elements.size(), result.trace.elements.size());
    EXPECT_EQ(trace.structures.size(), result.trace.structures.size());
    EXPECT_TRUE(same_fields(without_fault, result.record));
    return result;
}

template <class Record>
reading<Record> read_set(const typename extended_set<Record>::syntax& syntax) {
    return read_into<Record>({}, syntax.rbsp().bytes());
}

// `extension` from the flags of the extensions on, up to the trailing bits.
template <class Record>
reading<Record> read_extension(const bit_writer& extension) {
    return read_set<Record>(extended_set<Record>::with_extension(extension));
}

// The smallest parameter set that takes extensions, with none.
template <class Record>
typename extended_set<Record>::syntax without_extension() {
    auto syntax = extended_set<Record>::with_extension({});
    syntax.extension = bit_writer().u<1>(0);
    return syntax;
}

// The same, whose extension flag is set, with the extensions of another.
template <class Record>
Record smallest_with(const Record& extensions) {
    Record record = read_set<Record>(without_extension<Record>()).record;
    record.*extended_set<Record>::extension_flag = true;
    return with_extensions(record, extensions);
}

// Where the flags of the extensions begin, in bits.
template <class Record>
std::size_t first_bit_of_extension() {
    return without_extension<Record>().payload().size();
}

template <class Record>
void expect_read(const bit_writer& extension, const Record& extensions) {
    const reading<Record> result = read_extension<Record>(extension);
    EXPECT_TRUE(result.read);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none) << to_string(result.fault);
    EXPECT_TRUE(same_fields(result.record, smallest_with(extensions)));
    EXPECT_EQ(result.bits, extended_set<Record>::with_extension(extension).rbsp().size());
}

// Everything from the flags on is extension data, and told as such.
template <class Record>
void expect_only_data(const reading<Record>& result, const std::vector<bool>& data) {
    using set = extended_set<Record>;
    Record kept;
    kept.*set::extension_data_flag = data;
    EXPECT_TRUE(result.read);
    EXPECT_TRUE(same_fields(result.record, smallest_with(kept)));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::unknown_extension);
    EXPECT_EQ(to_string(result.fault.element), std::string(set::prefix) + "extension_present_flag");
    EXPECT_EQ(result.fault.structure_count, 0U);
    EXPECT_EQ(result.fault.first_bit, first_bit_of_extension<Record>() - 1);
}

template <class Record>
void expect_kept(const bit_writer& extension) {
    const reading<Record> result = read_extension<Record>(extension);
    expect_only_data(result, flags_of(extension));
    EXPECT_EQ(result.bits, extended_set<Record>::with_extension(extension).rbsp().size());
}

// The elements that begin at a bit or behind it, up to the trailing bits, with their values.
template <class Record>
std::vector<std::string> elements_from(const reading<Record>& result, std::size_t first_bit) {
    std::vector<std::string> all;
    for (const h265_traced_element& element : result.trace.elements) {
        if (element.first_bit >= first_bit && *element.descriptor != 'f') {
            all.push_back(path_of(result.trace, element) + " " + std::to_string(element.value));
        }
    }
    return all;
}

// What a record shows does not depend on what it held before.
template <class Record>
void expect_nothing_stale(const Record& used,
                          const std::vector<typename extended_set<Record>::syntax>& all) {
    for (std::size_t i = 0; i < all.size(); ++i) {
        SCOPED_TRACE(i);
        const auto bytes = all[i].rbsp().bytes();
        EXPECT_TRUE(same_fields(read_into(used, bytes).record, read_into(Record(), bytes).record));
    }
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_EXTENSION_READING_H
