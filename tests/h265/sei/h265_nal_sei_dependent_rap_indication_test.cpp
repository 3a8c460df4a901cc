#include <kovran/h265/sei/h265_nal_sei_dependent_rap_indication.h>

#include <gtest/gtest.h>

#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiDependentRapIndication, HasNoElements) {
    test::expect_no_elements<h265_nal_sei_dependent_rap_indication>();
}

}  // namespace
}  // namespace kovran
