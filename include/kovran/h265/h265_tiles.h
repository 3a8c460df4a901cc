#ifndef KOVRAN_H265_H265_TILES_H
#define KOVRAN_H265_H265_TILES_H

#include <kovran/export.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>

#include <cstddef>
#include <vector>

namespace kovran {

// The tiles of a picture, clause 6.5.1. A picture without tiles is one tile.
struct h265_tiles {
    // colBd and rowBd in coding tree blocks: where each column and row begins, and behind them
    // where the last one ends.
    std::vector<unsigned int> column_boundaries;
    std::vector<unsigned int> row_boundaries;

    // Takes the tiles of pictures that go by `pps` and `sps`, which parse_standard() has read.
    //
    // False, with empty arrays: the sizes that are coded leave nothing for the last tile; there are
    // more columns or rows than coding tree blocks, or than 1056, the blocks along the longest side
    // of any picture; or the picture has no blocks, or 2^32 and more. Throws std::bad_alloc when
    // there is no memory.
    KOVRAN_API bool assign(const h265_nal_pps& pps, const h265_nal_sps& sps);

    [[nodiscard]] std::size_t columns() const { return number_of(column_boundaries); }
    [[nodiscard]] std::size_t rows() const { return number_of(row_boundaries); }

    // TileId of a coding tree block in raster scan, as slice_segment_address counts them: tiles are
    // counted from left to right, then down. 0 for an address behind the picture.
    [[nodiscard]] KOVRAN_API std::size_t tile_of(unsigned int ctb_address) const;

    // CtbAddrRsToTs: the place of that block in the order of decoding. The address itself behind
    // the picture.
    [[nodiscard]] KOVRAN_API unsigned int tile_scan_address(unsigned int ctb_address) const;

private:
    [[nodiscard]] static std::size_t number_of(const std::vector<unsigned int>& boundaries) {
        return boundaries.empty() ? 0 : boundaries.size() - 1;
    }
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_TILES_H
