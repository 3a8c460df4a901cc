#include <kovran/h265/sei/h265_mastering_display.h>

#include <algorithm>
#include <array>

namespace kovran {

h265_mastering_display h265_mastering_display_of(
    const h265_nal_sei_mastering_display_colour_volume& volume) {
    constexpr double steps_of_coordinate = 50000;
    constexpr double steps_of_candela = 10000;
    const auto colour = [](unsigned short x, unsigned short y) {
        return h265_chromaticity{x / steps_of_coordinate, y / steps_of_coordinate};
    };
    std::array<h265_chromaticity, 3> primaries{};
    for (unsigned int c = 0; c < primaries.size(); ++c) {
        primaries[c] = colour(volume.display_primaries_x[c], volume.display_primaries_y[c]);
    }
    const auto green =
        std::max_element(primaries.begin(), primaries.end(),
                         [](const auto& one, const auto& other) { return one.y < other.y; });
    std::rotate(primaries.begin(), green, green + 1);
    if (primaries[1].x > primaries[2].x) {
        std::swap(primaries[1], primaries[2]);
    }
    return {primaries[0],
            primaries[1],
            primaries[2],
            colour(volume.white_point_x, volume.white_point_y),
            volume.max_display_mastering_luminance / steps_of_candela,
            volume.min_display_mastering_luminance / steps_of_candela};
}

}  // namespace kovran
