#include "units/annex_b_walk.h"

#include "units/leading_bytes.h"
#include "units/unit_faults.h"
#include "units/zero_bytes.h"

#include <cstddef>

namespace kovran::inspect {
namespace {

constexpr std::size_t header_size = 2;
constexpr std::size_t start_code_size = 3;

}  // namespace

bool annex_b_walk::take_next(nal_unit& unit) {
    if (stage_ == stage::leading_bytes) {
        take_leading_bytes(unit);
        if (!unit.faults.empty()) {
            return true;
        }
    }
    if (stage_ == stage::unit) {
        take_unit(unit);
        return true;
    }
    if (stage_ == stage::last_bytes) {
        take_last_bytes(unit);
        return !unit.faults.empty();
    }
    return false;
}

// The reader looks at every place where a start code with a header would fit, so at all but the
// last four; there the next search has to begin.
bool annex_b_walk::find_start_code_at_hand() {
    reader_.scan(stream_.at(searched_), stream_.end());
    if (reader_.found) {
        searched_ = stream_.place_of(reader_.frame_begin);
        return true;
    }
    constexpr std::size_t not_looked_at = start_code_size + header_size - 1;
    const std::uint64_t end = stream_.place_of(stream_.end());
    if (end > searched_ + not_looked_at) {
        searched_ = end - not_looked_at;
    }
    return false;
}

void annex_b_walk::take_leading_bytes(nal_unit& unit) {
    leading_bytes leading;
    bool found = false;
    do {
        const std::uint64_t zeros = stream_.skip_hole();
        leading.add_zeros(zeros);
        searched_ += zeros;
        found = find_start_code_at_hand();
        leading.add(stream_, stream_.at(searched_));
        stream_.drop(static_cast<std::size_t>(searched_ - stream_.offset()));
    } while (!found && stream_.read_more());
    leading.describe(unit, found);
    if (!found) {
        stage_ = stage::last_bytes;
        return;
    }
    stand_at_start_code(leading.zeros_at_end());
}

void annex_b_walk::take_unit(nal_unit& unit) {
    stream_.drop(static_cast<std::size_t>(offset_ - stream_.offset()));
    searched_ = offset_ + header_size;
    before_padding_ = {};
    next_look_ = header_size + padding_;
    bool found = find_start_code_at_hand();
    while (!found) {
        if (padding_follows()) {
            take_out_of_window(stream_.at(searched_));
            const std::uint64_t zeros = stream_.skip_hole();
            before_padding_.add_zeros(zeros);
            searched_ += zeros;
        }
        if (!stream_.read_more()) {
            break;
        }
        found = find_start_code_at_hand();
    }

    unsigned char* const last = found ? reader_.frame_begin : start_code_without_header();
    std::uint64_t zeros = 0;  // which belong to no unit (clause B.2.2)
    if (before_padding_.is_empty()) {
        zeros = trailing_zeros(stream_.begin() + header_size, last);
        unit.bytes = stream_.begin();
        unit.size = static_cast<std::uint64_t>(last - stream_.begin()) - zeros;
    } else {
        take_out_of_window(last);
        zeros = before_padding_.zeros_behind();
        unit.bytes = before_padding_.begin();
        unit.size = before_padding_.size();
    }
    unit.readable = true;
    unit.index = index_++;
    unit.offset = offset_;
    unit.prefix = prefix_;
    unit.header = header_;
    add_unit_faults(unit, nalfmt_annex_b);
    if (found) {
        stand_at_start_code(zeros);
    } else {
        stage_ = stage::last_bytes;
    }
}

// At the end of the window. Looks at no byte twice.
bool annex_b_walk::padding_follows() {
    if (!before_padding_.is_empty()) {
        return true;
    }
    const std::uint64_t held = searched_ - offset_;
    if (held < next_look_ || held > unit_before_zeros::largest) {
        return false;
    }
    next_look_ = held + padding_;
    const unsigned char* const last = stream_.at(searched_);
    return trailing_zeros(last - padding_, last) == padding_;
}

// The bytes of the unit up to `last`.
void annex_b_walk::take_out_of_window(const unsigned char* last) {
    if (!before_padding_.add(stream_.begin(), last)) {
        throw stream_.unit_too_large(offset_, unit_before_zeros::largest);
    }
    stream_.drop(static_cast<std::size_t>(last - stream_.begin()));
}

void annex_b_walk::take_last_bytes(nal_unit& unit) {
    stage_ = stage::end;
    const unsigned char* const start_code = start_code_without_header();
    if (start_code != stream_.end()) {
        unit.offset = stream_.place_of(start_code);
        unit.size = static_cast<std::uint64_t>(stream_.end() - start_code);
        unit.faults.emplace_back("start code at the end without a complete NAL unit header");
    }
}

// On the start code that the reader found.
void annex_b_walk::stand_at_start_code(std::uint64_t zeros_before) {
    stage_ = stage::unit;
    offset_ = stream_.place_of(reader_.nal_begin);
    prefix_ = zeros_before + start_code_size;
    header_ = reader_.nal;
}

// In the last bytes of the stream; the end of the stream where there is none.
unsigned char* annex_b_walk::start_code_without_header() const {
    unsigned char* p = stream_.at(searched_);
    for (; stream_.end() - p >= std::ptrdiff_t{start_code_size}; ++p) {
        if (p[0] == 0 && p[1] == 0 && p[2] == 1) {
            return p;
        }
    }
    return stream_.end();
}

}  // namespace kovran::inspect
