// What stands behind sps_extension_present_flag.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
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

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;

struct reading {
    bool read = false;
    h265_nal_sps sps;
    h265_fault fault;
    h265_trace trace;
    std::size_t bits = 0;
};

// Into a record that may have held something else, with and without a trace and a fault: all are
// the same.
reading read_into(const h265_nal_sps& used, const std::vector<unsigned char>& bytes) {
    h2645_common_base_store<h265_nal_vps> store;
    reading result;
    result.sps = used;
    test::rbsp input{bytes};
    result.read = result.sps.parse_standard(input.reader, store, result.trace, &result.fault);
    result.bits = input.reader.bit_position();

    h265_nal_sps untraced = used;
    test::rbsp other_input{bytes};
    EXPECT_EQ(untraced.parse_standard(other_input.reader, store), result.read);
    EXPECT_EQ(other_input.reader.bit_position(), result.bits);
    EXPECT_TRUE(test::same_fields(untraced, result.sps));

    h265_nal_sps without_fault = used;
    h265_trace trace;
    test::rbsp third_input{bytes};
    EXPECT_EQ(without_fault.parse_standard(third_input.reader, store, trace), result.read);
    EXPECT_EQ(trace.elements.size(), result.trace.elements.size());
    EXPECT_EQ(trace.structures.size(), result.trace.structures.size());
    EXPECT_TRUE(test::same_fields(without_fault, result.sps));
    return result;
}

reading read(const test::sps_syntax& syntax) {
    return read_into({}, syntax.rbsp().bytes());
}

reading read_extension(const test::bit_writer& extension) {
    return read(test::sps_with_extension(extension));
}

// The smallest SPS, whose extension flag is set, with the fields of the extensions of another.
h265_nal_sps smallest_with(const h265_nal_sps& extensions) {
    h265_nal_sps sps = read({}).sps;
    sps.sps_extension_flag = true;
    sps.sps_range_extension_flag = extensions.sps_range_extension_flag;
    sps.sps_multilayer_extension_flag = extensions.sps_multilayer_extension_flag;
    sps.sps_3d_extension_flag = extensions.sps_3d_extension_flag;
    sps.sps_scc_extension_flag = extensions.sps_scc_extension_flag;
    sps.sps_extension_4bits = extensions.sps_extension_4bits;
    sps.sps_range_extension = extensions.sps_range_extension;
    sps.sps_multilayer_extension = extensions.sps_multilayer_extension;
    sps.sps_3d_extension = extensions.sps_3d_extension;
    sps.sps_scc_extension = extensions.sps_scc_extension;
    sps.sps_extension_data_flag = extensions.sps_extension_data_flag;
    return sps;
}

// Everything from the flags on is extension data, and told as such.
void expect_kept(const reading& result, const flags& data) {
    h265_nal_sps kept;
    kept.sps_extension_data_flag = data;
    EXPECT_TRUE(result.read);
    EXPECT_TRUE(test::same_fields(result.sps, smallest_with(kept)));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::unknown_extension);
    EXPECT_EQ(to_string(result.fault.element), "sps_extension_present_flag");
    EXPECT_EQ(result.fault.structure_count, 0U);
    EXPECT_EQ(result.fault.first_bit, test::sps_syntax{}.payload().size() - 1);
}

flags bits_of(const test::bit_writer& bits) {
    flags all;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        all.push_back((bits.bytes()[i / 8] >> (7 - i % 8) & 1) != 0);
    }
    return all;
}

void expect_kept(const test::bit_writer& extension) {
    const reading result = read_extension(extension);
    expect_kept(result, bits_of(extension));
    EXPECT_EQ(result.bits, test::sps_with_extension(extension).rbsp().size());
}

void expect_read(const test::bit_writer& extension, const h265_nal_sps& extensions) {
    const reading result = read_extension(extension);
    EXPECT_TRUE(result.read);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none) << to_string(result.fault);
    EXPECT_TRUE(test::same_fields(result.sps, smallest_with(extensions)));
    EXPECT_EQ(result.bits, test::sps_with_extension(extension).rbsp().size());
}

TEST(SpsExtensions, AreAllRead) {
    const auto whole = test::full_sps_extensions();
    expect_read(whole.syntax, whole.record);
}

