#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "reading_elements.h"
#include "readings.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

// ---- Text

// Worked out from the reading of the stream.
const char dump_of_hm_still[] =
    R"(rules: standard
unit 0 at 4: VPS_NUT, 24 bytes, layer 0, temporal id 0
  vps_video_parameter_set_id                          0
  vps_base_layer_internal_flag                        1
  vps_base_layer_available_flag                       1
  vps_max_layers_minus1                               0
  vps_max_sub_layers_minus1                           0
  vps_temporal_id_nesting_flag                        1
  vps_reserved_0xffff_16bits                          65535
  profile_tier_level
    general_profile_space                             0
    general_tier_flag                                 0  (Main tier)
    general_profile_idc                               3  (Main Still Picture)
    general_profile_compatibility_flag[0..31]         0 0 0 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0
    general_progressive_source_flag                   0
    general_interlaced_source_flag                    0
    general_non_packed_constraint_flag                0
    general_frame_only_constraint_flag                0
    general_reserved_zero_43bits                      0
    general_inbld_flag                                0
    general_level_idc                                 123  (level 4.1)
  vps_sub_layer_ordering_info_present_flag            1
  vps_max_dec_pic_buffering_minus1[0]                 0
  vps_max_num_reorder_pics[0]                         0
  vps_max_latency_increase_plus1[0]                   0
  vps_max_layer_id                                    0
  vps_num_layer_sets_minus1                           0
  vps_timing_info_present_flag                        0
  vps_extension_flag                                  0

unit 1 at 32: SPS_NUT, 30 bytes, layer 0, temporal id 0
  sps_video_parameter_set_id                          0
  sps_max_sub_layers_minus1                           0
  sps_temporal_id_nesting_flag                        1
  profile_tier_level
    general_profile_space                             0
    general_tier_flag                                 0  (Main tier)
    general_profile_idc                               3  (Main Still Picture)
    general_profile_compatibility_flag[0..31]         0 0 0 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0
    general_progressive_source_flag                   0
    general_interlaced_source_flag                    0
    general_non_packed_constraint_flag                0
    general_frame_only_constraint_flag                0
    general_reserved_zero_43bits                      0
    general_inbld_flag                                0
    general_level_idc                                 123  (level 4.1)
  sps_seq_parameter_set_id                            0
  chroma_format_idc                                   1  (4:2:0)
  pic_width_in_luma_samples                           96
  pic_height_in_luma_samples                          80
  conformance_window_flag                             1
  conf_win_left_offset                                0
  conf_win_right_offset                               0
  conf_win_top_offset                                 0
  conf_win_bottom_offset                              0
  bit_depth_luma_minus8                               0
  bit_depth_chroma_minus8                             0
  log2_max_pic_order_cnt_lsb_minus4                   4
  sps_sub_layer_ordering_info_present_flag            1
  sps_max_dec_pic_buffering_minus1[0]                 0
  sps_max_num_reorder_pics[0]                         0
  sps_max_latency_increase_plus1[0]                   0
  log2_min_luma_coding_block_size_minus3              0
  log2_diff_max_min_luma_coding_block_size            3
  log2_min_luma_transform_block_size_minus2           0
  log2_diff_max_min_luma_transform_block_size         3
  max_transform_hierarchy_depth_inter                 2
  max_transform_hierarchy_depth_intra                 2
  scaling_list_enabled_flag                           0
  amp_enabled_flag                                    1
  sample_adaptive_offset_enabled_flag                 1
  pcm_enabled_flag                                    0
  num_short_term_ref_pic_sets                         2
  st_ref_pic_set[0]
    num_negative_pics                                 0
    num_positive_pics                                 0
  st_ref_pic_set[1]
    inter_ref_pic_set_prediction_flag                 0
    num_negative_pics                                 0
    num_positive_pics                                 0
  long_term_ref_pics_present_flag                     0
  sps_temporal_mvp_enabled_flag                       1
  strong_intra_smoothing_enabled_flag                 1
  vui_parameters_present_flag                         0
  sps_extension_present_flag                          0

unit 2 at 66: PPS_NUT, 7 bytes, layer 0, temporal id 0
  pps_pic_parameter_set_id                            0
  pps_seq_parameter_set_id                            0
  dependent_slice_segments_enabled_flag               0
  output_flag_present_flag                            0
  num_extra_slice_header_bits                         0
  sign_data_hiding_enabled_flag                       1
  cabac_init_present_flag                             1
  num_ref_idx_l0_default_active_minus1                3
  num_ref_idx_l1_default_active_minus1                3
  init_qp_minus26                                     0
  constrained_intra_pred_flag                         0
  transform_skip_enabled_flag                         1
  cu_qp_delta_enabled_flag                            0
  pps_cb_qp_offset                                    0
  pps_cr_qp_offset                                    0
  pps_slice_chroma_qp_offsets_present_flag            0
  weighted_pred_flag                                  0
  weighted_bipred_flag                                0
  transquant_bypass_enabled_flag                      0
  tiles_enabled_flag                                  0
  entropy_coding_sync_enabled_flag                    0
  pps_loop_filter_across_slices_enabled_flag          1
  deblocking_filter_control_present_flag              0
  pps_scaling_list_data_present_flag                  0
  lists_modification_present_flag                     0
  log2_parallel_merge_level_minus2                    0
  slice_segment_header_extension_present_flag         0
  pps_extension_present_flag                          0

