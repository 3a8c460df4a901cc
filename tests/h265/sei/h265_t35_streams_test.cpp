// User data of ITU-T T.35 in a stream of x265, beside what FFmpeg reads of it.
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/sei/h265_a53_captions.h>
#include <kovran/h265/sei/h265_hdr10_plus.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>
#include <kovran/h265/sei/h265_t35_user_data.h>

#include <cstddef>
#include <fstream>
#include <ios>
#include <iterator>
#include <ostream>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

namespace kovran {
namespace {

std::string t35_file(const char* name) {
    std::ifstream file(std::string(KOVRAN_TEST_USER_DATA) + '/' + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

// Texts in the form of t35.txt.

std::string t35_text_of(const h265_a53_captions& captions) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "side_data_type=ATSC A53 Part 4 Closed Captions\ndata=";
    for (const h265_a53_captions::cc_t& cc : captions.cc_data) {
        const unsigned int first = 0xF8U | (cc.cc_valid ? 4U : 0U) | cc.cc_type;
        for (const unsigned int byte : {first, unsigned{cc.cc_data_1}, unsigned{cc.cc_data_2}}) {
            text += digits[byte / 16];
            text += digits[byte % 16];
        }
    }
    return text + '\n';
}

void t35_write_geometry(std::ostream& text, const h265_hdr10_plus::window_t& window) {
    text << "window_upper_left_corner_x=" << window.window_upper_left_corner_x
         << "\nwindow_upper_left_corner_y=" << window.window_upper_left_corner_y
         << "\nwindow_lower_right_corner_x=" << window.window_lower_right_corner_x
         << "\nwindow_lower_right_corner_y=" << window.window_lower_right_corner_y
         << "\ncenter_of_ellipse_x=" << window.center_of_ellipse_x
         << "\ncenter_of_ellipse_y=" << window.center_of_ellipse_y
         << "\nrotation_angle=" << unsigned{window.rotation_angle}
         << "\nsemimajor_axis_internal_ellipse=" << window.semimajor_axis_internal_ellipse
         << "\nsemimajor_axis_external_ellipse=" << window.semimajor_axis_external_ellipse
         << "\nsemiminor_axis_external_ellipse=" << window.semiminor_axis_external_ellipse
         << "\noverlap_process_option=" << window.overlap_process_option << '\n';
}

template <class Values>
void t35_write_run(std::ostream& text, const std::string& name, const Values& values) {
    if (values.empty()) {
        return;
    }
    text << name;
    char separator = '=';
    for (const unsigned int value : values) {
        text << separator << value;
        separator = ' ';
    }
    text << '\n';
}

void t35_write_table(std::ostream& text, const std::string& name, bool flag, unsigned int rows,
                     unsigned int columns, const std::vector<unsigned char>& values) {
    if (flag) {
        text << "num_rows_" << name << '=' << rows << "\nnum_cols_" << name << '=' << columns
             << '\n';
        t35_write_run(text, name, values);
    }
}

void t35_write_light(std::ostream& text, const h265_hdr10_plus::window_t& window) {
    t35_write_run(text, "maxscl", window.maxscl);
    text << "average_maxrgb=" << window.average_maxrgb << "\nnum_distribution_maxrgb_percentiles="
         << unsigned{window.num_distribution_maxrgb_percentiles} << '\n';
    for (std::size_t i = 0; i < window.distribution_maxrgb_percentages.size(); ++i) {
        text << "distribution_maxrgb_percentage="
             << unsigned{window.distribution_maxrgb_percentages[i]}
             << "\ndistribution_maxrgb_percentile=" << window.distribution_maxrgb_percentiles[i]
             << '\n';
    }
    text << "fraction_bright_pixels=" << window.fraction_bright_pixels << '\n';
}

void t35_write_mapping(std::ostream& text, const h265_hdr10_plus::window_t& window) {
    if (window.tone_mapping_flag) {
        text << "knee_point_x=" << window.knee_point_x << "\nknee_point_y=" << window.knee_point_y
             << "\nnum_bezier_curve_anchors=" << unsigned{window.num_bezier_curve_anchors} << '\n';
        t35_write_run(text, "bezier_curve_anchors", window.bezier_curve_anchors);
    }
    if (window.color_saturation_mapping_flag) {
        text << "color_saturation_weight=" << unsigned{window.color_saturation_weight} << '\n';
    }
}

std::string t35_text_of(const h265_hdr10_plus& metadata) {
    std::ostringstream text;
    text << "side_data_type=HDR Dynamic Metadata SMPTE2094-40 (HDR10+)\napplication version="
         << unsigned{metadata.application_version}
         << "\nnum_windows=" << unsigned{metadata.num_windows} << '\n';
    for (std::size_t w = 1; w < metadata.windows.size(); ++w) {
        t35_write_geometry(text, metadata.windows[w]);
    }
    text << "targeted_system_display_maximum_luminance="
         << metadata.targeted_system_display_maximum_luminance << '\n';
    t35_write_table(text, "targeted_system_display_actual_peak_luminance",
                    metadata.targeted_system_display_actual_peak_luminance_flag,
                    metadata.num_rows_targeted_system_display_actual_peak_luminance,
                    metadata.num_cols_targeted_system_display_actual_peak_luminance,
                    metadata.targeted_system_display_actual_peak_luminance);
    for (const h265_hdr10_plus::window_t& window : metadata.windows) {
        t35_write_light(text, window);
    }
    t35_write_table(text, "mastering_display_actual_peak_luminance",
                    metadata.mastering_display_actual_peak_luminance_flag,
                    metadata.num_rows_mastering_display_actual_peak_luminance,
                    metadata.num_cols_mastering_display_actual_peak_luminance,
                    metadata.mastering_display_actual_peak_luminance);
    for (const h265_hdr10_plus::window_t& window : metadata.windows) {
        t35_write_mapping(text, window);
    }
    return text.str();
}

// The user data of a message; "" when it has none.
std::string t35_text_of(const h265_nal_sei_message& message) {
    const auto* const user_data =
        std::get_if<h265_nal_sei_user_data_registered_itu_t_t35>(&message.payload);
    if (user_data == nullptr) {
        return "";
    }
    h265_t35_user_data codes;
    EXPECT_TRUE(codes.parse(*user_data));
    if (codes.kind == h265_t35_kind::a53_captions) {
        h265_a53_captions captions;
        EXPECT_TRUE(captions.parse(*user_data));
        return t35_text_of(captions);
    }
    EXPECT_EQ(codes.kind, h265_t35_kind::hdr10_plus);
    h265_hdr10_plus metadata;
    EXPECT_TRUE(metadata.parse(*user_data));
    return t35_text_of(metadata);
}

TEST(H265T35Streams, HaveTheUserDataThatAnotherReaderSees) {
    std::string stream = t35_file("t35.hevc");
    auto* const begin = reinterpret_cast<unsigned char*>(stream.data());
    unsigned char* const end = begin + stream.size();

    const h2645_common_base_store<h265_nal_vps> no_vps;
    const h2645_common_base_store<h265_nal_sps> no_sps;
    h265_nal_sei_message message;
    std::vector<unsigned char> rbsp(stream.size());
    std::string text;
    unsigned int pictures = 0;
    h265_nal_reader units(nalfmt_annex_b);
    for (unsigned char* next = begin; next != end; next = units.cursor) {
        units.scan(next, end);
        if (units.need_more_data) {
            break;
        }
        if (!units.found || units.nal.nal_unit_type != PREFIX_SEI_NUT) {
            continue;
        }
        unsigned char* const rbsp_end = rbsp.data() + units.block_decode(rbsp.data(), rbsp.size());
        h265_nal_sei_reader messages(rbsp.data(), rbsp_end, PREFIX_SEI_NUT);
        while (messages.next_message()) {
            EXPECT_TRUE(message.parse_standard(messages, no_vps, no_sps));
            const std::string user_data = t35_text_of(message);
            if (!user_data.empty()) {
                text += "picture " + std::to_string(pictures++) + '\n' + user_data;
            }
        }
    }
    EXPECT_EQ(pictures, 24U);
    EXPECT_EQ(text, t35_file("t35.txt"));
}

}  // namespace
}  // namespace kovran
