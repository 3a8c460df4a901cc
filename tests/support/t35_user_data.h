#ifndef KOVRAN_TESTS_SUPPORT_T35_USER_DATA_H
#define KOVRAN_TESTS_SUPPORT_T35_USER_DATA_H

#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include <cstddef>
#include <string_view>

#include <gtest/gtest.h>

#include "support/allocation_failure.h"
#include "support/sei_payload.h"

namespace kovran::test {

// User data with the bits and bytes behind a country code, written as for bytes_of().
inline h265_nal_sei_user_data_registered_itu_t_t35 t35_user_data(unsigned char country,
                                                                 std::string_view bits) {
    h265_nal_sei_user_data_registered_itu_t_t35 data;
    data.itu_t_t35_country_code = country;
    data.itu_t_t35_payload_byte = bytes_of(bits);
    data.valid = true;
    return data;
}

// What user data from the United States holds. Expects it to be read; to be refused when its last
// bytes, however many, are missing, and with another country code; to be read into a record that
// was used before; and a failing allocation, whichever it is, to leave the record not valid.
template <class Record>
Record t35_record_of(std::string_view bits) {
    const h265_nal_sei_user_data_registered_itu_t_t35 data = t35_user_data(0xB5, bits);
    Record record;
    EXPECT_TRUE(record.parse(data));
    EXPECT_TRUE(record.valid);

    h265_nal_sei_user_data_registered_itu_t_t35 foreign = data;
    foreign.itu_t_t35_country_code = 0x26;
    EXPECT_FALSE(record.parse(foreign));
    EXPECT_FALSE(record.valid);

    for (std::size_t size = 0; size < data.itu_t_t35_payload_byte.size(); ++size) {
        h265_nal_sei_user_data_registered_itu_t_t35 cut = data;
        cut.itu_t_t35_payload_byte.resize(size);
        cut.itu_t_t35_payload_byte.shrink_to_fit();
        EXPECT_FALSE(record.parse(cut)) << size << " bytes";
        EXPECT_FALSE(record.valid);
    }

    for (std::size_t n = 1;; ++n) {
        const allocation_count count;
        bool happened = false;
        {
            Record fresh;
            const allocation_failure failure(n);
            const bool read = fresh.parse(data);
            happened = failure.happened();
            EXPECT_EQ(read, !happened);
            EXPECT_EQ(read, fresh.valid);
        }
        EXPECT_TRUE(count.all_freed());
        if (!happened) {
            break;
        }
    }
    EXPECT_TRUE(record.parse(data));
    return record;
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_T35_USER_DATA_H
