#ifndef KOVRAN_TOOLS_INSPECT_UNITS_FORBIDDEN_SEQUENCE_H
#define KOVRAN_TOOLS_INSPECT_UNITS_FORBIDDEN_SEQUENCE_H

namespace kovran::inspect {

// The first place of [first, last) with 00 00 00, 00 00 01 or 00 00 02, none of which may occur in
// a NAL unit (clause 7.4.2); `last` where there is none.
[[nodiscard]] const unsigned char* find_forbidden_sequence(const unsigned char* first,
                                                           const unsigned char* last);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_FORBIDDEN_SEQUENCE_H