TEST(SpsExtensions, AreReadOneByOne) {
    h265_nal_sps range;
    range.sps_range_extension_flag = true;
    range.sps_range_extension = test::sps_range_extension().record;
    expect_read(
        test::append(test::bit_writer().u<8>(0b10000000), test::sps_range_extension().syntax),
        range);

    h265_nal_sps multilayer;
    multilayer.sps_multilayer_extension_flag = true;
    expect_read(test::bit_writer().u<8>(0b01000000).u<1>(0), multilayer);
    multilayer.sps_multilayer_extension.inter_view_mv_vert_constraint_flag = true;
    expect_read(test::bit_writer().u<8>(0b01000000).u<1>(1), multilayer);

    h265_nal_sps of_3d;
    of_3d.sps_3d_extension_flag = true;
    of_3d.sps_3d_extension = test::sps_3d_extension().record;
    expect_read(test::append(test::bit_writer().u<8>(0b00100000), test::sps_3d_extension().syntax),
                of_3d);

    h265_nal_sps scc;
    scc.sps_scc_extension_flag = true;
    scc.sps_scc_extension = test::sps_scc_extension().record;
    expect_read(test::append(test::bit_writer().u<8>(0b00010000), test::sps_scc_extension().syntax),
                scc);
}

TEST(SpsExtensions, MayAllBeAbsent) {
    EXPECT_TRUE(test::same_fields(read({}).sps, [] {
        h265_nal_sps sps = smallest_with({});
        sps.sps_extension_flag = false;
        return sps;
    }()));
    expect_read(test::bit_writer().u<8>(0), {});
}

TEST(SpsExtensions, HaveEachFlagInItsField) {
    bool h265_sps_range_extension::*const in_order[] = {
        &h265_sps_range_extension::transform_skip_rotation_enabled_flag,
        &h265_sps_range_extension::transform_skip_context_enabled_flag,
        &h265_sps_range_extension::implicit_rdpcm_enabled_flag,
        &h265_sps_range_extension::explicit_rdpcm_enabled_flag,
        &h265_sps_range_extension::extended_precision_processing_flag,
        &h265_sps_range_extension::intra_smoothing_disabled_flag,
        &h265_sps_range_extension::high_precision_offsets_enabled_flag,
        &h265_sps_range_extension::persistent_rice_adaptation_enabled_flag,
        &h265_sps_range_extension::cabac_bypass_alignment_enabled_flag};
    for (unsigned int i = 0; i < 9; ++i) {
        SCOPED_TRACE(i);
        h265_nal_sps one;
        one.sps_range_extension_flag = true;
        one.sps_range_extension.*in_order[i] = true;
        expect_read(test::bit_writer().u<8>(0b10000000).u<9>(256U >> i), one);
    }
}

// ---- Screen content

test::bit_writer scc_flag() {
    return test::bit_writer().u<8>(0b00010000);
}

h265_nal_sps with_scc(const h265_sps_scc_extension& extension) {
    h265_nal_sps sps;
    sps.sps_scc_extension_flag = true;
    sps.sps_scc_extension = extension;
    return sps;
}

TEST(SpsSccExtension, HasNoPaletteUnlessItIsEnabled) {
    h265_sps_scc_extension extension;
    extension.motion_vector_resolution_control_idc = 1;
    expect_read(scc_flag().u<1>(0).u<1>(0).u<2>(1).u<1>(0), with_scc(extension));

    extension.palette_mode_enabled_flag = true;
    extension.palette_max_size = 64;
    extension.delta_palette_max_predictor_size = 64;
    expect_read(scc_flag().u<1>(0).u<1>(1).ue(64).ue(64).u<1>(0).u<2>(1).u<1>(0),
                with_scc(extension));
}

reading read_palette(unsigned int chroma_format_idc, const test::bit_writer& bit_depths,
                     const test::bit_writer& samples) {
    test::bit_writer extension = scc_flag().u<1>(0).u<1>(1).ue(1).ue(0).u<1>(1).ue(0);
    test::append(extension, samples).u<2>(0).u<1>(1);
    test::sps_syntax syntax = test::sps_with_extension(extension);
    syntax.chroma_format = test::bit_writer().ue(chroma_format_idc);
    if (chroma_format_idc == 3) {
        syntax.chroma_format.u<1>(1);  // separate_colour_plane_flag
    }
    syntax.bit_depths = bit_depths;
    reading result = read(syntax);
    EXPECT_EQ(result.fault.kind, h265_fault_kind::none);
    EXPECT_TRUE(result.sps.sps_scc_extension.intra_boundary_filtering_disabled_flag);
    return result;
}

