// What the extensions of an SPS and of a PPS have in common.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/extension_reading.h"
#include "support/extensions.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using flags = std::vector<bool>;

template <class Record>
// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class Extensions : public testing::Test {};

using extended_records = testing::Types<h265_nal_sps, h265_nal_pps>;
TYPED_TEST_SUITE(Extensions, extended_records, );

TYPED_TEST(Extensions, AreAllRead) {
    const auto whole = test::extended_set<TypeParam>::full_extensions();
    test::expect_read<TypeParam>(whole.syntax, whole.record);
}

TYPED_TEST(Extensions, MayAllBeAbsent) {
    const auto absent = test::read_set<TypeParam>(test::without_extension<TypeParam>());
    EXPECT_EQ(absent.fault.kind, h265_fault_kind::none);
    EXPECT_FALSE(absent.record.*test::extended_set<TypeParam>::extension_flag);
    EXPECT_TRUE(
        test::same_fields(absent.record, test::with_extensions(absent.record, TypeParam())));
    test::expect_read<TypeParam>(test::bit_writer().u<8>(0), {});
}

TYPED_TEST(Extensions, AreSkippedByParse) {
    using set = test::extended_set<TypeParam>;
    auto store = set::store_with(0);
    const auto whole = set::full_extensions();
    TypeParam smallest;
    test::rbsp smallest_input{test::without_extension<TypeParam>().rbsp().bytes()};
    ASSERT_TRUE(smallest.parse(smallest_input.reader, store));

    for (const bool extended : {false, true}) {
        const auto syntax =
            extended ? set::with_extension(whole.syntax) : test::without_extension<TypeParam>();
        for (const TypeParam& before : {TypeParam(), whole.record}) {
            test::rbsp input{syntax.rbsp().bytes()};
            TypeParam record = before;
            EXPECT_TRUE(record.parse(input.reader, store));
            EXPECT_EQ(input.reader.bit_position(), syntax.rbsp().size());
            TypeParam expected = test::with_extensions(smallest, before);
            expected.*set::extension_flag = extended;
            EXPECT_TRUE(test::same_fields(record, expected));

            test::rbsp traced_input{syntax.rbsp().bytes()};
            TypeParam traced = before;
            h265_trace trace;
            EXPECT_TRUE(traced.parse(traced_input.reader, store, trace));
            EXPECT_TRUE(test::same_fields(traced, record));
        }
    }
}

// ---- Extension data

TYPED_TEST(Extensions, HaveDataThatAreKeptBitByBit) {
    using set = test::extended_set<TypeParam>;
    TypeParam later;
    later.*set::extension_data_flag = {true, false};
    for (const unsigned int extension_4bits : {1U, 2U, 4U, 8U, 15U}) {
        later.*set::extension_4bits = static_cast<unsigned char>(extension_4bits);
        test::expect_read(test::bit_writer().u<8>(extension_4bits).u<2>(0b10), later);
    }

    test::bit_writer much = test::bit_writer().u<8>(15);
    (later.*set::extension_data_flag).clear();
    test::expect_read(much, later);
    later.*set::extension_data_flag = {false};
    test::expect_read(test::joined(much, test::bit_writer().u<1>(0)), later);
    (later.*set::extension_data_flag).clear();
    for (unsigned int i = 0; i < 10001; ++i) {
        much.u<1>(i % 3 == 0 ? 1U : 0U);
        (later.*set::extension_data_flag).push_back(i % 3 == 0);
    }
    test::expect_read(much, later);
}

// Zero bytes behind the trailing bits are none of them.
TYPED_TEST(Extensions, HaveDataUpToTheLast1Bit) {
    using set = test::extended_set<TypeParam>;
    auto bytes = set::with_extension(test::bit_writer().u<8>(1).u<3>(0b010)).rbsp().bytes();
    bytes.insert(bytes.end(), 4, 0);
    EXPECT_EQ(test::read_into<TypeParam>({}, bytes).record.*set::extension_data_flag,
              (flags{false, true, false}));
}

// ---- What is no extension that the standard has

// As encoders before the first extension wrote it: data follow the flag at once.
TYPED_TEST(Extensions, OfAnUnknownKindAreKept) {
    test::expect_kept<TypeParam>(test::bit_writer().u<3>(0b101));
    test::expect_kept<TypeParam>(test::bit_writer().u<3>(0b000));
    test::expect_kept<TypeParam>(test::bit_writer().u<1>(1));
    test::expect_kept<TypeParam>(test::bit_writer().u<7>(0));
    test::expect_kept<TypeParam>(test::bit_writer());
}

