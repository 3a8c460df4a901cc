#include "support/range_cases.h"

#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/parameter_set_elements.h"
#include "support/rbsp.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {
// That the units hold what their cases say: read by the standard's rules, those at a limit whole.

using elements = std::vector<test::element>;

// What a unit was read as; nothing when it could not be read.
using reading = std::optional<elements>;

// Numbers by the name of their field and their indices in it, those of the records in it as well.
template <class Value>
void add_fields(elements& all, const std::string& name, const Value& value) {
    if constexpr (std::is_arithmetic_v<Value>) {
        all.push_back({name, static_cast<std::int64_t>(value)});
    } else if constexpr (test::is_record<Value>::value) {
        test::for_each_field(
            value, [&](const char* inner, const auto& field) { add_fields(all, inner, field); });
    } else {
        for (std::size_t i = 0; i < value.size(); ++i) {
            const typename Value::value_type entry = value[i];
            add_fields(all, name + "[" + std::to_string(i) + "]", entry);
        }
    }
}

template <class Record>
elements fields_of(const Record& record) {
    elements all;
    add_fields(all, "", record);
    return all;
}

// With the names that only elements have, before those that are fields as well.
template <class ParameterSet>
elements all_of(const ParameterSet& parameter_set) {
    elements all = test::elements_of(parameter_set);
    add_fields(all, "", parameter_set);
    return all;
}

// A host that has the parameter sets of a table.
class host {
public:
    reading read(h265_nal_unit_type type, const test::bit_writer& bits) {
        test::rbsp input{bits.bytes()};
        switch (type) {
            case VPS_NUT: {
                h265_nal_vps vps;
                const bool read = vps.parse_standard(input.reader);
                vps_store_[vps.vps_video_parameter_set_id] = vps;
                return read ? reading(test::elements_of(vps)) : std::nullopt;
            }
            case SPS_NUT: {
                h265_nal_sps sps;
                const bool read = sps.parse_standard(input.reader, vps_store_);
                sps_store_[sps.sps_seq_parameter_set_id] = sps;
                return read ? reading(all_of(sps)) : std::nullopt;
            }
            case PPS_NUT: {
                h265_nal_pps pps;
                const bool read = pps.parse_standard(input.reader, sps_store_);
                pps_store_[pps.pps_pic_parameter_set_id] = pps;
                return read ? reading(all_of(pps)) : std::nullopt;
            }
            case AUD_NUT: {
                h265_nal_aud aud;
                const bool read = aud.parse(input.reader);
                return read ? reading({{"pic_type", aud.pic_type}}) : std::nullopt;
            }
            case PREFIX_SEI_NUT:
                return read_message(bits);
            default: {
                h265_slice_segment_header slice;
                const bool read =
                    slice.parse_standard(input.reader, pps_store_, sps_store_, vps_store_, type);
                return read ? reading(fields_of(slice)) : std::nullopt;
            }
        }
    }

private:
    reading read_message(const test::bit_writer& bits) {
        const test::exact_bytes unit(bits.bytes());
        h265_nal_sei_reader messages(unit.begin(), unit.end(), PREFIX_SEI_NUT);
        EXPECT_TRUE(messages.next_message());
        EXPECT_FALSE(messages.truncated);
        h2645_common_bitreader reader(messages.payload_begin, messages.payload_end);
        sps_store_.active_id = 0;
        switch (messages.payload_type) {
            case h265_nal_sei_payload_type_prefix_buffering_period: {
                h265_nal_sei_buffering_period period;
                const bool read = period.parse_standard(reader, sps_store_);
                return read ? reading(fields_of(period)) : std::nullopt;
            }
            case h265_nal_sei_payload_type_prefix_pic_timing: {
                h265_nal_sei_pic_timing timing;
                const bool read = timing.parse_standard(reader, sps_store_);
                return read ? reading(fields_of(timing)) : std::nullopt;
            }
            default: {
                h265_nal_sei_active_parameter_sets sets;
                const bool read = sets.parse_standard(reader, vps_store_);
                return read ? reading(fields_of(sets)) : std::nullopt;
            }
        }
    }

    h2645_common_base_store<h265_nal_vps> vps_store_;
    h2645_common_base_store<h265_nal_sps> sps_store_;
    h2645_common_base_store<h265_nal_pps> pps_store_;
};

bool holds(const reading& unit, const std::string& name, std::int64_t value) {
    return std::any_of(unit->begin(), unit->end(), [&](const test::element& each) {
        return each.name == name && each.value == value;
    });
}

// Records have no field for it.
bool is_kept(const std::string& name) {
    return name != "scaling_list_delta_coef";
}

TEST(RangeCases, AreUnitsWithTheValuesThatTheySay) {
    for (const test::range_table& table : test::range_tables()) {
        SCOPED_TRACE(table.structure);
        EXPECT_FALSE(table.cases.empty());
        for (const test::range_case& each : table.cases) {
            SCOPED_TRACE(each.element + ", limit " + std::to_string(each.limit));
            host stream;
            for (const test::range_unit& unit : table.parameter_sets) {
                ASSERT_TRUE(stream.read(unit.type, unit.rbsp));
            }
            EXPECT_TRUE(each.limit == each.lowest || each.limit == each.highest);
            EXPECT_TRUE(each.past < each.lowest || each.past > each.highest);

            const reading at_limit = stream.read(table.type, each.at_limit);
            ASSERT_TRUE(at_limit);
            EXPECT_TRUE(!is_kept(each.element) || holds(at_limit, each.element, each.limit));
            const reading past_limit = stream.read(table.type, each.past_limit);
            if (past_limit) {
                EXPECT_TRUE(!is_kept(each.element) || holds(past_limit, each.element, each.past));
            }
        }
    }
}

}  // namespace
}  // namespace kovran
