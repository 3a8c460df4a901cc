#include <kovran/h265/h265_nal_reader.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <vector>

#include "support/rbsp.h"

namespace kovran {
namespace {
// The loop that hosts are told to copy: it gives every whole unit of any input, and ends.

using bytes = std::vector<unsigned char>;

constexpr h2645_common_nalfmt formats[] = {nalfmt_length8, nalfmt_length16, nalfmt_length24,
                                           nalfmt_length32, nalfmt_annex_b};

// As the header of the NAL reader has it.
template <class Use>
void scan_loop(h265_nal_reader& reader, unsigned char* begin, unsigned char* end, Use use) {
    for (unsigned char* next = begin; next != end; next = reader.cursor) {
        reader.scan(next, end);
        if (reader.need_more_data) {
            break;
        }
        if (reader.found) {
            use(reader.nal, reader);
        }
    }
}

// NAL units of four bytes; `last` tells them apart.
bytes good_unit(unsigned char last) {
    return {0x40, 0x01, 0x0C, last};
}

bytes unit_with_the_forbidden_bit() {
    return {0xC0, 0x01, 0x0C, 0xBB};
}

void append(bytes& stream, h2645_common_nalfmt format, const bytes& unit) {
    if (format == nalfmt_annex_b) {
        stream.insert(stream.end(), {0, 0, 1});
    } else {
        stream.insert(stream.end(), format - 1U, 0);
        stream.push_back(static_cast<unsigned char>(unit.size()));
    }
    stream.insert(stream.end(), unit.begin(), unit.end());
}

// What the loop leaves behind.
struct outcome {
    bytes last_bytes;      // of the payload of each unit, in order
    std::size_t rest = 0;  // bytes from cursor on
    bool need_more_data = false;
    bool gave_up = false;
};

outcome read_units(const bytes& stream, h2645_common_nalfmt format) {
    const test::exact_bytes input(stream);
    outcome seen;
    h265_nal_reader reader(format);
    scan_loop(reader, input.begin(), input.end(), [&](const h265_nal& nal, h265_nal_reader& unit) {
        EXPECT_EQ(nal.nal_unit_type, VPS_NUT);
        bytes rbsp(stream.size());
        rbsp.resize(unit.block_decode(rbsp.data(), rbsp.size()));
        ASSERT_EQ(rbsp.size(), 2U);
        seen.last_bytes.push_back(rbsp.back());
    });
    seen.rest = static_cast<std::size_t>(input.end() - reader.cursor);
    seen.need_more_data = reader.need_more_data;
    seen.gave_up = reader.gave_up;
    return seen;
}

TEST(ScanLoop, GivesEveryUnit) {
    for (const h2645_common_nalfmt format : formats) {
        bytes stream;
        append(stream, format, good_unit(0xA1));
        append(stream, format, good_unit(0xA2));
        append(stream, format, good_unit(0xA3));
        EXPECT_EQ(read_units(stream, format).last_bytes, (bytes{0xA1, 0xA2, 0xA3})) << format;
    }
}

TEST(ScanLoop, GoesOnBehindAUnitWithTheForbiddenBit) {
    for (const h2645_common_nalfmt format : formats) {
        for (std::size_t bad = 0; bad <= 3; ++bad) {
            bytes stream;
            bytes good;
            for (std::size_t i = 0; i <= 3; ++i) {
                const auto name = static_cast<unsigned char>(0xA0 + i);
                append(stream, format, i == bad ? unit_with_the_forbidden_bit() : good_unit(name));
                if (i != bad) {
                    good.push_back(name);
                }
            }
            EXPECT_EQ(read_units(stream, format).last_bytes, good) << format << ", " << bad;
        }
    }
}

TEST(ScanLoop, LeavesAnIncompleteLastUnitToItsHost) {
    for (const h2645_common_nalfmt format : formats) {
        if (format == nalfmt_annex_b) {
            continue;  // does not say how long its units are
        }
        bytes stream;
        append(stream, format, good_unit(0xA1));
        const std::size_t whole = stream.size();
        append(stream, format, good_unit(0xA2));
        for (std::size_t size = whole + 1; size < stream.size(); ++size) {
            const bytes cut(stream.begin(), stream.begin() + static_cast<std::ptrdiff_t>(size));
            const outcome seen = read_units(cut, format);
            EXPECT_EQ(seen.last_bytes, bytes{0xA1}) << format << ", " << size;
            EXPECT_TRUE(seen.need_more_data);
            EXPECT_EQ(seen.rest, size - whole);
        }
        const outcome seen = read_units(stream, format);
        EXPECT_EQ(seen.last_bytes, (bytes{0xA1, 0xA2}));
        EXPECT_FALSE(seen.need_more_data);
        EXPECT_EQ(seen.rest, 0U);
    }
}

TEST(ScanLoop, EndsAtALengthOfZero) {
    for (const h2645_common_nalfmt format : formats) {
        if (format == nalfmt_annex_b) {
            continue;
        }
        bytes stream;
        append(stream, format, good_unit(0xA1));
        append(stream, format, {});
        append(stream, format, good_unit(0xA2));
        const outcome seen = read_units(stream, format);
        EXPECT_EQ(seen.last_bytes, bytes{0xA1}) << format;
        EXPECT_TRUE(seen.gave_up);
        EXPECT_EQ(seen.rest, 0U);
    }
}

TEST(ScanLoop, TellsThatItsLastUnitWasPassedOver) {
    for (const h2645_common_nalfmt format : formats) {
        if (format == nalfmt_annex_b) {
            continue;
        }
        bytes stream;
        append(stream, format, good_unit(0xA1));
        append(stream, format, unit_with_the_forbidden_bit());
        EXPECT_TRUE(read_units(stream, format).gave_up) << format;
    }
}

TEST(ScanLoop, EndsOnEveryShortInput) {
    constexpr unsigned char alphabet[] = {0x00, 0x01, 0x02, 0x03, 0x80};
    std::vector<h2645_common_nalfmt> every_format(std::begin(formats), std::end(formats));
    every_format.push_back(nalfmt_none);
    for (const h2645_common_nalfmt format : every_format) {
        std::size_t buffers = 1;  // of this size
        for (std::size_t size = 0; size <= 7; ++size, buffers *= std::size(alphabet)) {
            for (std::size_t number = 0; number < buffers; ++number) {
                bytes letters(size);
                std::size_t left = number;
                for (unsigned char& letter : letters) {
                    letter = alphabet[left % std::size(alphabet)];
                    left /= std::size(alphabet);
                }
                const test::exact_bytes input(letters);
                h265_nal_reader reader(format);
                std::size_t units = 0;
                scan_loop(reader, input.begin(), input.end(),
                          [&](const h265_nal&, h265_nal_reader&) { ++units; });
                ASSERT_LE(units, size / 2) << testing::PrintToString(letters);
            }
        }
    }
}

TEST(ScanLoop, EndsOnNullAndReversedRanges) {
    const test::exact_bytes input{0x00, 0x00, 0x01, 0x40, 0x01, 0x00, 0x00, 0x01, 0x42, 0x01};
    for (const h2645_common_nalfmt format : formats) {
        h265_nal_reader reader(format);
        const auto unexpected = [](const h265_nal&, h265_nal_reader&) { ADD_FAILURE(); };
        scan_loop(reader, nullptr, nullptr, unexpected);
        scan_loop(reader, input.end(), input.begin(), unexpected);
    }
}

}  // namespace
}  // namespace kovran
