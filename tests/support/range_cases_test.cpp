#include "support/range_cases.h"

#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/parameter_set_elements.h"
#include "support/rbsp.h"

namespace kovran {
namespace {
// That the units hold what their cases say: read by the standard's rules, those at a limit whole.

struct reading {
    bool success = false;
    std::vector<test::element> elements;
};

struct host {
    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;

    reading read(h265_nal_unit_type type, const test::bit_writer& bits) {
        test::rbsp input{bits.bytes()};
        if (type == VPS_NUT) {
            h265_nal_vps vps;
            const bool success = vps.parse_standard(input.reader);
            vps_store[vps.vps_video_parameter_set_id] = vps;
            return {success, success ? test::elements_of(vps) : std::vector<test::element>()};
        }
        if (type == SPS_NUT) {
            h265_nal_sps sps;
            const bool success = sps.parse_standard(input.reader, vps_store);
            sps_store[sps.sps_seq_parameter_set_id] = sps;
            return {success, success ? test::elements_of(sps) : std::vector<test::element>()};
        }
        h265_nal_pps pps;
        const bool success = pps.parse_standard(input.reader, sps_store);
        return {success, success ? test::elements_of(pps) : std::vector<test::element>()};
    }
};

bool holds(const reading& unit, const std::string& name, std::int64_t value) {
    return std::any_of(unit.elements.begin(), unit.elements.end(), [&](const auto& element) {
        return element.name == name && element.value == value;
    });
}

// What the records do not keep.
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
                EXPECT_TRUE(stream.read(unit.type, unit.rbsp).success);
            }
            EXPECT_TRUE(each.limit == each.lowest || each.limit == each.highest);
            EXPECT_TRUE(each.past < each.lowest || each.past > each.highest);

            const reading at_limit = stream.read(table.type, each.at_limit);
            EXPECT_TRUE(at_limit.success);
            if (is_kept(each.element)) {
                EXPECT_TRUE(holds(at_limit, each.element, each.limit));
                const reading past_limit = stream.read(table.type, each.past_limit);
                EXPECT_TRUE(!past_limit.success || holds(past_limit, each.element, each.past));
            }
        }
    }
}

}  // namespace
}  // namespace kovran
