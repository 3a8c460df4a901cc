#include <kovran/h265/sei/h265_nal_sei_message.h>

#include "h2645_common/element.h"
#include "h2645_common/reading.h"
#include "h2645_common/tracing.h"
#include "h265/reading_rules.h"
#include "h265/sei/nested_messages.h"
#include "h265/sei/sei_context.h"
#include "h265/sei/walk_payload.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <variant>

namespace kovran {
namespace {

// The alternatives of the variant behind the first one, which has no payload type of its own.
constexpr std::size_t records = std::variant_size_v<h265_nal_sei_payload> - 1;
template <std::size_t index>
using record_at = std::variant_alternative_t<index + 1, h265_nal_sei_payload>;

constexpr std::size_t types = 256;

// sei_payload(), clause D.2.1, of a type that has a record.
template <class Walker, class Record>
bool walk_record(Walker& walk, h265_nal_sei_message& message, const sei_context& context) {
    auto* record = std::get_if<Record>(&message.payload);
    if (record == nullptr) {
        record = &message.payload.emplace<Record>();
    }
    return walk_payload(walk, *record, context) &&
           walk.payload_end(ELEMENT(message, reserved_payload_extension_data));
}

// What walks a payload of each type; null for the types that have no record.
template <class Walker>
using walk_function = bool (*)(Walker&, h265_nal_sei_message&, const sei_context&);

template <class Walker, std::size_t... index>
constexpr std::array<walk_function<Walker>, types> walk_functions(
    std::index_sequence<index...> /*of_records*/) {
    std::array<walk_function<Walker>, types> functions{};
    ((functions[record_at<index>::payload_type] = walk_record<Walker, record_at<index>>), ...);
    return functions;
}

template <std::size_t... index>
constexpr std::array<const char*, types> payload_names(
    std::index_sequence<index...> /*of_records*/) {
    std::array<const char*, types> names{};
    ((names[record_at<index>::payload_type] = record_at<index>::payload_name), ...);
    return names;
}

template <class Walker>
walk_function<Walker> function_of(unsigned int payload_type) {
    static constexpr auto functions = walk_functions<Walker>(std::make_index_sequence<records>());
    return payload_type < functions.size() ? functions[payload_type] : nullptr;
}

// reserved_sei_message(), clause D.2.1.
template <class Walker>
[[nodiscard]] bool reserved_message(Walker& walk, h265_nal_sei_reserved_message& record) {
    if (!walk.grow(walk.payload_bytes_left(), record.reserved_sei_message_payload_byte)) {
        return false;
    }
    walk.bytes(ELEMENT(record, reserved_sei_message_payload_byte));
    return true;
}

template <class Walker>
[[nodiscard]] bool keep_bytes(Walker& walk, h265_nal_sei_message& message) {
    message.reserved_payload_extension_data.clear();
    return reserved_message(walk, message.payload.emplace<h265_nal_sei_reserved_message>());
}

}  // namespace

template <class Walker>
bool walk_message(Walker& walk, h265_nal_sei_message& message, const sei_context& context) {
    message.valid = false;
    message.reserved_payload_extension_data.clear();
    if (!walk.byte_run("last_payload_type_byte", message.payload_type) ||
        !walk.byte_run("last_payload_size_byte", message.payload_size)) {
        return false;
    }
    const std::size_t left = walk.payload_bytes_left();
    const bool whole = walk.at_most(named("payloadSize", message.payload_size), left);
    const std::size_t size = std::min<std::size_t>(message.payload_size, left);

    const walk_function<Walker> walk_record = function_of<Walker>(message.payload_type);
    if (whole && walk_record != nullptr &&
        walk.at_most(named("nesting_depth", context.depth), message.most_nestings)) {
        message.valid = walk.within(size, [&] {
            if (context.depth == 0) {
                return walk_record(walk, message, context);
            }
            return walk.structure(
                named(h265_nal_sei_payload_name(message.payload_type), message.payload),
                [&](const h265_nal_sei_payload& /*unused*/) {
                    return walk_record(walk, message, context);
                });
        });
        if (message.valid) {
            return true;
        }
    }
    const bool kept = walk.within(size, [&] { return keep_bytes(walk, message); });
    message.valid = kept && whole && walk_record == nullptr;
    return kept;
}

template bool walk_message(reading<standard_rules>&, h265_nal_sei_message&, const sei_context&);
template bool walk_message(tracing<standard_rules>&, h265_nal_sei_message&, const sei_context&);

namespace {

h2645_common_bitreader reader_at(const h265_nal_sei_reader& message) {
    return {message.message_begin, message.end};
}

// What walk_message() does of a message whose type and size are known already.
bool read_message(h265_nal_sei_message& message, const h265_nal_sei_reader& at,
                  const sei_context& context) {
    message.payload_type = at.payload_type;
    message.payload_size = at.payload_size;
    message.reserved_payload_extension_data.clear();
    const auto walk_record = function_of<reading<standard_rules>>(at.payload_type);
    if (!at.truncated && walk_record != nullptr) {
        reading<standard_rules> walk(at.payload_begin, at.payload_end);
        message.valid = walk_record(walk, message, context);
        if (message.valid) {
            return true;
        }
    }
    reading<standard_rules> walk(at.payload_begin, at.payload_end);
    const bool kept = keep_bytes(walk, message);
    message.valid = kept && !at.truncated && walk_record == nullptr;
    return message.valid;
}

bool trace_message(h265_nal_sei_message& message, const h265_nal_sei_reader& at, h265_trace* trace,
                   h265_fault* fault, const sei_context& context) {
    h2645_common_bitreader reader = reader_at(at);
    tracing<standard_rules> walk(reader, trace, fault);
    return walk.end(walk_message(walk, message, context) && message.valid);
}

}  // namespace

bool h265_nal_sei_message::parse_standard(const h265_nal_sei_reader& message,
                                          const h2645_common_base_store<h265_nal_vps>& vps_store,
                                          const h2645_common_base_store<h265_nal_sps>& sps_store,
                                          h265_fault* fault) {
    const sei_context context = context_of(vps_store, sps_store);
    if (fault != nullptr) {
        return trace_message(*this, message, /*trace=*/nullptr, fault, context);
    }
    return read_message(*this, message, context);
}

bool h265_nal_sei_message::parse_standard(const h265_nal_sei_reader& message,
                                          const h2645_common_base_store<h265_nal_vps>& vps_store,
                                          const h2645_common_base_store<h265_nal_sps>& sps_store,
                                          h265_trace& trace, h265_fault* fault) {
    return trace_message(*this, message, &trace, fault, context_of(vps_store, sps_store));
}

const char* h265_nal_sei_payload_name(unsigned int payload_type) {
    static constexpr auto names = payload_names(std::make_index_sequence<records>());
    const bool known = payload_type < names.size() && names[payload_type] != nullptr;
    return known ? names[payload_type] : "";
}

bool h265_nal_sei_payload_is_in(unsigned int payload_type, h265_nal_unit_type nal_unit_type) {
    constexpr unsigned int decoded_picture_hash = 132;
    constexpr std::array<unsigned int, 7> of_suffix = {
        3,    // filler_payload
        4,    // user_data_registered_itu_t_t35
        5,    // user_data_unregistered
        17,   // progressive_refinement_segment_end
        22,   // post_filter_hint
        132,  // decoded_picture_hash
        146,  // coded_region_completion
    };
    if (*h265_nal_sei_payload_name(payload_type) == '\0') {
        return true;
    }
    if (nal_unit_type == SUFFIX_SEI_NUT) {
        return std::find(of_suffix.begin(), of_suffix.end(), payload_type) != of_suffix.end();
    }
    return payload_type != decoded_picture_hash;
}

}  // namespace kovran
