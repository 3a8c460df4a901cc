#include "units/annex_b_walk.h"

#include "units/leading_bytes.h"
#include "units/unit_faults.h"

#include <cstddef>

namespace kovran::inspect {
namespace {

constexpr std::size_t header_size = 2;
constexpr std::size_t start_code_size = 3;

// Trailing zero bytes belong to no unit (clause B.2.2).
unsigned char* without_trailing_zeros(unsigned char* first, unsigned char* last) {
    while (last != first && last[-1] == 0) {
        --last;
    }
    return last;
}

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
        found = find_start_code_at_hand();
        leading.add(stream_, stream_.at(searched_));
        stream_.drop(static_cast<std::size_t>(searched_ - stream_.offset()));
    } while (!found && stream_.read_more());
    leading.describe(unit, found);
    if (!found) {
        stage_ = stage::last_bytes;
        return;
    }
    stand_at_start_code(stream_.begin());
    prefix_ += leading.zeros_at_end();
}

void annex_b_walk::take_unit(nal_unit& unit) {
    stream_.drop(static_cast<std::size_t>(offset_ - stream_.offset()));
    searched_ = offset_ + header_size;
    bool found = false;
    do {
        found = find_start_code_at_hand();
    } while (!found && stream_.read_more());

    unsigned char* const last = without_trailing_zeros(
        stream_.begin() + header_size, found ? reader_.frame_begin : start_code_without_header());
    unit.readable = true;
    unit.index = index_++;
    unit.offset = offset_;
    unit.prefix = prefix_;
    unit.size = static_cast<std::uint64_t>(last - stream_.begin());
    unit.bytes = stream_.begin();
    unit.header = header_;
    add_unit_faults(unit, nalfmt_annex_b);
    if (found) {
        stand_at_start_code(last);
    } else {
        stage_ = stage::last_bytes;
    }
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

// On the start code that the reader found, whose zero bytes begin at `zero_bytes`.
void annex_b_walk::stand_at_start_code(const unsigned char* zero_bytes) {
    stage_ = stage::unit;
    offset_ = stream_.place_of(reader_.nal_begin);
    prefix_ = static_cast<std::uint64_t>(reader_.nal_begin - zero_bytes);
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
