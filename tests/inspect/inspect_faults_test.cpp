#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

outcome nals_of(const std::string& stream, const std::string& format) {
    return program({"nals", "-", "--json", "--format", format}).input(stream).run();
}

using list = std::vector<nlohmann::json>;

// The objects of the lines, without those fields of units that other tests hold.
list stretches(const outcome& result) {
    list all;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = result.out.find('\n', begin)) != std::string::npos;
         begin = end + 1) {
        nlohmann::json line = nlohmann::json::parse(result.out.substr(begin, end - begin));
        for (const char* const field :
             {"name", "nal_unit_type", "nuh_layer_id", "nuh_temporal_id_plus1", "prefix"}) {
            line.erase(field);
        }
        all.push_back(line);
    }
    return all;
}

nlohmann::json unit(int index, int offset, int size) {
    return {{"index", index}, {"offset", offset}, {"size", size}};
}

nlohmann::json unit(int index, int offset, int size, const std::vector<std::string>& faults) {
    return {{"index", index}, {"offset", offset}, {"size", size}, {"faults", faults}};
}

nlohmann::json no_unit(int offset, int size, const std::vector<std::string>& faults) {
    return {{"offset", offset}, {"size", size}, {"faults", faults}};
}

void expect_faults(const outcome& result, const list& expected) {
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(stretches(result), expected);
    std::string messages;
    for (const nlohmann::json& line : expected) {
        for (const nlohmann::json& fault : line.value("faults", nlohmann::json::array())) {
            messages += "kovran: standard input: ";
            if (line.contains("index")) {
                messages += "unit " + line.at("index").dump() + ' ';
            }
            messages += "at " + line.at("offset").dump() + ": " + fault.get<std::string>() + '\n';
        }
    }
    EXPECT_EQ(result.err, messages);
}

TEST(InspectFaults, BytesBeforeTheFirstStartCode) {
    expect_faults(nals_of(bytes("aabb 000001 40010c"), "annexb"),
                  {no_unit(0, 2, {"skipped 2 bytes before the first start code"}), unit(0, 5, 3)});
}

TEST(InspectFaults, ZeroBytesAroundThemAreFine) {
    const outcome result = nals_of(bytes("0000 aa 00 000001 40010c"), "annexb");
    expect_faults(result,
                  {no_unit(2, 1, {"skipped 1 byte before the first start code"}), unit(0, 7, 3)});
    EXPECT_NE(result.out.find("\"prefix\":4"), std::string::npos);
    EXPECT_EQ(nals_of(bytes("0000000000 000001 40010c"), "annexb").status, 0);
}

TEST(InspectFaults, ForbiddenZeroBitInsideTheUnitBefore) {
    expect_faults(nals_of(bytes("000001 40010c 000001 c0010d 000001 420101"), "annexb"),
                  {unit(0, 3, 9, {"ignored the start code at 6: forbidden_zero_bit is 1 after it"}),
                   unit(1, 15, 3)});
}

TEST(InspectFaults, ForbiddenZeroBitsAreCounted) {
    expect_faults(nals_of(bytes("000001 4001 000001 c001 000001 c001 000001 c001"), "annexb"),
                  {unit(0, 3, 17,
                        {"ignored the start code at 5: forbidden_zero_bit is 1 after it "
                         "(and 2 more)"})});
}

TEST(InspectFaults, ForbiddenZeroBitBeforeTheFirstUnit) {
    expect_faults(nals_of(bytes("000001 c0010d 000001 4001"), "annexb"),
                  {no_unit(2, 4,
                           {"skipped 4 bytes before the first start code",
                            "ignored the start code at 0: forbidden_zero_bit is 1 after it"}),
                   unit(0, 9, 2)});
}

TEST(InspectFaults, OnlyForbiddenZeroBits) {
    expect_faults(nals_of(bytes("000001 c0010d0e0f"), "annexb"),
                  {no_unit(2, 2, {"ignored the start code at 0: forbidden_zero_bit is 1 after it"}),
                   no_unit(0, 0, {"no NAL unit found"})});
}

