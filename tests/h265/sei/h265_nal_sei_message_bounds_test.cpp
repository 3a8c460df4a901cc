// What short payloads can ask for, whatever their type. SECURITY.md states the bound.
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <cstddef>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/allocation_failure.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

constexpr std::size_t memory_for_any_message = std::size_t{64} << 10;
constexpr std::size_t memory_for_a_byte_of_it = 4096;

test::sei_stores stores_of_a_stream() {
    test::sei_stores stores;
    h265_nal_sps& sps = stores.sps[0];
    sps.chroma_format_idc = 3;
    sps.pic_width_in_luma_samples = 8192;
    sps.pic_height_in_luma_samples = 4320;
    sps.vui_parameters_present_flag = true;
    sps.vui_parameters.vui_hrd_parameters_present_flag = true;
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    hrd.cpb_cnt_minus1.assign(1, 31);
    sps.valid = true;
    stores.sps.active_id = 0;
    stores.vps[0].vps_max_layers_minus1 = 62;
    stores.vps[0].valid = true;
    return stores;
}

void expect_bounded(unsigned int payload_type, const std::vector<unsigned char>& payload,
                    const test::sei_stores& stores) {
    std::vector<unsigned char> bytes = test::message_of(payload_type, payload);
    h265_nal_sei_reader messages(bytes.data(), bytes.data() + bytes.size(), PREFIX_SEI_NUT);
    ASSERT_TRUE(messages.next_message());
    const test::allocation_count before;
    {
        h265_nal_sei_message message;
        static_cast<void>(message.parse_standard(messages, stores.vps, stores.sps));
        EXPECT_LE(before.bytes(), memory_for_any_message + memory_for_a_byte_of_it * bytes.size())
            << "type " << payload_type << ", " << payload.size() << " bytes";
    }
    EXPECT_TRUE(before.all_freed());
}

// Bytes of which entries are made: of one bit, of three, of zeros, of few bits among many.
TEST(H265NalSeiMessageBounds, HoldForPayloadsOfOneByteRepeated) {
    const test::sei_stores stores = stores_of_a_stream();
    for (unsigned int type = 0; type < 256; ++type) {
        for (const unsigned int filling :
             {0xFFU, 0x5BU, 0x24U, 0x00U, 0x80U, 0x20U, 0x01U, 0xAAU}) {
            for (const std::size_t size : {1U, 16U, 300U, 5000U}) {
                expect_bounded(
                    type, std::vector<unsigned char>(size, static_cast<unsigned char>(filling)),
                    stores);
            }
        }
    }
}

TEST(H265NalSeiMessageBounds, HoldForRandomPayloads) {
    const test::sei_stores stores = stores_of_a_stream();
    std::mt19937 random(265);  // NOLINT(cert-msc51-cpp): the same every time
    for (unsigned int type = 0; type < 256; ++type) {
        for (unsigned int number = 0; number < 40; ++number) {
            std::vector<unsigned char> payload(random() % 200);
            // Many ones make short codes, many zeros large values.
            const bool with_ones = number % 2 == 0;
            for (unsigned char& byte : payload) {
                const std::size_t one = random();
                const std::size_t other = random();
                byte = static_cast<unsigned char>(with_ones ? one | other : one & other);
            }
            expect_bounded(type, payload, stores);
        }
    }
}

}  // namespace
}  // namespace kovran