TEST(SpsSccExtension, HasSamplesOfTheBitDepthsOfTheSps) {
    const auto bit_depths = test::bit_writer().ue(8).ue(1);
    const auto samples = test::bit_writer().u<16>(65535).u<9>(511).u<9>(7);
    const auto initializer = read_palette(1, bit_depths, samples)
                                 .sps.sps_scc_extension.sps_palette_predictor_initializer;
    EXPECT_EQ(initializer[0], values{65535});
    EXPECT_EQ(initializer[1], values{511});
    EXPECT_EQ(initializer[2], values{7});
}

TEST(SpsSccExtension, HasOneComponentOnlyWithoutChroma) {
    const auto bit_depths = test::bit_writer().ue(0).ue(0);
    const auto monochrome = read_palette(0, bit_depths, test::bit_writer().u<8>(1))
                                .sps.sps_scc_extension.sps_palette_predictor_initializer;
    EXPECT_EQ(monochrome[0], values{1});
    EXPECT_TRUE(monochrome[1].empty());
    EXPECT_TRUE(monochrome[2].empty());

    const auto samples = test::bit_writer().u<8>(1).u<8>(2).u<8>(3);
    const auto planes = read_palette(3, bit_depths, samples)
                            .sps.sps_scc_extension.sps_palette_predictor_initializer;
    EXPECT_EQ(planes[2], values{3});
}

TEST(SpsSccExtension, HasUpTo128PredictorSamples) {
    const auto with = [](unsigned int count) {
        test::bit_writer bits = scc_flag().u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(count - 1);
        for (unsigned int i = 0; i < 3 * count; ++i) {
            bits.u<8>(i % 251);
        }
        return bits.u<2>(0).u<1>(0);
    };
    const reading most = read_extension(with(128));
    EXPECT_EQ(most.fault.kind, h265_fault_kind::none);
    EXPECT_EQ(most.sps.sps_scc_extension.sps_palette_predictor_initializer[2].size(), 128U);
    EXPECT_EQ(most.sps.sps_scc_extension.sps_palette_predictor_initializer[2].back(), 383U % 251);
    expect_kept(with(129));
    expect_kept(scc_flag().u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(0xFFFFFFFE));
}

TEST(SpsSccExtension, IsNotReadWithMoreThan16Bits) {
    test::sps_syntax syntax = test::sps_with_extension(
        scc_flag().u<1>(0).u<1>(1).ue(1).ue(0).u<1>(1).ue(0).u<32>(9).u<2>(0).u<1>(0));
    syntax.bit_depths = test::bit_writer().ue(9).ue(0);
    EXPECT_EQ(read(syntax).fault.kind, h265_fault_kind::unknown_extension);
    syntax.bit_depths = test::bit_writer().ue(0).ue(9);
    EXPECT_EQ(read(syntax).fault.kind, h265_fault_kind::unknown_extension);
}

// ---- Extension data

TEST(SpsExtensionData, AreKeptBitByBit) {
    h265_nal_sps later;
    later.sps_extension_4bits = 1;
    expect_read(test::bit_writer().u<8>(1), later);

    later.sps_extension_data_flag = {false};
    expect_read(test::bit_writer().u<8>(1).u<1>(0), later);

    test::bit_writer much = test::bit_writer().u<8>(0b00001111);
    later.sps_extension_4bits = 15;
    later.sps_extension_data_flag.clear();
    for (unsigned int i = 0; i < 10001; ++i) {
        much.u<1>(i % 3 == 0 ? 1U : 0U);
        later.sps_extension_data_flag.push_back(i % 3 == 0);
    }
    expect_read(much, later);
}

// Zero bytes behind the trailing bits are none of them.
TEST(SpsExtensionData, EndAtTheLast1Bit) {
    auto bytes = test::sps_with_extension(test::bit_writer().u<8>(1).u<3>(0b010)).rbsp().bytes();
    bytes.insert(bytes.end(), 4, 0);
    EXPECT_EQ(read_into({}, bytes).sps.sps_extension_data_flag, (flags{false, true, false}));
}

// Each is one element of the trace.
TEST(SpsExtensionData, AreTraced) {
    const reading result = read_extension(test::bit_writer().u<8>(1).u<2>(0b01));
    const std::size_t first = test::sps_syntax{}.payload().size();
    std::vector<std::string> all;
    for (const auto& element : result.trace.elements) {
        if (element.first_bit >= first && *element.descriptor != 'f') {
            all.push_back(path_of(result.trace, element) + " " + std::to_string(element.value));
        }
    }
    EXPECT_EQ(
        all, (std::vector<std::string>{"sps_range_extension_flag 0",
                                       "sps_multilayer_extension_flag 0", "sps_3d_extension_flag 0",
                                       "sps_scc_extension_flag 0", "sps_extension_4bits 1",
                                       "sps_extension_data_flag 0", "sps_extension_data_flag 1"}));
}