TEST(InspectFaults, SequencesThatDoNotOccurInAUnit) {
    expect_faults(nals_of(bytes("000001 4001 000002 05"), "annexb"),
                  {unit(0, 3, 6, {"00 00 02 inside, at 5"})});
    expect_faults(nals_of(bytes("000001 4001 00000005 000002"), "annexb"),
                  {unit(0, 3, 9, {"00 00 00 inside, at 5 (and 1 more)"})});
    EXPECT_EQ(nals_of(bytes("000001 4001 00000300000305"), "annexb").status, 0);
}

TEST(InspectFaults, StartCodeMadeOfAHeader) {
    expect_faults(nals_of(bytes("000001 0000 01 05"), "annexb"),
                  {unit(0, 3, 4, {"nuh_temporal_id_plus1 is 0", "00 00 01 inside, at 3"})});
}

TEST(InspectFaults, TemporalIdOfNone) {
    expect_faults(nals_of(bytes("000001 4000 0c"), "annexb"),
                  {unit(0, 3, 3, {"nuh_temporal_id_plus1 is 0"})});
    const outcome text = program({"nals", "-"}).input(bytes("000001 4000 0c")).run();
    EXPECT_NE(text.out.find("   -1\n"), std::string::npos);
}

TEST(InspectFaults, StartCodeAtTheEnd) {
    const char fault[] = "start code at the end without a complete NAL unit header";
    expect_faults(nals_of(bytes("000001 40010c 000001"), "annexb"),
                  {unit(0, 3, 3), no_unit(6, 3, {fault})});
    expect_faults(nals_of(bytes("000001 40010c 00000001 42"), "annexb"),
                  {unit(0, 3, 3), no_unit(7, 4, {fault})});
    expect_faults(nals_of(bytes("000001 4001 000001"), "annexb"),
                  {unit(0, 3, 2), no_unit(5, 3, {fault})});
    expect_faults(nals_of(bytes("000001 40"), "annexb"),
                  {no_unit(0, 4, {fault}), no_unit(0, 0, {"no NAL unit found"})});
}

TEST(InspectFaults, NoUnitAtAll) {
    for (const char* const format : {"length8", "length16", "length24", "length32"}) {
        SCOPED_TRACE(format);
        expect_faults(nals_of("", format), {no_unit(0, 0, {"no NAL unit found"})});
    }
    expect_faults(nals_of("no video", "annexb"), {no_unit(0, 0, {"no NAL unit found"})});
    expect_faults(nals_of(std::string(100, '\0'), "annexb"),
                  {no_unit(0, 0, {"no NAL unit found"})});
}

TEST(InspectFaults, LengthOfZero) {
    const char fault[] = "nothing can be read after a length of 0";
    expect_faults(nals_of(bytes("0003 40010c 0000 0003 42010c"), "length16"),
                  {unit(0, 2, 3), no_unit(5, 2, {fault})});
    expect_faults(nals_of(bytes("00000000 000340010c"), "length32"),
                  {no_unit(0, 4, {fault}), no_unit(0, 0, {"no NAL unit found"})});
}

TEST(InspectFaults, LengthOfOne) {
    expect_faults(
        nals_of(bytes("01 40 03 42010c"), "length8"),
        {no_unit(0, 2, {"a length of 1 leaves no room for a NAL unit header"}), unit(0, 3, 3)});
}

TEST(InspectFaults, UnitCutShort) {
    expect_faults(nals_of(bytes("000003 40010c 00ffff 42010101"), "length24"),
                  {unit(0, 3, 3), unit(1, 9, 4, {"truncated: 4 of 65535 bytes are present"})});
    expect_faults(nals_of(bytes("ffffffff 4001"), "length32"),
                  {unit(0, 4, 2, {"truncated: 2 of 4294967295 bytes are present"})});
}

TEST(InspectFaults, ForbiddenZeroBitAfterALength) {
    const char fault[] = "skipped a NAL unit whose forbidden_zero_bit is 1";
    expect_faults(nals_of(bytes("0003 c0010c 0002 4001"), "length16"),
                  {no_unit(0, 5, {fault}), unit(0, 7, 2)});
    expect_faults(nals_of(bytes("0002 4001 00ff c0010c"), "length16"),
                  {unit(0, 2, 2), no_unit(4, 5, {fault})});
}

TEST(InspectFaults, BytesLeftOver) {
    expect_faults(
        nals_of(bytes("0003 40010c 000342"), "length16"),
        {unit(0, 2, 3),
         no_unit(5, 3, {"3 bytes at the end are too few for a length and a NAL unit header"})});
}

