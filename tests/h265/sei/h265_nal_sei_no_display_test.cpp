#include <kovran/h265/sei/h265_nal_sei_no_display.h>

#include <gtest/gtest.h>

#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiNoDisplay, HasNoElements) {
    test::expect_no_elements<h265_nal_sei_no_display>();
}

}  // namespace
}  // namespace kovran
