#include "support/sei_payload.h"

#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_trace.h>

#include <cstddef>
#include <stdexcept>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/rbsp.h"

namespace kovran::test {
namespace {

constexpr char hexadecimal_digits[] = "0123456789abcdef";

unsigned int digit(char text) {
    const std::string_view digits = hexadecimal_digits;
    const std::size_t value = digits.find(text);
    if (value == digits.npos) {
        throw std::invalid_argument("not a hexadecimal digit");
    }
    return static_cast<unsigned int>(value);
}

bit_writer written(std::string_view bits) {
    bit_writer writer;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        if (bits[i] == 'x') {
            writer.u<4>(digit(bits.at(i + 1))).u<4>(digit(bits.at(i + 2)));
            i += 2;
        } else if (bits[i] == '0' || bits[i] == '1') {
            writer.u<1>(digit(bits[i]));
        } else if (bits[i] != ' ' && bits[i] != '\n') {
            throw std::invalid_argument("neither a bit nor a byte");
        }
    }
    return writer;
}

std::string hexadecimal(const unsigned char* bytes, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += hexadecimal_digits[bytes[i] / 16U];
        text += hexadecimal_digits[bytes[i] % 16U];
    }
    return text;
}

bool is_framing(std::string_view name) {
    return name == "ff_byte" || name == "last_payload_type_byte" ||
           name == "last_payload_size_byte";
}

// The outermost payloadType and payloadSize are left out.
std::string elements_of(const h265_trace& trace, const unsigned char* data) {
    std::string text;
    std::size_t position = 0;
    for (const h265_traced_element& element : trace.elements) {
        EXPECT_EQ(element.first_bit, position) << path_of(trace, element);
        position += element.width;
        if (element.structure == trace.no_structure && is_framing(element.name)) {
            continue;
        }
        text += path_of(trace, element) + ' ';
        const std::string_view descriptor = element.descriptor;
        if (descriptor == "st(v)" || descriptor == "b(8)" || element.width > 63) {
            text += hexadecimal(data + element.first_bit / 8, element.width / 8);
        } else {
            text += std::to_string(element.value);
        }
        text += '\n';
    }
    return text;
}

h265_nal_sei_reader reader_of(const exact_bytes& unit) {
    h265_nal_sei_reader reader(unit.begin(), unit.end(), PREFIX_SEI_NUT);
    EXPECT_TRUE(reader.next_message());
    return reader;
}

void expect_bytes_kept(const h265_nal_sei_message& message,
                       const std::vector<unsigned char>& payload) {
    const auto* const kept = std::get_if<h265_nal_sei_reserved_message>(&message.payload);
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->reserved_sei_message_payload_byte, payload);
    EXPECT_TRUE(message.reserved_payload_extension_data.empty());
    EXPECT_FALSE(message.valid);
}

// The first bits, and zeros up to the end of their last byte; reading must not take a bit that is
// not there. The zeros may be elements themselves and end the payload early, whole bytes cannot.
void expect_cut_off(unsigned int payload_type, const bit_writer& whole, const sei_stores& stores) {
    for (std::size_t bits = 0; bits < whole.size(); ++bits) {
        bit_writer first;
        for (std::size_t i = 0; i < bits; ++i) {
            const unsigned int byte = whole.bytes()[i / 8];
            first.u<1>(byte >> (7 - i % 8) & 1U);
        }
        const sei_reading reading = read_payload(payload_type, first.bytes(), stores);
        if (bits % 8 == 0) {
            EXPECT_FALSE(reading.read) << bits << " bits of " << payload_type;
        }
        if (!reading.read) {
            expect_bytes_kept(reading.message, first.bytes());
        }
    }
}

void expect_extension_kept(unsigned int payload_type, const bit_writer& whole,
                           const std::string& elements, const sei_stores& stores) {
    bit_writer extended = whole;
    extended.u<3>(0b101).trailing_bits();
    const sei_reading reading = read_payload(payload_type, extended.bytes(), stores);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(reading.message.reserved_payload_extension_data,
              (std::vector<bool>{true, false, true}));
    EXPECT_EQ(reading.elements.substr(0, elements.size()), elements);
}

void expect_same_in_used_message(const std::vector<unsigned char>& unit, const sei_stores& stores,
                                 const std::string& elements) {
    const exact_bytes bytes(unit);
    const exact_bytes other(message_of(5, std::vector<unsigned char>(20, 0xA5)));
    h265_nal_sei_message message;
    for (const bool change : {false, true}) {
        if (change) {
            EXPECT_TRUE(message.parse_standard(reader_of(other), stores.vps, stores.sps));
        }
        h265_trace trace;
        h265_fault fault;
        EXPECT_TRUE(
            message.parse_standard(reader_of(bytes), stores.vps, stores.sps, trace, &fault));
        EXPECT_EQ(elements_of(trace, bytes.begin()), elements);
        EXPECT_TRUE(message.parse_standard(reader_of(bytes), stores.vps, stores.sps));
    }
}