TEST(InspectFaults, SequencesInsideALengthPrefixedUnit) {
    expect_faults(nals_of(bytes("08 4001 000001 c00102"), "length8"),
                  {unit(0, 1, 8, {"00 00 01 inside, at 3"})});
    expect_faults(nals_of(bytes("05 4001 000000"), "length8"),
                  {unit(0, 1, 5, {"00 00 00 inside, at 3"})});
}

// An SPS that is cut off, a PPS that is, twice, and slices without a PPS. By the library's own
// rules the SPS needs its VPS and the PPS the SPS first.
TEST(InspectFaults, AParameterSetThatIsMissingIsToldWithItsFirstLoss) {
    const std::string stream =
        bytes("000001 420101 000001 4401c0 000001 4401c0 000001 0201e0 000001 0201a0");
    const std::string from = "kovran: standard input: ";
    EXPECT_EQ(program({"info", "-"}).input(stream).run().err,
              from +
                  "unit 0 at 3: the SPS cannot be read: the data ends before the end of "
                  "profile_tier_level.general_profile_space at bit 8\n" +
                  from +
                  "unit 1 at 9: the PPS cannot be read: the data ends before the end of "
                  "cabac_init_present_flag at bit 8\n" +
                  from +
                  "unit 3 at 21: PPS 0, which this slice uses, is missing: "
                  "the PPS of unit 1 could not be read\n" +
                  from + "unit 4 at 27: PPS 1, which this slice uses, is missing\n" + from +
                  "unit 2 at 15: the PPS cannot be read: the data ends before the end of "
                  "cabac_init_present_flag at bit 8; last of 2 such faults\n");
    EXPECT_EQ(program({"info", "-", "--rules", "own"}).input(stream).run().err,
              from + "unit 0 at 3: VPS 0, which this SPS uses, is missing\n" +  //
                  from +
                  "unit 1 at 9: SPS 0, which this PPS uses, is missing: "
                  "the SPS of unit 0 could not be read\n" +
                  from +
                  "unit 3 at 21: PPS 0, which this slice uses, is missing: "
                  "the PPS of unit 1 could not be read\n" +
                  from + "unit 4 at 27: PPS 1, which this slice uses, is missing\n" + from +
                  "unit 2 at 15: SPS 0, which this PPS uses, is missing: "
                  "the SPS of unit 0 could not be read; last of 2 such faults\n");
}

TEST(InspectFaults, EqualFaultsAreCounted) {
    std::string stream;
    for (int i = 0; i < 4800; ++i) {
        stream += bytes("000001 0201e0");
    }
    const std::string fault = "PPS 0, which this slice uses, is missing";
    for (const char* const verb : {"info", "dump", "trace", "differences"}) {
        const outcome result = program({verb, "-"}).input(stream).run();
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "kovran: standard input: unit 0 at 3: " + fault +
                                  "\nkovran: standard input: unit 4799 at 28797: " + fault +
                                  "; last of 4800 such faults\n");
    }
    // For programs each unit has its own.
    const outcome json = program({"dump", "--json", "-"}).input(stream).run();
    std::size_t units_with_fault = 0;
    for (const nlohmann::json& unit_of_stream : stretches(json)) {
        units_with_fault += unit_of_stream.value("faults", list{}) == list{fault} ? 1U : 0U;
    }
    EXPECT_EQ(units_with_fault, 4800U);
}