unit 3 at 76: IDR_W_RADL, 752 bytes, layer 0, temporal id 0
  first_slice_segment_in_pic_flag                     1
  no_output_of_prior_pics_flag                        0
  slice_pic_parameter_set_id                          0
  slice_type                                          2  (I)
  slice_sao_luma_flag                                 1
  slice_sao_chroma_flag                               1
  slice_qp_delta                                      12
  slice_loop_filter_across_slices_enabled_flag        1

unit 4 at 831: SUFFIX_SEI_NUT, 54 bytes, layer 0, temporal id 0
  decoded_picture_hash                                (payload type 132, 49 bytes)
    hash_type                                         0  (MD5)
    picture_md5[0][0..15]                             211 231 240 113 26 227 212 141 137 176 133 179 221 36 1 23
    picture_md5[1][0..15]                             91 40 162 69 192 65 236 82 209 219 48 150 253 123 139 167
    picture_md5[2][0..15]                             195 154 227 140 23 13 55 85 48 10 165 115 255 140 202 40
    = Y d3e7f0711ae3d48d89b085b3dd240117, Cb 5b28a245c041ec52d1db3096fd7b8ba7, Cr c39ae38c170d3755300aa573ff8cca28

)";

TEST(InspectDump, ShowsAWholeStream) {
    const outcome result = run({"dump", stream_path("hm_still")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, dump_of_hm_still);
}

// The lines "element  value  (meaning)" of a dump, without spaces before and with one in between.
std::set<std::string> lines_of(const std::string& dump) {
    std::set<std::string> lines;
    std::istringstream text(dump);
    for (std::string line; std::getline(text, line);) {
        std::string shortened;
        for (const char letter : line) {
            if (letter != ' ' || (!shortened.empty() && shortened.back() != ' ')) {
                shortened += letter;
            }
        }
        lines.insert(shortened);
    }
    return lines;
}

// That the dump has a line that begins with the first text and holds the second one behind it.
void expect_meaning(const std::string& stream, const std::string& element_and_value,
                    const std::string& meaning) {
    static std::map<std::string, std::set<std::string>> dumps;
    std::set<std::string>& lines = dumps[stream];
    if (lines.empty()) {
        lines = lines_of(run({"dump", stream_path(stream)}).out);
    }
    const auto line = lines.lower_bound(element_and_value + " (");
    ASSERT_NE(line, lines.end()) << element_and_value;
    EXPECT_EQ(line->substr(0, element_and_value.size()), element_and_value) << stream;
    EXPECT_NE(line->find(meaning, element_and_value.size()), std::string::npos) << *line;
}

TEST(InspectDump, NamesProfileTierAndLevel) {
    expect_meaning("main_default", "general_profile_idc 1", "(Main)");
    expect_meaning("svt_main10", "general_profile_idc 2", "(Main 10)");
    expect_meaning("mainstill", "general_profile_idc 3", "(Main Still Picture)");
    expect_meaning("mono400", "general_profile_idc 4", "range extensions");
    expect_meaning("x265_42_scc2", "general_profile_idc 9", "screen content coding extensions");
    expect_meaning("main_default", "general_tier_flag 0", "(Main tier)");
    expect_meaning("kvazaar_high_tier", "general_tier_flag 1", "(High tier)");
    expect_meaning("vui_gbr", "general_level_idc 30", "(level 1)");
    expect_meaning("mainstill", "general_level_idc 60", "(level 2)");
    expect_meaning("svt_tiles", "general_level_idc 93", "(level 3.1)");
    expect_meaning("hm_still", "general_level_idc 123", "(level 4.1)");
    expect_meaning("uhdbd", "general_level_idc 153", "(level 5.1)");
    expect_meaning("kvazaar_vui_full", "general_level_idc 186", "(level 6.2)");
}

TEST(InspectDump, NamesChromaFormatAndAspectRatio) {
    expect_meaning("mono400", "chroma_format_idc 0", "(monochrome)");
    expect_meaning("main_default", "chroma_format_idc 1", "(4:2:0)");
    expect_meaning("confwin_422", "chroma_format_idc 2", "(4:2:2)");
    expect_meaning("vui_gbr", "chroma_format_idc 3", "(4:4:4)");
    expect_meaning("vui_gbr", "aspect_ratio_idc 1", "(1:1)");
    expect_meaning("vui_sar_idc", "aspect_ratio_idc 2", "(12:11)");
    expect_meaning("kvazaar_vui_full", "aspect_ratio_idc 5", "(40:33)");
}

TEST(InspectDump, NamesTheColours) {
    expect_meaning("vui_gbr", "video_format 0", "(Component)");
    expect_meaning("vui_overscan_crop", "video_format 1", "(PAL)");
    expect_meaning("kvazaar_vui_full", "video_format 3", "(SECAM)");
    expect_meaning("vui_bt2020", "video_format 5", "(Unspecified)");
    expect_meaning("vui_gbr", "colour_primaries 1", "BT.709");
    expect_meaning("vui_bt2020", "colour_primaries 9", "BT.2020");
    expect_meaning("vui_gbr", "transfer_characteristics 13", "IEC 61966-2-1");
    expect_meaning("kvazaar_vui_full", "transfer_characteristics 14", "BT.2020 10 bit");
    expect_meaning("vui_bt2020", "transfer_characteristics 16", "ST 2084");
    expect_meaning("vui_gbr", "matrix_coeffs 0", "GBR");
    expect_meaning("vui_bt2020", "matrix_coeffs 9", "BT.2020 non-constant luminance");
}

TEST(InspectDump, NamesSlicesAndPictures) {
    expect_meaning("ff_default", "slice_type 0", "(B)");
    expect_meaning("ff_default", "slice_type 1", "(P)");
    expect_meaning("ff_default", "slice_type 2", "(I)");
    expect_meaning("field_bff_hrd", "pic_struct 3", "(Top field, bottom field, in that order)");
    expect_meaning("field_bff_hrd", "source_scan_type 0", "(interlaced)");
    expect_meaning("turing_field", "pic_struct 1", "(Top field)");
    expect_meaning("turing_field", "source_scan_type 2", "(unknown)");
    expect_meaning("field_bff_hrd", "pic_type 0", "I slices");
    expect_meaning("field_bff_hrd", "pic_type 1", "P and I slices");
    expect_meaning("field_bff_hrd", "pic_type 2", "B, P and I slices");
}

TEST(InspectDump, KnowsReservedValues) {
    const std::string stream = bytes("000001 460170");  // pic_type 3
    const std::set<std::string> lines = lines_of(program({"dump", "-"}).input(stream).run().out);
    EXPECT_EQ(lines.count("pic_type 3 (reserved, not allowed here)"), 1U);
}

TEST(InspectDump, NamesSeiMessagesByTypeAndUnit) {
    // Type 131 is that of a prefix message only, 100 that of none.
    const std::string stream = bytes("000001 4e01 83021234 80 000001 5001 6401aa 80");
    const outcome result = program({"dump", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 0);
    const std::set<std::string> lines = lines_of(result.out);
    EXPECT_EQ(lines.count("temporal_sub_layer_zero_idx (payload type 131, 2 bytes)"), 1U);
    EXPECT_EQ(lines.count("irap_pic_id 52"), 1U);
    EXPECT_EQ(lines.count("payload_type_100 (payload type 100, 1 bytes)"), 1U);
    EXPECT_EQ(lines.count("payload aa"), 1U);
}

TEST(InspectDump, ReadsAMessageInTheOtherKindOfUnitAndTellsIt) {
    // recovery_point() with se(v) 0, 1 and 0; the next type has no name.
    const outcome suffix =
        program({"dump", "-"}).input(bytes("000001 5001 0601d0 6401aa 80")).run();
    EXPECT_EQ(suffix.status, 1);
    EXPECT_EQ(suffix.err,
              "kovran: standard input: unit 0 at 3: SEI message recovery_point stands in a suffix "
              "SEI unit, where its type is reserved\n");
    EXPECT_EQ(lines_of(suffix.out).count("exact_match_flag 1"), 1U);
    const std::string crc = bytes("000001 4e01 8403 01abcd 80");  // without chroma_format_idc
    EXPECT_NE(program({"dump", "-"})
                  .input(crc)
                  .run()
                  .err.find("SEI message decoded_picture_hash stands in a prefix SEI unit, where "
                            "its type is reserved\n"),
              std::string::npos);
}

TEST(InspectDump, KeepsTheBytesOfAMessageThatCannotBeRead) {
    // A UUID has 16 bytes.
    const outcome result = program({"dump", "-"}).input(bytes("000001 4e01 0502aabb 80")).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 0 at 3: SEI message user_data_unregistered cannot be "
              "read: the data ends before the end of uuid_iso_iec_11578 at bit 16\n");
    EXPECT_EQ(lines_of(result.out).count("payload aabb"), 1U);
}

std::vector<std::string> headings_of(const std::string& dump) {
    std::vector<std::string> headings;
    std::istringstream text(dump);
    for (std::string line; std::getline(text, line);) {
        if (line.rfind("unit ", 0) == 0) {
            headings.push_back(line.substr(0, line.find(',')));
        }
    }
    return headings;
}

TEST(InspectDump, SelectsUnits) {
    using list = std::vector<std::string>;
    const std::string path = stream_path("hm_still");
    const auto shown = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"dump", path});
        return headings_of(run(options).out);
    };
    EXPECT_EQ(shown({"--nal", "0"}), list{"unit 0 at 4: VPS_NUT"});
    EXPECT_EQ(shown({"--nal", "4"}), list{"unit 4 at 831: SUFFIX_SEI_NUT"});
    EXPECT_EQ(shown({"--layer", "0"}).size(), 5U);
    EXPECT_EQ(shown({"--type", "sps_nut"}), list{"unit 1 at 32: SPS_NUT"});
    EXPECT_EQ(shown({"--type", "32,34"}), (list{"unit 0 at 4: VPS_NUT", "unit 2 at 66: PPS_NUT"}));
    EXPECT_EQ(shown({"--type", "63"}), list{});
    EXPECT_EQ(shown({"--limit", "1"}), list{"unit 0 at 4: VPS_NUT"});
    EXPECT_EQ(shown({"--limit", "0"}), list{});
    EXPECT_EQ(shown({"--limit", "1", "--type", "19"}), list{"unit 3 at 76: IDR_W_RADL"});
    EXPECT_EQ(shown({"--limit", "9"}).size(), 5U);
}

