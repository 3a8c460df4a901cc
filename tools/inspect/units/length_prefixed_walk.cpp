#include "units/length_prefixed_walk.h"

#include "units/unit_faults.h"

#include <algorithm>

#include <fmt/format.h>

namespace kovran::inspect {

bool length_prefixed_walk::take_next(nal_unit& unit) {
    if (cannot_go_on_) {
        return false;
    }
    stream_.drop(taken_);
    scan();
    if (stream_.size() == 0) {
        return false;
    }
    taken_ = static_cast<std::size_t>(reader_.cursor - stream_.begin());
    cannot_go_on_ = reader_.need_more_data || length_is_zero();
    unit.offset = stream_.offset();
    const bool has_header = reader_.nal_length >= 2;
    if (reader_.found && has_header) {
        describe_unit(unit);
    } else {
        describe_bytes(unit);
    }
    return true;
}

void length_prefixed_walk::scan() {
    reader_.scan(stream_.begin(), stream_.end());
    for (bool more = true; more && wants_more();) {
        more = stream_.read_more();
        reader_.scan(stream_.begin(), stream_.end());  // the bytes may have moved even at the end
    }
}

bool length_prefixed_walk::length_is_zero() const {
    return reader_.gave_up && std::all_of(stream_.begin(), stream_.begin() + prefix_size_,
                                          [](unsigned char byte) { return byte == 0; });
}

// A unit passed over may also go on behind the window, which the reader does not tell.
bool length_prefixed_walk::wants_more() const {
    return reader_.need_more_data ||
           (reader_.gave_up && reader_.cursor == stream_.end() && !length_is_zero());
}

void length_prefixed_walk::describe_bytes(nal_unit& unit) const {
    unit.size = taken_;
    if (reader_.found) {
        unit.faults.emplace_back("a length of 1 leaves no room for a NAL unit header");
    } else if (length_is_zero()) {
        unit.size = prefix_size_;
        unit.faults.emplace_back("nothing can be read after a length of 0");
    } else if (reader_.gave_up) {
        unit.faults.emplace_back("skipped a NAL unit whose forbidden_zero_bit is 1");
    } else {
        unit.size = stream_.size();
        unit.faults.push_back(fmt::format(
            "{} bytes at the end are too few for a length and a NAL unit header", unit.size));
    }
}

void length_prefixed_walk::describe_unit(nal_unit& unit) {
    const auto size_there = static_cast<std::uint64_t>(stream_.end() - reader_.nal_begin);
    unit.readable = true;
    unit.index = index_++;
    unit.offset += prefix_size_;
    unit.prefix = prefix_size_;
    unit.size = std::min<std::uint64_t>(reader_.nal_length, size_there);
    unit.bytes = reader_.nal_begin;
    unit.header = reader_.nal;
    if (unit.size != reader_.nal_length) {
        unit.faults.push_back(
            fmt::format("truncated: {} of {} bytes are present", unit.size, reader_.nal_length));
    }
    add_unit_faults(unit, reader_.nalfmt);
}

}  // namespace kovran::inspect
