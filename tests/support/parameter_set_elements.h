#ifndef KOVRAN_TESTS_SUPPORT_PARAMETER_SET_ELEMENTS_H
#define KOVRAN_TESTS_SUPPORT_PARAMETER_SET_ELEMENTS_H

#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kovran::test {

// A syntax element with the standard's name, array indices in brackets.
struct element {
    std::string name;
    std::int64_t value;
};

// The syntax elements that a record was read from, in coded order up to the extension flag, as far
// as its fields tell. Reserved bits are left out.
std::vector<element> elements_of(const h265_nal_vps& vps);
std::vector<element> elements_of(const h265_nal_sps& sps);
std::vector<element> elements_of(const h265_nal_pps& pps);

// The same of a set of an SPS.
std::vector<element> elements_of(const h265_st_ref_pic_set& set);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_PARAMETER_SET_ELEMENTS_H