// ---- What is no extension that the standard has

// As encoders before the first extension wrote it: data follow the flag at once.
TEST(UnknownSpsExtension, IsKeptAsItStands) {
    expect_kept(test::bit_writer().u<3>(0b101));
    expect_kept(test::bit_writer().u<3>(0b000));
    expect_kept(test::bit_writer().u<1>(1));
    expect_kept(test::bit_writer());
    expect_kept(test::bit_writer().u<7>(0));
}

TEST(UnknownSpsExtension, MayBreakHalfWay) {
    test::bit_writer bits = test::bit_writer().u<8>(0b11110000);
    test::append(bits, test::sps_range_extension().syntax).u<1>(1);
    test::append(bits, test::sps_3d_extension().syntax);
    expect_kept(bits.u<1>(0).u<1>(1).ue(64).ue(64).u<1>(1).ue(200).u<16>(0xFFFF));
}

// When there were five of them.
TEST(UnknownSpsExtension, MayBeWhatReservedBitsOnceStoodFor) {
    expect_kept(test::bit_writer().u<8>(0b10010000).u<9>(0b100000001).u<3>(0b011));
}

TEST(UnknownSpsExtension, LeavesTheTraceAsIfItHadNotBeenTried) {
    const reading result = read_extension(test::bit_writer().u<8>(0b10010000).u<9>(0).u<1>(1));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::unknown_extension);
    for (const auto& structure : result.trace.structures) {
        EXPECT_EQ(path_of(result.trace, structure).find("extension"), std::string::npos);
    }
    std::size_t bit = 0;
    std::size_t data = 0;
    for (const auto& element : result.trace.elements) {
        EXPECT_LE(bit, element.first_bit);  // reserved bits are left out
        bit = element.first_bit + element.width;
        data += std::string(element.name) == "sps_extension_data_flag" ? 1U : 0U;
    }
    EXPECT_EQ(data, 18U);
}

// An end anywhere in the extensions, before their last bit has been read.
TEST(UnknownSpsExtension, IsWhatIsCutOff) {
    test::bit_writer whole = test::bit_writer().u<8>(0b11110000);
    test::append(whole, test::sps_range_extension().syntax).u<1>(1);
    test::append(whole, test::sps_3d_extension().syntax);
    test::append(whole, test::sps_scc_extension().syntax);
    const flags all = bits_of(whole);
    for (std::size_t size = 0; size < all.size() && !testing::Test::HasFailure(); ++size) {
        SCOPED_TRACE(size);
        test::bit_writer cut;
        for (std::size_t i = 0; i < size; ++i) {
            cut.u<1>(all[i] ? 1 : 0);
        }
        expect_kept(cut);

        // Without trailing bits: what is the last 1 bit by chance is taken for them.
        auto bytes = test::sps_with_extension(cut).payload().bytes();
        const reading ended = read_into({}, bytes);
        EXPECT_TRUE(ended.read);
        EXPECT_EQ(ended.fault.kind, h265_fault_kind::unknown_extension);
        EXPECT_LT(ended.sps.sps_extension_data_flag.size(), size + 1);
        EXPECT_FALSE(ended.sps.sps_range_extension_flag);
    }
}

// ---- What known extensions leave before the trailing bits

// The extensions are read, and behind them `left` is kept and told.
reading expect_left(const test::bit_writer& extension, h265_nal_sps extensions,
                    const test::bit_writer& left) {
    const test::bit_writer whole = test::joined(extension, left);
    reading result = read_extension(whole);
    extensions.sps_extension_data_flag = bits_of(left);
    EXPECT_TRUE(result.read);
    EXPECT_TRUE(result.sps.valid);
    EXPECT_TRUE(test::same_fields(result.sps, smallest_with(extensions)));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::unknown_extension);
    EXPECT_EQ(result.bits, test::sps_with_extension(whole).rbsp().size());
    return result;
}

TEST(SpsExtensionsLeave, BitsBehindNoExtension) {
    const reading result =
        expect_left(test::bit_writer().u<8>(0), {}, test::bit_writer().u<3>(0b101));
    EXPECT_EQ(to_string(result.fault.element), "sps_extension_4bits");
    EXPECT_EQ(result.fault.structure_count, 0U);
    EXPECT_EQ(result.fault.first_bit, test::sps_syntax{}.payload().size() + 4);
}

