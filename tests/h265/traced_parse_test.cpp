// Reading with a list, by either set of rules, is reading: the record, the result and the bits
// consumed are those of the same call without one.
#include <kovran/kovran.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/range_cases.h"
#include "support/rbsp.h"
#include "support/rbsp_of_unit.h"
#include "support/record_fields.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/stream_reading.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

h2645_common_bitreader reader_of(const bytes& rbsp) {
    return {rbsp.data(), rbsp.data() + rbsp.size()};
}

template <class Record>
struct outcome {
    Record record;
    bool read = false;
    std::size_t consumed = 0;

    template <class... Arguments>
    outcome(const bytes& rbsp, bool standard, Arguments&&... arguments) {
        h2645_common_bitreader reader = reader_of(rbsp);
        read = standard ? record.parse_standard(reader, arguments...)
                        : record.parse(reader, arguments...);
        consumed = reader.bit_position();
    }
};

template <class Record, class... Context>
void expect_same(const bytes& rbsp, Context&&... context) {
    for (const bool standard : {false, true}) {
        SCOPED_TRACE(standard ? "standard" : "own");
        h265_trace trace;
        h265_fault fault;
        const outcome<Record> plain(rbsp, standard, context...);
        const outcome<Record> listed(rbsp, standard, context..., trace);
        const outcome<Record> told(rbsp, standard, context..., trace, &fault);
        EXPECT_EQ(listed.read, plain.read);
        EXPECT_EQ(told.read, plain.read);
        EXPECT_EQ(listed.consumed, plain.consumed);
        EXPECT_EQ(told.consumed, plain.consumed);
        EXPECT_TRUE(test::same_fields(listed.record, plain.record));
        EXPECT_TRUE(test::same_fields(told.record, plain.record));
        EXPECT_LE(trace.elements.size(), 8 * rbsp.size());
        if (!told.read) {
            EXPECT_NE(fault.kind, h265_fault_kind::none);
        }
        for (const h265_traced_element& element : trace.elements) {
            EXPECT_NE(path_of(trace, element), "");
            if (element.rule != nullptr) {
                EXPECT_NE(h265_find_rule(element.rule), nullptr) << element.rule;
            }
        }
        for (const h265_traced_structure& structure : trace.structures) {
            EXPECT_NE(path_of(trace, structure), "");
        }
    }
}

struct host {
    h2645_common_base_store<h265_nal_vps> vps;
    h2645_common_base_store<h265_nal_sps> sps;
    h2645_common_base_store<h265_nal_pps> pps;

    void take(h265_nal_unit_type type, const bytes& rbsp) {
        h2645_common_bitreader reader = reader_of(rbsp);
        if (type == VPS_NUT) {
            h265_nal_vps read;
            if (read.parse_standard(reader)) {
                vps[read.vps_video_parameter_set_id] = read;
            }
        } else if (type == SPS_NUT) {
            h265_nal_sps read;
            if (read.parse_standard(reader, vps)) {
                sps[read.sps_seq_parameter_set_id] = read;
                sps.active_id = read.sps_seq_parameter_set_id;
            }
        } else if (type == PPS_NUT) {
            h265_nal_pps read;
            if (read.parse_standard(reader, sps)) {
                pps[read.pps_pic_parameter_set_id] = read;
            }
        }
    }

    void expect_same_message(const h265_nal_sei_reader& message) {
        const bytes payload(message.payload_begin, message.payload_end);
        switch (message.payload_type) {
            case h265_nal_sei_payload_type_prefix_buffering_period:
                expect_same<h265_nal_sei_buffering_period>(payload, sps);
                break;
            case h265_nal_sei_payload_type_prefix_pic_timing:
                expect_same<h265_nal_sei_pic_timing>(payload, sps);
                break;
            case h265_nal_sei_payload_type_prefix_active_parameter_sets:
                expect_same<h265_nal_sei_active_parameter_sets>(payload, vps);
                break;
            default:
                break;
        }
    }

