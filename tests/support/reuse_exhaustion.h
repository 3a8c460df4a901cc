#ifndef KOVRAN_TESTS_SUPPORT_REUSE_EXHAUSTION_H
#define KOVRAN_TESTS_SUPPORT_REUSE_EXHAUSTION_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

// Memory exhaustion in records that are used again: what a record held before is larger or smaller
// than what it is to hold.
namespace kovran::test {

// Bits, and how a record parses them.
template <class Record>
struct content {
    bit_writer bits;
    std::function<bool(Record&, h2645_common_bitreader&)> parse;

    bool into(Record& record) const {
        rbsp input{bits.bytes()};
        return parse(record, input.reader);
    }
};

enum class exhaustion { returns_false, throws };

// Parses `next` into a record that has held each of `before` in turn, with its first allocation
// failing, in another record with the second, and so on until there are no more. `valid_after` says
// what `valid` shall be then, by the record and by what it was before. Returns how many there were.
template <class Record, class ValidAfter>
std::size_t expect_sound_exhaustion(const std::vector<content<Record>>& before,
                                    const content<Record>& next, exhaustion ending,
                                    ValidAfter valid_after) {
    Record used;
    for (const content<Record>& each : before) {
        EXPECT_TRUE(each.into(used));
    }
    Record undisturbed = used;
    EXPECT_TRUE(next.into(undisturbed));

    std::size_t failures = 0;
    for (bool exhausted = true; exhausted; failures += exhausted ? 1 : 0) {
        SCOPED_TRACE("allocation " + std::to_string(failures + 1));
        const allocation_count memory;
        {
            Record record;
            for (const content<Record>& each : before) {
                EXPECT_TRUE(each.into(record));
            }
            rbsp input{next.bits.bytes()};
            bool result = false;
            bool thrown = false;
            {
                const allocation_failure failure(failures + 1);
                try {
                    result = next.parse(record, input.reader);
                } catch (const std::bad_alloc&) {
                    thrown = true;
                }
                exhausted = failure.happened();
            }
            EXPECT_EQ(result, !exhausted);
            EXPECT_EQ(thrown, exhausted && ending == exhaustion::throws);
            if (exhausted) {
                EXPECT_EQ(record.valid, valid_after(record, /*valid_before=*/true));
                Record to_be_small = record;
                EXPECT_TRUE(before.back().into(to_be_small));
                EXPECT_TRUE(next.into(record));
            }
            EXPECT_TRUE(same_fields(record, undisturbed));
        }
        EXPECT_TRUE(memory.all_freed());
    }
    return failures;
}

// Growing allocates; shrinking does not; and growing to what there was before may have to.
template <class Record, class ValidAfter>
void expect_sound_reuse(const content<Record>& small, const content<Record>& large,
                        exhaustion ending, ValidAfter valid_after) {
    {
        SCOPED_TRACE("growing");
        EXPECT_GT(expect_sound_exhaustion({small}, large, ending, valid_after), 0U);
    }
    {
        SCOPED_TRACE("shrinking");
        EXPECT_EQ(expect_sound_exhaustion({large}, small, ending, valid_after), 0U);
    }
    {
        SCOPED_TRACE("growing again");
        expect_sound_exhaustion({large, small}, large, ending, valid_after);
    }
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_REUSE_EXHAUSTION_H
