#include "output/destination.h"

#include "process/failure.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace kovran::inspect {
namespace {

// The path without links; empty where it does not lead to the file, as for one that was deleted.
std::string place_of(const std::string& path, const std::optional<file_descriptor>& existing) {
    std::error_code error;
    std::string place = std::filesystem::weakly_canonical(path, error).string();
    if (error || place.empty()) {
        return path;
    }
    if (existing) {
        struct stat there {};
        const struct stat opened = existing->status();
        const bool leads_there = ::stat(place.c_str(), &there) == 0 &&
                                 there.st_dev == opened.st_dev && there.st_ino == opened.st_ino;
        return leads_there ? place : std::string{};
    }
    return place;
}

}  // namespace

destination::destination(const std::string& path)
    : to_standard_output_(path == "-"),
      existing_(to_standard_output_ ? std::optional(file_descriptor::standard_output())
                                    : file_descriptor::open_existing_to_write(path)),
      name_(existing_ ? existing_->name() : path) {
    if (!to_standard_output_ && (!existing_ || S_ISREG(existing_->status().st_mode))) {
        place_ = place_of(path, existing_);
    }
}

destination::~destination() {
    if (!beside_.empty()) {
        ::unlink(beside_.c_str());
    }
}

file_descriptor destination::open() {
    if (!place_.empty()) {
        return open_beside();
    }
    if (!to_standard_output_) {
        existing_->truncate();
    }
    return std::move(*existing_);
}

file_descriptor destination::open_beside() {
    constexpr std::size_t longest_stem = 200;  // names of 255 bytes are possible
    const std::filesystem::path place(place_);
    const std::string stem = place.filename().string().substr(0, longest_stem);
    const std::string path =
        (place.parent_path() / (stem + ".part-" + std::to_string(::getpid()))).string();
    file_descriptor file = file_descriptor::create(path, name_);
    beside_ = path;
    if (existing_) {
        file.adopt_rights(existing_->status());
    }
    return file;
}

void destination::commit() {
    if (beside_.empty()) {
        return;
    }
    if (std::rename(beside_.c_str(), place_.c_str()) != 0) {
        throw system_failure(name_, errno);
    }
    beside_.clear();
}

std::string destination::after_failure() const {
    if (place_.empty()) {
        return name_ + " is incomplete";
    }
    return name_ + (existing_ ? " is unchanged" : " was not written");
}

}  // namespace kovran::inspect