    void expect_same_unit(h265_nal_unit_type type, bytes rbsp) {
        if (type == VPS_NUT) {
            expect_same<h265_nal_vps>(rbsp);
        } else if (type == SPS_NUT) {
            expect_same<h265_nal_sps>(rbsp, vps);
        } else if (type == PPS_NUT) {
            expect_same<h265_nal_pps>(rbsp, sps);
        } else if (type == AUD_NUT) {
            expect_same<h265_nal_aud>(rbsp);
        } else if (type == PREFIX_SEI_NUT) {
            h265_nal_sei_reader messages(rbsp.data(), rbsp.data() + rbsp.size(), type);
            while (messages.next_message()) {
                expect_same_message(messages);
            }
        } else if (type <= RASL_R || (type >= BLA_W_LP && type <= CRA_NUT)) {
            expect_same<h265_slice_segment_header>(rbsp, pps, sps, vps, type);
        }
    }
};

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class TracedParseOfStreams : public testing::TestWithParam<std::string> {};

TEST_P(TracedParseOfStreams, ReadsWhatTheUntracedOneReads) {
    const test::stream_reading stream = test::load_stream_reading(GetParam());
    host reader;
    for (const test::unit_reading& unit : stream.units) {
        if (unit.nuh_layer_id == 0 && !HasFailure()) {
            const auto type = static_cast<h265_nal_unit_type>(unit.nal_unit_type);
            const bytes rbsp = test::rbsp_of_unit(stream, unit);
            reader.expect_same_unit(type, rbsp);
            reader.take(type, rbsp);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, TracedParseOfStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

TEST(TracedParse, ReadsUnitsAtTheEndsOfEachRangeAndPastThem) {
    for (const test::range_table& table : test::range_tables()) {
        host reader;
        for (const test::range_unit& unit : table.parameter_sets) {
            reader.take(unit.type, unit.rbsp.bytes());
        }
        for (const test::range_case& each : table.cases) {
            SCOPED_TRACE(table.structure + ": " + each.element);
            reader.expect_same_unit(table.type, each.at_limit.bytes());
            reader.expect_same_unit(table.type, each.past_limit.bytes());
        }
    }
}

// Records whose arguments stand before the reader.
template <class Record, class... Arguments>
void expect_same_part(const bytes& rbsp, Arguments... arguments) {
    for (const bool standard : {false, true}) {
        h265_trace trace;
        h265_fault fault;
        Record plain;
        Record listed;
        h2645_common_bitreader plain_reader = reader_of(rbsp);
        h2645_common_bitreader listed_reader = reader_of(rbsp);
        const bool read = standard ? plain.parse_standard(arguments..., plain_reader)
                                   : plain.parse(arguments..., plain_reader);
        EXPECT_EQ(standard ? listed.parse_standard(arguments..., listed_reader, trace, &fault)
                           : listed.parse(arguments..., listed_reader, trace, &fault),
                  read);
        EXPECT_EQ(listed_reader.bit_position(), plain_reader.bit_position());
        EXPECT_TRUE(test::same_fields(listed, plain));
    }
}

TEST(TracedParse, ReadsEveryProfile) {
    for (unsigned int idc = 0; idc < 13; ++idc) {
        for (unsigned int flag = 0; flag < 13; ++flag) {
            test::bit_writer bits;
            bits.u<2>(0).u<1>(0);
            bits.u<5>(idc).u<32>(1U << (31 - flag)).u<32>(0x5A5A5A5A).u<16>(0x5A5A).u<8>(93);
            expect_same_part<h265_profile_tier_level>(bits.bytes(), true, 0U);
            h265_profile_tier_level::layer_t plain;
            h265_profile_tier_level::layer_t listed;
            plain.profile_present_flag = listed.profile_present_flag = true;
            h265_trace trace;
            const bytes rbsp = bits.bytes();
            h2645_common_bitreader plain_reader = reader_of(rbsp);
            h2645_common_bitreader listed_reader = reader_of(rbsp);
            EXPECT_TRUE(plain.parse(plain_reader));
            EXPECT_TRUE(listed.parse(listed_reader, trace));
            EXPECT_TRUE(test::same_fields(listed, plain));
        }
    }
}

TEST(TracedParse, ReadsStructuresByThemselves) {
    const bytes noise = {0xB3, 0x5E, 0x91, 0xC7, 0x2D, 0x6A, 0xF4, 0x83, 0x1B, 0xE5, 0x79, 0xA6,
                         0xD2, 0x4F, 0x38, 0x97, 0xCB, 0x65, 0xB1, 0xFE, 0x5D, 0x8A, 0xE3, 0x74};
    h265_hrd_parameters hrd;
    h265_nal_sps sps;
    sps.num_short_term_ref_pic_sets = 1;
    h265_slice_segment_header slice;
    slice.NumPicTotalCurr = 3;
    std::vector<h265_st_ref_pic_set> sets(1);
    for (std::size_t begin = 0; begin < noise.size(); ++begin) {
        const bytes part(noise.begin() + static_cast<std::ptrdiff_t>(begin), noise.end());
        expect_same_part<h265_hrd_parameters>(part, true, 1U);
        expect_same_part<h265_hrd_parameters>(part, false, 7U);
        for (const unsigned int cpbs : {1U, 33U}) {
            h265_trace trace;
            for (const bool standard : {false, true}) {
                h265_nal_sub_layer_hrd_parameters plain;
                h265_nal_sub_layer_hrd_parameters listed;
                h2645_common_bitreader plain_reader = reader_of(part);
                h2645_common_bitreader listed_reader = reader_of(part);
                EXPECT_EQ(standard ? listed.parse_standard(0, cpbs, hrd, listed_reader, trace)
                                   : listed.parse(0, cpbs, hrd, listed_reader, trace),
                          standard ? plain.parse_standard(0, cpbs, hrd, plain_reader)
                                   : plain.parse(0, cpbs, hrd, plain_reader));
                EXPECT_TRUE(test::same_fields(listed, plain));
            }
        }
        expect_same<h265_scaling_list_data>(part);
        expect_same<h265_vui_parameters>(part, sps);
        expect_same<h265_st_ref_pic_set>(part, sps, 0U, sets);
        expect_same<h265_st_ref_pic_set>(part, sps, 1U, sets);
        expect_same<h265_ref_pic_lists_modification>(part, slice);
    }
}

TEST(TracedParse, OfPictureTimingNeedsAnActiveSps) {
    h2645_common_base_store<h265_nal_sps> store;
    expect_same<h265_nal_sei_pic_timing>({}, store);
    expect_same<h265_nal_sei_pic_timing>({}, h265_nal_sps());
}

TEST(TracedParse, IsNotValidWithoutMemory) {
    const bytes sps_bytes = test::sps_syntax().rbsp().bytes();
    h2645_common_base_store<h265_nal_vps> store;
    bool failed = true;
    for (std::size_t n = 1; failed; ++n) {
        h265_nal_sps sps;
        h265_trace trace;
        h2645_common_bitreader reader = reader_of(sps_bytes);
        const test::allocation_failure failure(n);
        bool read = false;
        try {
            read = sps.parse_standard(reader, store, trace);
        } catch (const std::bad_alloc&) {
        }
        failed = failure.happened();
        EXPECT_EQ(read, !failed);
        EXPECT_EQ(sps.valid, read);
    }
}

// A host may make a trace of its own, of whatever numbers.
TEST(TracedParse, NamesWhatAListHolds) {
    h265_trace trace;
    trace.elements.resize(1);
    trace.elements[0].name = "element";
    trace.elements[0].index_count = 9;
    trace.indices = {1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_EQ(path_of(trace, trace.elements[0]), "element[1][2][3][4][5][6]");
    trace.elements[0].first_index = 6;
    EXPECT_EQ(path_of(trace, trace.elements[0]), "element[7][8]");
    trace.structures.resize(1);
    trace.structures[0].name.name = "structure";
    trace.structures[0].parent = 0;  // in itself
    trace.elements[0].structure = 0;
    EXPECT_EQ(path_of(trace, trace.elements[0]), "structure.element[7][8]");
}

TEST(TracedParse, StartsItsListAfresh) {
    h265_trace trace;
    trace.elements.resize(3);
    trace.structures.resize(2);
    trace.indices.resize(4);
    const bytes rbsp = {0b010'1'0000};
    h2645_common_bitreader reader = reader_of(rbsp);
    h265_nal_aud aud;
    EXPECT_TRUE(aud.parse_standard(reader, trace));
    EXPECT_EQ(trace.elements.size(), 6U);  // pic_type, the stop bit, four alignment bits
    EXPECT_TRUE(trace.structures.empty());
    EXPECT_TRUE(trace.indices.empty());
    trace.clear();
    EXPECT_TRUE(trace.elements.empty());
}

}  // namespace
}  // namespace kovran