TEST(InspectDump, ASelectionThatTheStreamLacksIsAFailure) {
    const std::string path = stream_path("hm_still");
    for (const char* const verb : {"dump", "trace"}) {
        const outcome unit = run({verb, path, "--nal", "5"});
        EXPECT_EQ(unit.status, 2);
        EXPECT_EQ(unit.err, "kovran: " + path +
                                ": there is no NAL unit 5; the stream has 5 NAL units, 0 to 4\n");
        const outcome layer = run({verb, path, "--layer", "2"});
        EXPECT_EQ(layer.status, 2);
        EXPECT_EQ(layer.err, "kovran: " + path +
                                 ": there is no NAL unit of layer 2; the stream has layer 0\n");
    }
}

// Those parts of the whole dump that belong to the unit.
TEST(InspectDump, ShowsASelectedUnitAsInTheWholeStream) {
    const std::string whole = dump_of_hm_still;
    const std::size_t begin = whole.find("unit 3 at 76");
    const std::size_t end = whole.find("unit 4 at 831");
    EXPECT_EQ(run({"dump", stream_path("hm_still"), "--nal", "3"}).out,
              "rules: standard\n" + whole.substr(begin, end - begin));
}

TEST(InspectDump, ReadsNoFurtherThanTheUnitItShows) {
    const std::string stream = bytes("000001 460150 000001 460140");  // the second without stop bit
    EXPECT_EQ(program({"dump", "-", "--nal", "0"}).input(stream).run().status, 0);
    EXPECT_EQ(program({"dump", "-", "--limit", "1"}).input(stream).run().status, 0);
    EXPECT_EQ(program({"dump", "-"}).input(stream).run().status, 1);
}