// Each tells another place.
TEST(InspectFaults, MoreTextsThanCanBeKeptAreCounted) {
    std::string stream;
    for (int i = 0; i < 1000; ++i) {
        stream += bytes("000001 4001 000002 05");
    }
    const outcome result = program({"nals", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 257);
    EXPECT_NE(result.err.find("kovran: standard input: unit 255 at 2298: 00 00 02 "),
              std::string::npos);
    const std::string last = "kovran: standard input: and 744 more faults\n";
    EXPECT_EQ(result.err.substr(result.err.size() - last.size()), last);
}

TEST(InspectFaults, AreCountedUpToAFailure) {
    const std::string stream = bytes("000001 4000 000001 4200");
    EXPECT_EQ(program({"nals", "-", "--nal", "2"}).input(stream).run().err,
              "kovran: standard input: unit 0 at 3: nuh_temporal_id_plus1 is 0\n"
              "kovran: standard input: unit 1 at 8: nuh_temporal_id_plus1 is 0; "
              "last of 2 such faults\n"
              "kovran: standard input: there is no NAL unit 2; the stream has 2 NAL units, 0 to "
              "1\n");
}

TEST(InspectFaults, AreToldOfUnitsThatAreNotShown) {
    const std::string stream = bytes("000001 4000 000001 4201 05");
    const outcome result = program({"nals", "-", "--type", "33"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "kovran: standard input: unit 0 at 3: nuh_temporal_id_plus1 is 0\n");
    EXPECT_EQ(result.out.find("VPS_NUT"), std::string::npos);
}

// In a length-prefixed stream, zero bytes behind the trailing bits are part of the unit.
TEST(InspectFaults, ZeroBytesBehindMessagesAreFine) {
    const auto dump_of = [](const std::string& units) {
        return program({"dump", "-", "--format", "length8"}).input(bytes(units)).run();
    };
    for (const char* const unit : {"06 5001 6401aa 80", "07 5001 6401aa 80 00",
                                   "08 5001 6401aa 80 0000", "0b 5001 6401aa 80 0000 03 0000"}) {
        const outcome result = dump_of(unit);
        EXPECT_EQ(result.status, 0) << unit;
        EXPECT_EQ(result.err, "") << unit;
        EXPECT_NE(result.out.find("(payload type 100, 1 bytes)"), std::string::npos) << unit;
        EXPECT_EQ(result.out.find("payload type 0"), std::string::npos) << unit;
    }
    // Of two zero bytes before the stop bit a message of type 0 and no bytes is made.
    const outcome inside = dump_of("08 5001 6401aa 0000 80");
    EXPECT_EQ(inside.status, 1);
    EXPECT_NE(inside.out.find("(payload type 0, 0 bytes)"), std::string::npos);
    // Of one, a message whose size is that of the stop bit.
    const outcome one = dump_of("07 5001 6401aa 00 80");
    EXPECT_EQ(one.status, 1);
    EXPECT_NE(one.err.find("unit 0 at 1: SEI message buffering_period is truncated: 0 of 128 "
                           "bytes are present\n"),
              std::string::npos);
    const outcome without_stop_bit = dump_of("07 5001 6401aa 0000");
    EXPECT_EQ(without_stop_bit.status, 1);
    EXPECT_EQ(without_stop_bit.err,
              "kovran: standard input: unit 0 at 1: "
              "the SEI messages are not followed by valid trailing bits\n");
}

TEST(InspectFaults, MessagesAreFollowedByTrailingBits) {
    for (const char* const ending : {"80", "8000", "c0", "81", "40", ""}) {
        const std::string unit = bytes("5001 6401aa") + bytes(ending);
        const outcome result =
            program({"dump", "-", "--format", "length8"}).input(length_prefixed({unit}, 1)).run();
        EXPECT_EQ(result.status, std::string(ending).rfind("80", 0) == 0 ? 0 : 1) << ending;
    }
}

TEST(InspectFaults, TheFirstLossOfEachParameterSetIsTold) {
    // PPS 63, twice, with nothing behind the identifiers; slices that name it and PPS 62.
    const std::string broken_pps = bytes("000001 4401 0205 80");
    const std::string slice_of_63 = bytes("000001 0201 810040");
    const std::string from = "kovran: standard input: ";
    const outcome result =
        program({"dump", "-"}).input(broken_pps + broken_pps + slice_of_63).run();
    EXPECT_NE(result.err.find(from + "unit 2 at 19: PPS 63, which this slice uses, is missing: "
                                     "the PPS of unit 0 could not be read\n"),
              std::string::npos)
        << result.err;
}

// The bit behind the elements of each parameter set is 0 instead of rbsp_stop_one_bit.
TEST(InspectFaults, MalformedTrailingBitsOfEachParameterSetAreTold) {
    const auto error_of = [](h265_nal_unit_type type, bit_writer payload) {
        payload.u<1>(0);
        return program({"dump", "-"}).input(annex_b_unit(type, payload.trailing_bits())).run().err;
    };
    const auto message = [](const std::string& set, std::size_t bit) {
        return "kovran: standard input: unit 0 at 4: the " + set +
               " was read, but malformed trailing bits: rbsp_stop_one_bit at bit " +
               std::to_string(bit) + " is 0\n";
    };
    EXPECT_EQ(error_of(VPS_NUT, vps_syntax().payload()),
              message("VPS", vps_syntax().payload().size()));
    EXPECT_EQ(error_of(SPS_NUT, sps_syntax().payload()),
              message("SPS", sps_syntax().payload().size()));
    EXPECT_EQ(error_of(PPS_NUT, pps_syntax().payload()),
              message("PPS", pps_syntax().payload().size()));
}

// Digit groups: first_slice_segment_in_pic_flag, no_output_of_prior_pics_flag,
// slice_pic_parameter_set_id, slice_type, slice_qp_delta, alignment_bit_equal_to_one as 0.
TEST(InspectFaults, AMalformedAlignmentBehindASliceSegmentHeaderIsTold) {
    const bit_writer slice = bit_writer().u<1>(1).u<1>(0).ue(0).ue(2).se(0).u<1>(0);
    const std::string sets = annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                             annex_b_unit(SPS_NUT, sps_syntax().rbsp()) +
                             annex_b_unit(PPS_NUT, pps_syntax().rbsp());
    const outcome result =
        program({"dump", "-"}).input(sets + annex_b_unit(IDR_W_RADL, slice)).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "kovran: standard input: unit 3 at " + std::to_string(sets.size() + 4) +
                              ": the slice segment header was read, but malformed trailing bits: "
                              "alignment_bit_equal_to_one at bit 7 is 0\n");
}

TEST(InspectFaults, ALostVpsExplainsWhatItMisses) {
    // A VPS that ends behind its identifier; active parameter sets, and an SPS, that name it.
    const std::string vps = bytes("000001 4001 0c");
    const std::string from = "kovran: standard input: ";
    const outcome message =
        program({"dump", "-"}).input(vps + bytes("000001 4e01 810104 80")).run();
    EXPECT_NE(message.err.find(from + "unit 1 at 9: SEI message active_parameter_sets cannot be "
                                      "read: VPS 0, which this message uses, is missing: "
                                      "the VPS of unit 0 could not be read\n"),
              std::string::npos)
        << message.err;
}

TEST(InspectFaults, AreOfTheirOwnUnitOnly) {
    // A broken delimiter between good ones.
    const outcome result = program({"dump", "--json", "-"})
                               .input(bytes("000001 460150 000001 460140 000001 460150"))
                               .run();
    EXPECT_EQ(stretches(result).at(0).count("fault"), 0U);
    EXPECT_EQ(stretches(result).at(1).count("fault"), 1U);
    EXPECT_EQ(stretches(result).at(2).count("fault"), 0U);
    EXPECT_EQ(stretches(result).at(2).count("faults"), 0U);
    EXPECT_EQ(result.status, 1);
}

TEST(InspectFaults, TwoHundredFiftySixTextsAreKept) {
    const auto errors_of = [](int units) {
        std::string stream;
        for (int i = 0; i < units; ++i) {
            stream += bytes("000001 4001 000002 05");
        }
        return program({"nals", "-"}).input(stream).run().err;
    };
    const auto lines_of = [](const std::string& text) {
        return std::count(text.begin(), text.end(), '\n');
    };
    EXPECT_EQ(lines_of(errors_of(255)), 255);
    EXPECT_EQ(lines_of(errors_of(256)), 256);
    EXPECT_EQ(lines_of(errors_of(258)), 257);
    EXPECT_EQ(errors_of(256).find("more"), std::string::npos);
    EXPECT_NE(errors_of(257).find("\nkovran: standard input: and 1 more fault\n"),
              std::string::npos);
}

TEST(InspectFaults, AFaultThatComesAgainIsToldAtItsLastPlace) {
    const outcome result = program({"nals", "-"})
                               .input(bytes("000001 4000 000001 4200 000001 4401 000001 4400"))
                               .run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 0 at 3: nuh_temporal_id_plus1 is 0\n"
              "kovran: standard input: unit 3 at 18: nuh_temporal_id_plus1 is 0; "
              "last of 3 such faults\n");
}

}  // namespace
}  // namespace kovran::test
