#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_DESTINATION_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_DESTINATION_H

#include "input/file_descriptor.h"

#include <optional>
#include <string>

namespace kovran::inspect {

// Where a copy goes. A regular file, or one that is not there yet, is written under another name
// beside its place and takes that in commit(): until then nothing that was there is lost, not even
// an input that is the same file under another name. Pipes, devices and standard output ("-") are
// written directly.
class destination {
public:
    explicit destination(const std::string& path);
    destination(const destination&) = delete;
    destination& operator=(const destination&) = delete;
    // Without a commit() what was written beside is removed.
    ~destination();

    // What stands there now, if anything does.
    [[nodiscard]] const std::optional<file_descriptor>& existing() const { return existing_; }
    // What is to be written, under the name of the destination. To be called once.
    [[nodiscard]] file_descriptor open();
    // To be called when all is written and closed.
    void commit();

    // What a failure before commit() means for the destination: "out is unchanged".
    [[nodiscard]] std::string after_failure() const;

private:
    [[nodiscard]] file_descriptor open_beside();

    bool to_standard_output_;
    std::optional<file_descriptor> existing_;
    std::string name_;
    std::string place_;   // where links lead to; empty when written directly
    std::string beside_;  // empty before open() and after commit()
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_DESTINATION_H