TEST(InspectDump, LeavesHigherLayersAsTheyAre) {
    const outcome result = run({"dump", stream_path("x265_42_alpha"), "--nal", "2"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "rules: standard\nunit 2 at 106: SPS_NUT, 30 bytes, layer 1, temporal id 0\n\n");
}

// ---- Faults

// Parameter sets of a picture of 64x64 whose SPS has one long-term picture.
std::string parameter_sets() {
    return bytes(
        "000001 4001 0c01ffff01600000030090000003000003005df024"
        "000001 4201 0101600000030090000003000003005da0208105fe4930d002"
        "000001 4401 c0718012");
}

// A P slice with num_long_term_pics 0x7FFFFFFE, and an access unit delimiter behind it.
std::string hostile_slice() {
    return bytes("000001 0201 d2e0000003007fffffff80 000001 460150");
}

TEST(InspectDump, GoesOnAfterASliceThatAsksForTooMuchMemory) {
    const std::string stream = parameter_sets() + hostile_slice();
    const outcome result = program({"dump", "-", "--rules", "own"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 3 at 68: "
              "the slice segment header needs more memory than is available\n");
    const std::set<std::string> lines = lines_of(result.out);
    EXPECT_EQ(lines.count("slice_pic_order_cnt_lsb 5"), 1U);
    EXPECT_EQ(lines.count("num_long_term_pics 2147483646 (not allowed here)"), 1U);
    EXPECT_EQ(lines.count("pic_type 2 (B, P and I slices)"), 1U);
}

// A P slice with a set of its own, 1 1 010 0101 0, without pictures 1 1, without long-term ones 1
// 1, num_ref_idx_active_override_flag 0, five_minus_max_num_merge_cand 1, slice_qp_delta 1, and the
// alignment 1000000.
std::string good_slice() {
    return bytes("000001 0201 d2bdc0");
}

TEST(InspectDump, ReadsTheSliceOfThoseParameterSets) {
    const std::string stream = parameter_sets() + good_slice();
    const outcome result = program({"dump", "-", "--nal", "3"}).input(stream).run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(lines_of(result.out).count("num_long_term_pics 0"), 1U);
    EXPECT_EQ(lines_of(result.out).count("num_ref_idx_active_override_flag 0"), 1U);
}

TEST(InspectDump, KeepsAParameterSetWhenItsRepetitionIsBroken) {
    // The second PPS 0 has num_extra_slice_header_bits 7, by which the slice would be read
    // otherwise, and ends with pps_cb_qp_offset.
    const std::string stream = parameter_sets() + bytes("000001 4401 ce71") + good_slice();
    const outcome result = program({"dump", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 3 at 68: the PPS cannot be read: "
              "the data ends before the end of pps_cr_qp_offset at bit 16\n");
    const std::set<std::string> lines = lines_of(result.out);
    EXPECT_EQ(lines.count("num_extra_slice_header_bits 7"), 1U);
    EXPECT_EQ(lines.count("fault: the data ends before the end of pps_cr_qp_offset at bit 16"), 1U);
    EXPECT_EQ(lines.count("slice_pic_order_cnt_lsb 5"), 1U);
    EXPECT_EQ(lines.count("num_long_term_pics 0"), 1U);
}

// The same PPS, whole but for the stop bit, and the slice with its seven more bits. The library's
// own rules let such a PPS go, and the one before stays: seven bits of the slice are others then.
TEST(InspectDump, GoesByAParameterSetWithMalformedTrailingBits) {
    const std::string fault = "malformed trailing bits: rbsp_stop_one_bit at bit 30 is 0";
    const std::string stream =
        parameter_sets() + bytes("000001 4401 ce718010 000001 0201 c0257b80");
    const outcome result = program({"dump", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 3 at 68: the PPS was read, but " + fault + '\n');
    const std::set<std::string> lines = lines_of(result.out);
    EXPECT_EQ(lines.count("fault: " + fault), 1U);
    EXPECT_EQ(lines.count("slice_reserved_flag[0..6] 0 0 0 0 0 0 0"), 1U);
    EXPECT_EQ(lines.count("slice_pic_order_cnt_lsb 5"), 1U);
    const outcome own = program({"dump", "-", "--rules", "own"}).input(stream).run();
    EXPECT_EQ(own.err.substr(0, own.err.find('\n') + 1),
              "kovran: standard input: unit 3 at 68: the PPS cannot be read: " + fault + '\n');
    EXPECT_EQ(own.out.find("slice_reserved_flag"), std::string::npos);
}

// All flags of extensions are 0, but three bits follow.
TEST(InspectDump, TellsAnExtensionThatIsNotKnown) {
    sps_syntax sps;
    sps.extension = bit_writer().u<1>(1).u<8>(0).u<3>(0b101);
    const std::size_t bit = sps.payload().size() - 3 - 4;
    const std::string fault =
        "kept as data: no extension that is known follows sps_extension_4bits at bit " +
        std::to_string(bit);
    const std::string stream =
        annex_b_unit(VPS_NUT, vps_syntax().rbsp()) + annex_b_unit(SPS_NUT, sps.rbsp());
    const outcome result = program({"dump", "--json", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find(": the SPS was read, but its extension was " + fault + '\n'),
              std::string::npos)
        << result.err;
    const auto line = nlohmann::ordered_json::parse(result.out.substr(result.out.find('\n') + 1));
    EXPECT_EQ(line.at("syntax").at("sps_extension_data_flag").dump(), "[1,0,1]");
    EXPECT_EQ(line.at("fault").dump(),
              "{\"kind\":\"unknown_extension\",\"element\":\"sps_extension_4bits\",\"bit\":" +
                  std::to_string(bit) + ",\"value\":0}");
    const outcome own = program({"dump", "-", "--rules", "own"}).input(stream).run();
    EXPECT_EQ(own.status, 0) << own.err;
}

TEST(InspectDump, TellsWhichParameterSetIsMissing) {
    const std::string all = parameter_sets();
    const std::string without_vps = all.substr(all.find(bytes("000001 4201"))) + good_slice();
    const std::string from = "kovran: standard input: ";
    const outcome standard = program({"dump", "-"}).input(without_vps).run();
    EXPECT_EQ(standard.status, 1);
    EXPECT_EQ(standard.err, from + "unit 2 at 42: VPS 0, which this slice uses, is missing\n");
    EXPECT_EQ(lines_of(standard.out)
                  .count("fault: VPS 0 is missing, needed by slice_pic_parameter_set_id at bit 1"),
              1U);
    const outcome own = program({"dump", "-", "--rules", "own"}).input(without_vps).run();
    EXPECT_EQ(own.status, 1);
    EXPECT_EQ(own.err, from + "unit 0 at 3: VPS 0, which this SPS uses, is missing\n" +  //
                           from +
                           "unit 1 at 33: SPS 0, which this PPS uses, is missing: "
                           "the SPS of unit 0 could not be read\n" +
                           from +
                           "unit 2 at 42: PPS 0, which this slice uses, is missing: "
                           "the PPS of unit 1 could not be read\n");
    const outcome slice = program({"dump", "-"}).input(bytes("000001 0201 d2f4")).run();
    EXPECT_EQ(slice.status, 1);
    EXPECT_EQ(slice.err,
              "kovran: standard input: unit 0 at 3: "
              "PPS 0, which this slice uses, is missing\n");
}

TEST(InspectDump, TellsIdentifiersAboveTheirLimits) {
    sps_syntax sps;
    sps.sps_seq_parameter_set_id = bit_writer().ue(16);
    pps_syntax pps;
    pps.identifiers = bit_writer().ue(64).ue(0);
    const std::string stream =
        annex_b_unit(VPS_NUT, vps_syntax().rbsp()) + annex_b_unit(SPS_NUT, sps.rbsp()) +
        annex_b_unit(SPS_NUT, sps_syntax().rbsp()) + annex_b_unit(PPS_NUT, pps.rbsp());
    const outcome own = program({"dump", "-", "--rules", "own"}).input(stream).run();
    EXPECT_EQ(own.status, 1);
    EXPECT_EQ(own.err,
              "kovran: standard input: unit 1 at 31: SPS 16 has an identifier above 15\n"
              "kovran: standard input: unit 3 at 94: PPS 64 has an identifier above 63\n");
    // By these rules reading ends there, and the identifier is the last element that is shown.
    const outcome standard = program({"dump", "-"}).input(stream).run();
    EXPECT_EQ(standard.status, 1);
    EXPECT_EQ(standard.err,
              "kovran: standard input: unit 1 at 31: the SPS cannot be read: "
              "sps_seq_parameter_set_id at bit 104 is 16; allowed: 0 to 15\n"
              "kovran: standard input: unit 3 at 94: the PPS cannot be read: "
              "pps_pic_parameter_set_id at bit 0 is 64; allowed: 0 to 63\n");
    EXPECT_NE(standard.out.find(
                  "  sps_seq_parameter_set_id                            16  (not allowed here)\n"
                  "  fault: sps_seq_parameter_set_id at bit 104 is 16; allowed: 0 to 15\n\n"),
              std::string::npos);
    EXPECT_EQ(lines_of(standard.out).count("pps_pic_parameter_set_id 64 (not allowed here)"), 1U);
    EXPECT_EQ(lines_of(standard.out).count("pic_width_in_luma_samples 64"), 1U);
}

TEST(InspectDump, TellsSeiMessagesThatAreCutOff) {
    const outcome result = program({"dump", "-"}).input(bytes("000001 4e01 0510 0102")).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("unit 0 at 3: SEI message user_data_unregistered is truncated: "
                              "2 of 16 bytes are present\n"),
              std::string::npos);
    EXPECT_EQ(lines_of(result.out).count("payload 0102"), 1U);
    EXPECT_EQ(program({"dump", "-"}).input(bytes("000001 4e01 80")).run().status, 1);
    EXPECT_EQ(program({"dump", "-"}).input(bytes("000001 4e01 0100")).run().status, 1);
}

TEST(InspectDump, FailsWithoutInput) {
    EXPECT_EQ(run({"dump"}).status, 2);
    const temporary_folder folder;
    EXPECT_EQ(run({"dump", folder.file("missing")}).status, 2);
    EXPECT_EQ(run({"dump", folder.path()}).status, 2);
    EXPECT_EQ(run({"dump", folder.write("empty", "")}).status, 2);
    const outcome none = run({"dump", folder.write("none", "no video")});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "rules: standard\n");
    EXPECT_NE(none.err.find("no NAL unit found"), std::string::npos);
}

TEST(InspectDump, SurvivesEveryBeginningOfAStream) {
    const std::string stream = parameter_sets() + bytes("000001 0201 d2f4 000001 4e01 0100 80");
    for (std::size_t size = 1; size < stream.size(); size += 11) {
        const outcome result = program({"dump", "-"}).input(stream.substr(0, size)).run();
        EXPECT_LE(result.status, 1) << size;
    }
}

// ---- JSON

using values = std::vector<std::pair<std::string, std::string>>;

// All elements below an object, as the standard writes them: names with their indices, without
// those of the structures around them.
void collect(const nlohmann::ordered_json& node, const std::string& name, values& found) {
    if (node.is_object()) {
        for (const auto& [key, child] : node.items()) {
            collect(child, key, found);
        }
    } else if (node.is_array()) {
        std::size_t index = 0;
        for (const nlohmann::ordered_json& child : node) {
            collect(child, name + '[' + std::to_string(index++) + ']', found);
        }
    } else if (!node.is_null()) {
        found.emplace_back(name, node.dump());
    }
}

values elements_in(const nlohmann::ordered_json& syntax) {
    values found;
    collect(syntax, "", found);
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<nlohmann::ordered_json> json_lines(const std::string& text) {
    std::vector<nlohmann::ordered_json> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(nlohmann::ordered_json::parse(line));
    }
    return lines;
}

bool is_trailing_bit(const std::string& name) {
    return name.rfind("rbsp_", 0) == 0 || name.rfind("alignment_bit_", 0) == 0;
}

// Flags without an index, as many as there are: an array.
bool is_extension_data(const std::string& name) {
    return name == "sps_extension_data_flag" || name == "pps_extension_data_flag";
}

// What a reading has of a unit but its trailing bits and the extension of a VPS.
values expected_of(std::vector<expected_element> reading) {
    pass_over_extension(reading, "vps_extension_flag");
    put_slice_extension_into_bytes(reading);
    values expected;
    std::size_t flags = 0;
    for (const expected_element& each : reading) {
        if (is_extension_data(each.name) && each.value != not_read) {
            expected.emplace_back(each.name + '[' + std::to_string(flags++) + ']', each.value);
        } else if (each.value != not_read && !is_trailing_bit(each.name)) {
            expected.emplace_back(each.name, each.value);
        }
    }
    std::sort(expected.begin(), expected.end());
    return expected;
}

void expect_unit(const nlohmann::ordered_json& line, std::size_t index,
                 const nlohmann::json& unit) {
    EXPECT_EQ(line.at("schema"), "kovran-dump-1");
    EXPECT_EQ(line.at("rules"), "standard");
    EXPECT_EQ(line.at("index"), index);
    for (const char* const field :
         {"offset", "size", "nal_unit_type", "nuh_layer_id", "nuh_temporal_id_plus1"}) {
        EXPECT_EQ(line.at(field).dump(), unit.at(field).dump()) << field;
    }
}

// Names without indices: those of bytes in a row are a single string, and what a message has more
// than once an array.
void add_without_indices(const std::string& name, const std::string& value, values& to) {
    to.emplace_back(name.substr(0, name.find('[')), value);
}

// What a message has beside its elements, as the messages in it have.
bool is_about_message(const std::string& name) {
    return name == "payload_type" || name == "payload_size" || name == "name" ||
           name.rfind("meaning[", 0) == 0;
}

// All elements of messages.
values values_in(const nlohmann::ordered_json& messages) {
    values found;
    for (const auto& [name, value] : elements_in(messages)) {
        if (!is_about_message(name)) {
            const bool is_text = value.front() == '"';
            add_without_indices(name, is_text ? value.substr(1, value.size() - 2) : value, found);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

values values_in(const std::vector<expected_element>& messages) {
    values found;
    for (const expected_element& each : messages) {
        const bool is_opaque = each.name.rfind("sei_payload(", 0) == 0;
        if (!is_sei_framing(each.name) && !is_payload_bit(each.name) && each.name != "ff_byte") {
            add_without_indices(is_opaque ? "payload" : each.name, each.value, found);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

void expect_messages(const nlohmann::ordered_json& syntax, const nlohmann::json& unit) {
    const std::vector<expected_element> reading = message_elements_of(unit);
    values found = values_in(syntax.at("sei_message"));
    found.erase(std::remove_if(found.begin(), found.end(),
                               [&reading](const auto& each) {
                                   return each.first == "ff_byte" ||
                                          is_left_out(each.first, reading);
                               }),
                found.end());
    EXPECT_EQ(found, values_in(reading));
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class InspectDumpOfStreams : public testing::TestWithParam<std::string> {};

TEST_P(InspectDumpOfStreams, HasTheElementsOfTheReadingInItsJson) {
    const nlohmann::json reading = units_of_reading(GetParam());
    const outcome result = run({"dump", "--json", stream_path(GetParam())});
    const std::vector<nlohmann::ordered_json> lines = json_lines(result.out);
    ASSERT_EQ(lines.size(), reading.size());
    bool faults = false;
    for (std::size_t i = 0; i < lines.size() && !HasFailure(); ++i) {
        SCOPED_TRACE("unit " + std::to_string(i));
        expect_unit(lines[i], i, reading[i]);
        faults = faults || lines[i].contains("faults");
        const auto type = reading[i].at("nal_unit_type").get<unsigned int>();
        const nlohmann::ordered_json& syntax = lines[i].at("syntax");
        if (reading[i].at("nuh_layer_id") != 0) {
            EXPECT_TRUE(syntax.empty());
            continue;
        }
        const std::vector<expected_element> elements = elements_of(reading[i]);
        if (elements.empty()) {
            continue;
        }
        if (type == 39 || type == 40) {
            expect_messages(syntax, reading[i]);
            continue;
        }
        EXPECT_EQ(elements_in(syntax), expected_of(elements));
    }
    EXPECT_EQ(result.status, faults ? 1 : 0);
    EXPECT_EQ(result.err.empty(), !faults);
}

INSTANTIATE_TEST_SUITE_P(AllStreams, InspectDumpOfStreams, testing::ValuesIn(stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

TEST(InspectDumpJson, KeepsTheKeysInOrder) {
    EXPECT_EQ(
        program({"dump", "-", "--json"}).input(bytes("000001 460150")).run().out,
        "{\"schema\":\"kovran-dump-1\",\"rules\":\"standard\",\"index\":0,\"offset\":3,\"size\":3,"
        "\"nal_unit_type\":35,\"name\":\"AUD_NUT\",\"nuh_layer_id\":0,"
        "\"nuh_temporal_id_plus1\":1,\"syntax\":{\"pic_type\":2}}\n");
}

TEST(InspectDumpJson, HasStructuresAsObjectsAndIndicesAsArrays) {
    const outcome result = run({"dump", "--json", "--nal", "1", stream_path("hm_still")});
    const nlohmann::ordered_json sps = json_lines(result.out).at(0).at("syntax");
    EXPECT_EQ(sps.at("profile_tier_level").at("general_level_idc"), 123);
    EXPECT_EQ(sps.at("profile_tier_level").at("general_profile_compatibility_flag").size(), 32U);
    EXPECT_EQ(sps.at("profile_tier_level").at("general_profile_compatibility_flag").at(3), 1);
    EXPECT_EQ(sps.at("sps_max_dec_pic_buffering_minus1").dump(), "[0]");
    EXPECT_EQ(sps.at("st_ref_pic_set").dump(),
              "[{\"num_negative_pics\":0,\"num_positive_pics\":0},"
              "{\"inter_ref_pic_set_prediction_flag\":0,\"num_negative_pics\":0,"
              "\"num_positive_pics\":0}]");
}

TEST(InspectDumpJson, LeavesExtensionDataOut) {
    const outcome result = run({"dump", "--json", "--type", "33", stream_path("x265_42_scc2")});
    const nlohmann::ordered_json sps = json_lines(result.out).at(0).at("syntax");
    EXPECT_EQ(sps.at("sps_extension_present_flag"), 1);
    EXPECT_FALSE(sps.contains("sps_extension_data_flag"));
}

TEST(InspectDumpJson, HasFaultsOnlyWhereThereAreAny) {
    const std::string stream = bytes("000001 460140 000001 460150");
    const outcome result = program({"dump", "--json", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    const std::vector<nlohmann::ordered_json> lines = json_lines(result.out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].at("faults").dump(),
              "[\"the access unit delimiter cannot be read: "
              "malformed trailing bits: rbsp_stop_one_bit at bit 3 is 0\"]");
    EXPECT_EQ(lines[0].at("fault").dump(),
              "{\"kind\":\"trailing_bits\",\"element\":\"rbsp_stop_one_bit\",\"bit\":3,"
              "\"value\":0,\"lowest\":1,\"highest\":1}");
    EXPECT_EQ(lines[0].at("syntax").at("pic_type"), 2);
    for (const char* const key : {"faults", "fault", "out_of_range"}) {
        EXPECT_FALSE(lines[1].contains(key)) << key;
    }
}

nlohmann::ordered_json json_of_last_unit(const std::string& stream) {
    return json_lines(program({"dump", "--json", "-"}).input(stream).run().out).back();
}

TEST(InspectDumpJson, TellsTheValueThatStopsTheReading) {
    sps_syntax sps;
    sps.sps_seq_parameter_set_id = bit_writer().ue(16);
    const nlohmann::ordered_json line = json_of_last_unit(annex_b_unit(SPS_NUT, sps.rbsp()));
    EXPECT_EQ(line.at("out_of_range").dump(), "[\"sps_seq_parameter_set_id\"]");
    EXPECT_EQ(line.at("fault").dump(),
              "{\"kind\":\"value\",\"element\":\"sps_seq_parameter_set_id\",\"bit\":104,"
              "\"value\":16,\"lowest\":0,\"highest\":15}");
}

// 8 bits up to profile_tier_level, and 8 of it.
TEST(InspectDumpJson, TellsTheElementInWhichTheDataEnds) {
    const nlohmann::ordered_json line = json_of_last_unit(bytes("000001 4201 0101"));
    EXPECT_EQ(line.at("fault").dump(),
              "{\"kind\":\"data_ended\","
              "\"element\":\"profile_tier_level.general_profile_compatibility_flag[0]\","
              "\"bit\":16}");
    EXPECT_FALSE(line.contains("out_of_range"));
}

TEST(InspectDumpJson, TellsTheParameterSetThatIsMissing) {
    // first_slice_segment_in_pic_flag 1, then 010 for PPS 1.
    const nlohmann::ordered_json slice = json_of_last_unit(bytes("000001 0201 a0"));
    EXPECT_EQ(slice.at("fault").dump(),
              "{\"kind\":\"parameter_set_missing\","
              "\"element\":\"slice_pic_parameter_set_id\",\"bit\":1,\"value\":1,"
              "\"parameter_set\":\"PPS\",\"parameter_set_id\":1}");
}

// The second message is a buffering period of SPS 5; its payload begins 5 bytes after the header.
TEST(InspectDumpJson, NamesTheMessageInThePathOfItsElement) {
    const nlohmann::ordered_json line =
        json_of_last_unit(bytes("000001 4e01 6401aa 000134 6400 80"));
    EXPECT_EQ(line.at("syntax").at("sei_message").size(), 3U);
    EXPECT_EQ(line.at("fault").dump(),
              "{\"kind\":\"parameter_set_missing\","
              "\"element\":\"sei_message[1].bp_seq_parameter_set_id\",\"bit\":40,\"value\":5,"
              "\"parameter_set\":\"SPS\",\"parameter_set_id\":5}");
    EXPECT_EQ(line.at("faults").size(), 1U);
}

// 0 to 8 and 0 to 5 are allowed; neither decides how the rest is read.
TEST(InspectDumpJson, ListsTheElementsOutOfTheirRange) {
    sps_syntax sps;
    sps.bit_depths = bit_writer().ue(9).ue(0);
    sps.vui = bit_writer().u<1>(1).u<3>(0);
    sps.vui.u<1>(1).ue(6).ue(0);  // chroma_loc_info_present_flag and both locations
    sps.vui.u<6>(0);
    const nlohmann::ordered_json line = json_of_last_unit(annex_b_unit(SPS_NUT, sps.rbsp()));
    EXPECT_EQ(line.at("out_of_range").dump(),
              "[\"bit_depth_luma_minus8\",\"vui_parameters.chroma_sample_loc_type_top_field\"]");
    EXPECT_EQ(line.at("syntax").at("bit_depth_luma_minus8"), 9);
    EXPECT_FALSE(line.contains("fault"));
    EXPECT_FALSE(line.contains("faults"));
}

TEST(InspectDumpJson, HasNullForEntriesThatAreNotInTheStream) {
    // vps_max_sub_layers_minus1 1 without sub-layer ordering information: entry 1 only.
    const outcome result = run({"dump", "--json", "--type", "32", stream_path("hm_2tids")});
    const nlohmann::json reading = units_of_reading("hm_2tids");
    const std::vector<expected_element> vps = elements_of(reading.at(0));
    const nlohmann::ordered_json syntax = json_lines(result.out).at(0).at("syntax");
    const nlohmann::ordered_json& entries = syntax.at("vps_max_dec_pic_buffering_minus1");
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string name = "vps_max_dec_pic_buffering_minus1[" + std::to_string(i) + ']';
        EXPECT_EQ(entries.at(i).is_null(), index_of(vps, name) == vps.size());
    }
}

}  // namespace
}  // namespace kovran::test
