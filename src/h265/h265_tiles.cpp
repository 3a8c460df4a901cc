#include <kovran/h265/h265_tiles.h>

#include "h265/picture_size.h"

#include <algorithm>
#include <cstdint>

namespace kovran {
namespace {

// Equations 6-3 and 6-4: uniform spacing of `size` blocks.
void space_uniformly(std::vector<unsigned int>& boundaries, std::uint64_t count,
                     std::uint64_t size) {
    for (std::uint64_t i = 0; i <= count; ++i) {
        boundaries.push_back(static_cast<unsigned int>(i * size / count));
    }
}

// False when the coded sizes leave nothing for the last tile.
bool space_as_coded(std::vector<unsigned int>& boundaries, std::uint64_t count, std::uint64_t size,
                    const std::vector<unsigned int>& sizes_minus1) {
    if (sizes_minus1.size() + 1 < count) {
        return false;
    }
    std::uint64_t place = 0;
    boundaries.push_back(0);
    for (std::uint64_t i = 0; i + 1 < count; ++i) {
        place += std::uint64_t{sizes_minus1[i]} + 1;
        if (place >= size) {
            return false;
        }
        boundaries.push_back(static_cast<unsigned int>(place));
    }
    boundaries.push_back(static_cast<unsigned int>(size));
    return true;
}

bool space(std::vector<unsigned int>& boundaries, std::uint64_t count, std::uint64_t size,
           bool uniformly, const std::vector<unsigned int>& sizes_minus1) {
    boundaries.clear();
    if (count > size || count > longest_side_in_ctbs) {
        return false;
    }
    if (uniformly) {
        space_uniformly(boundaries, count, size);
        return true;
    }
    return space_as_coded(boundaries, count, size, sizes_minus1);
}

constexpr std::uint64_t largest_address = 0xFFFFFFFF;

bool is_in_picture(const h265_tiles& tiles, unsigned int ctb_address) {
    return tiles.columns() != 0 && tiles.rows() != 0 &&
           ctb_address / tiles.column_boundaries.back() < tiles.row_boundaries.back();
}

// The tile column or row of a coordinate that lies in the picture.
std::size_t part_of(const std::vector<unsigned int>& boundaries, unsigned int coordinate) {
    return static_cast<std::size_t>(
               std::upper_bound(boundaries.begin(), boundaries.end(), coordinate) -
               boundaries.begin()) -
           1;
}

}  // namespace

bool h265_tiles::assign(const h265_nal_pps& pps, const h265_nal_sps& sps) {
    const picture_size size = picture_size_in_ctbs(sps);
    const bool uniformly = !pps.tiles_enabled_flag || pps.uniform_spacing_flag;
    const std::uint64_t columns =
        pps.tiles_enabled_flag ? std::uint64_t{pps.num_tile_columns_minus1} + 1 : 1;
    const std::uint64_t rows =
        pps.tiles_enabled_flag ? std::uint64_t{pps.num_tile_rows_minus1} + 1 : 1;
    if (pic_size_in_ctbs(sps) <= largest_address &&
        space(column_boundaries, columns, size.width, uniformly, pps.column_width_minus1) &&
        space(row_boundaries, rows, size.height, uniformly, pps.row_height_minus1)) {
        return true;
    }
    column_boundaries.clear();
    row_boundaries.clear();
    return false;
}

std::size_t h265_tiles::tile_of(unsigned int ctb_address) const {
    if (!is_in_picture(*this, ctb_address)) {
        return 0;
    }
    const unsigned int width = column_boundaries.back();
    return part_of(row_boundaries, ctb_address / width) * columns() +
           part_of(column_boundaries, ctb_address % width);
}

// Equation 6-5.
unsigned int h265_tiles::tile_scan_address(unsigned int ctb_address) const {
    if (!is_in_picture(*this, ctb_address)) {
        return ctb_address;
    }
    const unsigned int width = column_boundaries.back();
    const unsigned int x = ctb_address % width;
    const unsigned int y = ctb_address / width;
    const std::size_t column = part_of(column_boundaries, x);
    const std::size_t row = part_of(row_boundaries, y);
    const unsigned int tile_left = column_boundaries[column];
    const unsigned int tile_top = row_boundaries[row];
    const unsigned int tile_width = column_boundaries[column + 1] - tile_left;
    const unsigned int tile_height = row_boundaries[row + 1] - tile_top;
    return tile_top * width + tile_left * tile_height + (y - tile_top) * tile_width + x - tile_left;
}

}  // namespace kovran