// An end anywhere in the extensions, before their last bit has been read.
TYPED_TEST(Extensions, ThatAreCutOffAreKept) {
    using set = test::extended_set<TypeParam>;
    const auto whole = set::full_extensions();
    const std::size_t whole_size =
        whole.syntax.size() - (whole.record.*set::extension_data_flag).size();
    for (std::size_t size = 0; size < whole_size && !testing::Test::HasFailure(); ++size) {
        SCOPED_TRACE(size);
        const test::bit_writer cut = test::first_bits(whole.syntax, size);
        test::expect_kept<TypeParam>(cut);

        // Without trailing bits: what is the last 1 bit by chance is taken for them.
        flags data = test::flags_of(cut);
        while (!data.empty() && !data.back()) {
            data.pop_back();
        }
        if (!data.empty()) {
            data.pop_back();
        }
        const auto bytes = set::with_extension(cut).payload().bytes();
        test::expect_only_data(test::read_into<TypeParam>({}, bytes), data);
    }
}

// ---- What known extensions leave before the trailing bits

// The extensions are read, and behind them `left` is kept and told. Returns the fault.
template <class Record>
h265_fault expect_left(const test::bit_writer& extension, Record extensions,
                       const test::bit_writer& left) {
    using set = test::extended_set<Record>;
    const test::bit_writer whole = test::joined(extension, left);
    const auto result = test::read_extension<Record>(whole);
    extensions.*set::extension_data_flag = test::flags_of(left);
    EXPECT_TRUE(result.read);
    EXPECT_TRUE(result.record.valid);
    EXPECT_TRUE(test::same_fields(result.record, test::smallest_with(extensions)));
    EXPECT_EQ(result.fault.kind, h265_fault_kind::unknown_extension);
    EXPECT_EQ(result.bits, set::with_extension(whole).rbsp().size());
    return result.fault;
}

TYPED_TEST(Extensions, MayLeaveBitsWithoutAnyOfThem) {
    const h265_fault fault =
        expect_left<TypeParam>(test::bit_writer().u<8>(0), {}, test::bit_writer().u<3>(0b101));
    EXPECT_EQ(to_string(fault.element),
              std::string(test::extended_set<TypeParam>::prefix) + "extension_4bits");
    EXPECT_EQ(fault.structure_count, 0U);
    EXPECT_EQ(fault.first_bit, test::first_bit_of_extension<TypeParam>() + 4);
}

TYPED_TEST(Extensions, MayLeaveBitsThatAreTracedOneByOne) {
    using set = test::extended_set<TypeParam>;
    const auto extension =
        test::joined(test::bit_writer().u<8>(0b10000000), set::range_extension_sample().syntax);
    const auto result =
        test::read_extension<TypeParam>(test::joined(extension, test::bit_writer().u<2>(0b10)));
    const std::size_t first = test::first_bit_of_extension<TypeParam>() + extension.size();
    const std::string name = std::string(set::prefix) + "extension_data_flag";
    EXPECT_EQ(test::elements_from(result, first),
              (std::vector<std::string>{name + " 1", name + " 0"}));
    EXPECT_EQ(test::elements_from(result, first + 1), std::vector<std::string>{name + " 0"});
    EXPECT_TRUE(test::elements_from(result, first + 2).empty());
}

TYPED_TEST(Extensions, MayLeaveAnyNumberOfBits) {
    using set = test::extended_set<TypeParam>;
    const auto range = set::range_extension_sample();
    TypeParam record;
    record.*set::range_extension_flag = true;
    record.*set::range_extension = range.record;
    const auto extension = test::joined(test::bit_writer().u<8>(0b10000000), range.syntax);
    for (unsigned int size = 1; size <= 40; ++size) {
        SCOPED_TRACE(size);
        expect_left(extension, record, test::bit_writer().u(size, 0));
        expect_left(extension, record, test::bit_writer().u(size, 1));
        const h265_fault fault = expect_left(
            extension, record, test::bit_writer().u(size - 1, size > 1 ? 1 : 0).u<1>(0));
        EXPECT_EQ(to_string(fault.element), set::last_of_range_extension);
        EXPECT_EQ(to_string(fault.structures[0]), std::string(set::prefix) + "range_extension");
    }
}

}  // namespace
}  // namespace kovran
