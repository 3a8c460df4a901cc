#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;

constexpr unsigned int slice_b = 0;
constexpr unsigned int slice_p = 1;
constexpr std::size_t most_entries = 1048576;

h265_slice_segment_header header_of(unsigned int slice_type, unsigned int NumPicTotalCurr,
                                    unsigned int num_ref_idx_l0_active_minus1,
                                    unsigned int num_ref_idx_l1_active_minus1) {
    h265_slice_segment_header header;
    header.slice_type = slice_type;
    header.NumPicTotalCurr = NumPicTotalCurr;
    header.num_ref_idx_l0_active_minus1 = num_ref_idx_l0_active_minus1;
    header.num_ref_idx_l1_active_minus1 = num_ref_idx_l1_active_minus1;
    return header;
}

// A record of an earlier B slice, with both lists.
h265_ref_pic_lists_modification used_record() {
    h265_ref_pic_lists_modification lists;
    lists.ref_pic_list_modification_flag_l0 = true;
    lists.list_entry_l0 = {5, 6, 7};
    lists.ref_pic_list_modification_flag_l1 = true;
    lists.list_entry_l1 = {8, 9};
    lists.valid = true;
    return lists;
}

TEST(H265RefPicListsModification, TakesTheBitLengthOfTheCountForAnEntry) {
    struct count_width {
        unsigned int NumPicTotalCurr;
        unsigned int width;
    };
    constexpr count_width rows[] = {
        {1, 1},          {2, 2},          {3, 2},          {4, 3},           {5, 3},
        {7, 3},          {8, 4},          {15, 4},         {16, 5},          {0xFFFFFF, 24},
        {0x1000000, 25}, {0x1FFFFFF, 25}, {0x2000000, 26}, {0xFFFFFFFF, 32},
    };
    for (const auto& row : rows) {
        const unsigned int all_ones = 0xFFFFFFFF >> (32 - row.width);
        test::bit_writer bits;
        bits.u<1>(1).u(row.width, all_ones).u(row.width, 1).u(row.width, all_ones - 1);
        test::rbsp input{bits.bytes()};
        h265_ref_pic_lists_modification lists;
        EXPECT_TRUE(lists.parse(input.reader, header_of(slice_p, row.NumPicTotalCurr, 2, 0)));
        EXPECT_EQ(lists.list_entry_l0, (values{all_ones, 1, all_ones - 1})) << row.NumPicTotalCurr;
        EXPECT_EQ(input.reader.bit_position(), bits.size()) << row.NumPicTotalCurr;
    }
}

TEST(H265RefPicListsModification, ReadsBothListsOfABSlice) {
    test::bit_writer bits;
    bits.u<1>(1).u<3>(4).u<3>(0).u<3>(7);  // flag, list_entry_l0
    bits.u<1>(1).u<3>(1).u<3>(2);          // flag, list_entry_l1
    test::rbsp input{bits.bytes()};
    h265_ref_pic_lists_modification lists;
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_b, 4, 2, 1)));
    EXPECT_TRUE(lists.ref_pic_list_modification_flag_l0);
    EXPECT_EQ(lists.list_entry_l0, (values{4, 0, 7}));
    EXPECT_TRUE(lists.ref_pic_list_modification_flag_l1);
    EXPECT_EQ(lists.list_entry_l1, (values{1, 2}));
    EXPECT_TRUE(lists.valid);
    EXPECT_EQ(input.reader.bit_position(), 17U);
}

TEST(H265RefPicListsModification, ReadsOneListOfABSliceWithoutTheOther) {
    const h265_slice_segment_header header = header_of(slice_b, 3, 1, 1);
    test::rbsp first_only{0b1'10'01'0'11};
    h265_ref_pic_lists_modification lists;
    EXPECT_TRUE(lists.parse(first_only.reader, header));
    EXPECT_EQ(lists.list_entry_l0, (values{2, 1}));
    EXPECT_FALSE(lists.ref_pic_list_modification_flag_l1);
    EXPECT_EQ(lists.list_entry_l1, values());
    EXPECT_EQ(first_only.reader.bit_position(), 6U);

    test::rbsp second_only{0b0'1'01'10'11};
    lists = {};
    EXPECT_TRUE(lists.parse(second_only.reader, header));
    EXPECT_FALSE(lists.ref_pic_list_modification_flag_l0);
    EXPECT_EQ(lists.list_entry_l0, values());
    EXPECT_TRUE(lists.ref_pic_list_modification_flag_l1);
    EXPECT_EQ(lists.list_entry_l1, (values{1, 2}));
    EXPECT_EQ(second_only.reader.bit_position(), 6U);
}

TEST(H265RefPicListsModification, ReadsTwoBitsOfABSliceWithoutModifications) {
    test::rbsp input{0b0'0'111111};
    h265_ref_pic_lists_modification lists = used_record();
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_b, 4, 2, 1)));
    EXPECT_EQ(input.reader.bit_position(), 2U);
    h265_ref_pic_lists_modification expected = used_record();
    expected.ref_pic_list_modification_flag_l0 = false;
    expected.ref_pic_list_modification_flag_l1 = false;
    EXPECT_TRUE(test::same_fields(lists, expected));
}

