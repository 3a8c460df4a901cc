#ifndef KOVRAN_H265_SEI_H265_MASTERING_DISPLAY_H
#define KOVRAN_H265_SEI_H265_MASTERING_DISPLAY_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_mastering_display_colour_volume.h>

namespace kovran {

// A colour by its CIE 1931 coordinates.
struct h265_chromaticity {
    double x = 0;
    double y = 0;
};

// The display that mastering_display_colour_volume() describes, clause D.3.28.
struct h265_mastering_display {
    h265_chromaticity green;
    h265_chromaticity blue;
    h265_chromaticity red;
    h265_chromaticity white_point;
    double max_luminance = 0;  // in candela per square metre
    double min_luminance = 0;
};

// The primaries are told apart by their coordinates, as not every encoder keeps to the order green,
// blue, red: green has the greatest y, and red the greatest x of the other two.
[[nodiscard]] KOVRAN_API h265_mastering_display
h265_mastering_display_of(const h265_nal_sei_mastering_display_colour_volume& volume);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_MASTERING_DISPLAY_H