void expect_sound_memory(const std::vector<unsigned char>& unit, const sei_stores& stores) {
    const exact_bytes bytes(unit);
    for (std::size_t n = 1;; ++n) {
        const allocation_count count;
        bool happened = false;
        {
            h265_nal_sei_message message;
            const h265_nal_sei_reader reader = reader_of(bytes);
            const allocation_failure failure(n);
            const bool read = message.parse_standard(reader, stores.vps, stores.sps);
            happened = failure.happened();
            EXPECT_EQ(read, message.valid);
            EXPECT_TRUE(happened || read);
        }
        EXPECT_TRUE(count.all_freed());
        if (!happened) {
            return;
        }
    }
}

}  // namespace

std::vector<unsigned char> bytes_of(std::string_view bits) {
    return written(bits).bytes();
}

std::vector<unsigned char> message_of(unsigned int payload_type,
                                      const std::vector<unsigned char>& payload) {
    std::vector<unsigned char> message;
    const auto append_run = [&message](std::size_t value) {
        for (; value >= 255; value -= 255) {
            message.push_back(255);
        }
        message.push_back(static_cast<unsigned char>(value));
    };
    append_run(payload_type);
    append_run(payload.size());
    message.insert(message.end(), payload.begin(), payload.end());
    return message;
}

sei_reading read_payload(unsigned int payload_type, const std::vector<unsigned char>& payload,
                         const sei_stores& stores) {
    const exact_bytes unit(message_of(payload_type, payload));
    sei_reading reading;
    h265_trace trace;
    reading.read = reading.message.parse_standard(reader_of(unit), stores.vps, stores.sps, trace,
                                                  &reading.fault);
    reading.elements = elements_of(trace, unit.begin());
    EXPECT_EQ(reading.message.payload_type, payload_type);
    EXPECT_EQ(reading.message.payload_size, payload.size());
    EXPECT_EQ(reading.message.valid, reading.read);
    EXPECT_TRUE(reading.read || reading.fault.kind != h265_fault_kind::none);

    h265_nal_sei_message untraced;
    EXPECT_EQ(untraced.parse_standard(reader_of(unit), stores.vps, stores.sps), reading.read);
    EXPECT_EQ(untraced.payload.index(), reading.message.payload.index());
    h265_fault fault;
    EXPECT_EQ(untraced.parse_standard(reader_of(unit), stores.vps, stores.sps, &fault),
              reading.read);
    EXPECT_EQ(to_string(fault), to_string(reading.fault));
    return reading;
}

sei_reading expect_payload(unsigned int payload_type, std::string_view bits,
                           std::string_view elements, const sei_stores& stores, payload_end end) {
    bit_writer writer = written(bits);
    const bit_writer whole = writer;
    const std::string expected(elements);
    std::string closed = expected;
    if (whole.size() % 8 != 0) {
        writer.trailing_bits();
        closed += "payload_bit_equal_to_one 1\n";
        for (std::size_t i = whole.size() + 1; i < 8 * writer.bytes().size(); ++i) {
            closed += "payload_bit_equal_to_zero 0\n";
        }
    }
    sei_reading reading = read_payload(payload_type, writer.bytes(), stores);
    EXPECT_TRUE(reading.read) << to_string(reading.fault);
    EXPECT_EQ(reading.fault.kind, h265_fault_kind::none) << to_string(reading.fault);
    EXPECT_EQ(reading.elements, closed);

    const std::vector<unsigned char> unit = message_of(payload_type, writer.bytes());
    expect_same_in_used_message(unit, stores, closed);
    if (end == payload_end::extensible) {
        expect_cut_off(payload_type, whole, stores);
        expect_extension_kept(payload_type, whole, expected, stores);
    }
    expect_sound_memory(unit, stores);
    return reading;
}

std::string refusal_of(unsigned int payload_type, std::string_view bits, const sei_stores& stores) {
    const std::vector<unsigned char> payload = bytes_of(bits);
    const sei_reading reading = read_payload(payload_type, payload, stores);
    EXPECT_FALSE(reading.read);
    expect_bytes_kept(reading.message, payload);
    return to_string(reading.fault);
}

}  // namespace kovran::test