TEST(H265RefPicListsModification, LeavesTheSecondListOfAPSliceAlone) {
    test::rbsp input{0b1'11'10'111};
    h265_ref_pic_lists_modification lists = used_record();
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_p, 3, 1, 1)));
    EXPECT_EQ(input.reader.bit_position(), 5U);
    h265_ref_pic_lists_modification expected = used_record();
    expected.list_entry_l0 = {3, 2};
    EXPECT_TRUE(test::same_fields(lists, expected));
}

// The parser of the slice header calls for P and B slices only, a host may call for any.
TEST(H265RefPicListsModification, ReadsASecondListOfBSlicesOnly) {
    for (const unsigned int slice_type : {1U, 2U, 3U, 0xFFFFFFFFU}) {
        test::rbsp input{0b0'1'111111};
        h265_ref_pic_lists_modification lists;
        EXPECT_TRUE(lists.parse(input.reader, header_of(slice_type, 2, 0, 0)));
        EXPECT_FALSE(lists.ref_pic_list_modification_flag_l1);
        EXPECT_EQ(input.reader.bit_position(), 1U);
    }
}

TEST(H265RefPicListsModification, GrowsAListByTheEntriesRead) {
    test::rbsp input{0b1'01'10'11'1, 0b0'0000000};
    h265_ref_pic_lists_modification lists;
    lists.list_entry_l0 = {9};
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_p, 2, 3, 0)));
    EXPECT_EQ(lists.list_entry_l0, (values{1, 2, 3, 2}));
}

TEST(H265RefPicListsModification, DoesNotTestEntriesAgainstTheCount) {
    test::rbsp input{0b1'11'00000};
    h265_ref_pic_lists_modification lists;
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_p, 2, 0, 0)));
    EXPECT_EQ(lists.list_entry_l0, values{3});
}

TEST(H265RefPicListsModification, RejectsACountOf0WithoutReading) {
    test::rbsp input{0xFF};
    h265_ref_pic_lists_modification lists = used_record();
    EXPECT_FALSE(lists.parse(input.reader, header_of(slice_b, 0, 0, 0)));
    EXPECT_EQ(input.reader.bit_position(), 0U);
    h265_ref_pic_lists_modification expected = used_record();
    expected.valid = false;
    EXPECT_TRUE(test::same_fields(lists, expected));
}

TEST(H265RefPicListsModification, ReadsZerosBehindTheEnd) {
    test::rbsp input{0b1'10'01'1'10};
    h265_ref_pic_lists_modification lists;
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_b, 3, 1, 2)));
    EXPECT_EQ(lists.list_entry_l0, (values{2, 1}));
    EXPECT_TRUE(lists.ref_pic_list_modification_flag_l1);
    EXPECT_EQ(lists.list_entry_l1, (values{2, 0, 0}));
}

TEST(H265RefPicListsModification, TakesAsManyEntriesAsTheLimit) {
    const auto last = static_cast<unsigned int>(most_entries - 1);
    test::rbsp first{0b1'01'00000};
    h265_ref_pic_lists_modification lists;
    EXPECT_TRUE(lists.parse(first.reader, header_of(slice_p, 2, last, 0)));
    EXPECT_EQ(lists.list_entry_l0.size(), most_entries);
    EXPECT_EQ(lists.list_entry_l0[0], 1U);

    test::rbsp second{0b0'1'11'0000};
    EXPECT_TRUE(lists.parse(second.reader, header_of(slice_b, 2, 0, last)));
    EXPECT_EQ(lists.list_entry_l1.size(), most_entries);
    EXPECT_EQ(lists.list_entry_l1[0], 3U);
}

TEST(H265RefPicListsModification, ThrowsBeforeItGrowsAListBeyondTheLimit) {
    for (const unsigned int last : {1048576U, 0x7FFFFFFFU, 0xFFFFFFFEU, 0xFFFFFFFFU}) {
        test::rbsp first{0xFF};
        h265_ref_pic_lists_modification lists = used_record();
        EXPECT_THROW(static_cast<void>(lists.parse(first.reader, header_of(slice_p, 2, last, 0))),
                     std::bad_alloc);
        h265_ref_pic_lists_modification expected = used_record();
        expected.valid = false;
        EXPECT_TRUE(test::same_fields(lists, expected)) << last;

        test::rbsp second{0b0'1'111111};
        lists = used_record();
        EXPECT_THROW(static_cast<void>(lists.parse(second.reader, header_of(slice_b, 2, 0, last))),
                     std::bad_alloc);
        expected.ref_pic_list_modification_flag_l0 = false;
        EXPECT_TRUE(test::same_fields(lists, expected)) << last;
    }
}

TEST(H265RefPicListsModification, DoesNotThrowForAListThatIsNotThere) {
    test::rbsp input{0b0'0'000000};
    h265_ref_pic_lists_modification lists;
    EXPECT_TRUE(lists.parse(input.reader, header_of(slice_b, 2, 0xFFFFFFFF, 0xFFFFFFFF)));
}

}  // namespace
}  // namespace kovran