TEST(SpsExtensionsLeave, AnyNumberOfBits) {
    h265_nal_sps range;
    range.sps_range_extension_flag = true;
    range.sps_range_extension = test::sps_range_extension().record;
    const auto extension =
        test::joined(test::bit_writer().u<8>(0b10000000), test::sps_range_extension().syntax);
    for (unsigned int size = 1; size <= 40; ++size) {
        SCOPED_TRACE(size);
        expect_left(extension, range, test::bit_writer().u(size, 0));
        expect_left(extension, range, test::bit_writer().u(size, 1));
        const reading result =
            expect_left(extension, range, test::bit_writer().u(size - 1, size > 1 ? 1 : 0).u<1>(0));
        EXPECT_EQ(to_string(result.fault.element), "cabac_bypass_alignment_enabled_flag");
        EXPECT_EQ(to_string(result.fault.structures[0]), "sps_range_extension");
    }
}

TEST(SpsExtensionsLeave, NothingUnderTheNameOfExtensionDataThatAreAnnounced) {
    h265_nal_sps later;
    later.sps_extension_4bits = 1;
    later.sps_extension_data_flag = {true, false};
    expect_read(test::bit_writer().u<8>(1).u<2>(0b10), later);
}

TEST(SpsExtensionsLeave, ElementsOfTheTrace) {
    const reading result = read_extension(test::bit_writer().u<8>(0b01000000).u<1>(1).u<2>(0b10));
    const std::size_t first = test::sps_syntax{}.payload().size() + 8;
    std::vector<std::string> all;
    for (const auto& element : result.trace.elements) {
        if (element.first_bit >= first && *element.descriptor != 'f') {
            all.push_back(path_of(result.trace, element) + " " + std::to_string(element.value) +
                          " at " + std::to_string(element.first_bit - first));
        }
    }
    EXPECT_EQ(all, (std::vector<std::string>{
                       "sps_multilayer_extension.inter_view_mv_vert_constraint_flag 1 at 0",
                       "sps_extension_data_flag 1 at 1", "sps_extension_data_flag 0 at 2"}));
}

// ---- Records used again

TEST(SpsExtensions, ShowNothingStale) {
    const h265_nal_sps used = read_extension(test::full_sps_extensions().syntax).sps;
    const auto smallest = test::sps_syntax{}.rbsp().bytes();
    EXPECT_TRUE(test::same_fields(read_into(used, smallest).sps, read({}).sps));

    const auto unknown = test::sps_with_extension(test::bit_writer().u<3>(0b101)).rbsp().bytes();
    EXPECT_TRUE(test::same_fields(read_into(used, unknown).sps, read_into({}, unknown).sps));

    const auto other = test::sps_with_extension(scc_flag().u<5>(0)).rbsp().bytes();
    EXPECT_TRUE(test::same_fields(read_into(used, other).sps, read_into({}, other).sps));

    const auto left =
        test::sps_with_extension(test::bit_writer().u<8>(0b01000000).u<1>(1).u<2>(0b10)).rbsp();
    const h265_nal_sps with_left = read_into(used, left.bytes()).sps;
    EXPECT_TRUE(test::same_fields(with_left, read_into({}, left.bytes()).sps));
    EXPECT_TRUE(test::same_fields(read_into(with_left, smallest).sps, read({}).sps));
}

// ---- The library's own rules

TEST(SpsExtensions, AreSkippedByParse) {
    auto store = test::vps_store_with(0);
    const auto whole = test::full_sps_extensions();
    for (const bool extended : {false, true}) {
        const test::sps_syntax syntax =
            extended ? test::sps_with_extension(whole.syntax) : test::sps_syntax{};
        for (const h265_nal_sps& before : {h265_nal_sps{}, whole.record}) {
            test::rbsp input{syntax.rbsp().bytes()};
            h265_nal_sps sps = before;
            EXPECT_TRUE(sps.parse(input.reader, store));
            EXPECT_EQ(input.reader.bit_position(), syntax.rbsp().size());
            EXPECT_EQ(sps.sps_extension_flag, extended);
            h265_nal_sps expected = smallest_with(before);
            expected.sps_extension_flag = extended;
            expected.vui_parameters = sps.vui_parameters;  // nothing is inferred
            EXPECT_TRUE(test::same_fields(sps, expected));

            test::rbsp traced_input{syntax.rbsp().bytes()};
            h265_nal_sps traced = before;
            h265_trace trace;
            EXPECT_TRUE(traced.parse(traced_input.reader, store, trace));
            EXPECT_TRUE(test::same_fields(traced, sps));
        }
    }
}

}  // namespace
}  // namespace kovran
