#include <kovran/h265/h265_tiles.h>

int main() {
    kovran::h265_nal_sps sps;
    sps.pic_width_in_luma_samples = 128;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    const kovran::h265_nal_pps pps;
    kovran::h265_tiles tiles;
    return tiles.assign(pps, sps) && tiles.columns() == 1 && tiles.rows() == 1 &&
                   tiles.tile_of(1) == 0 && tiles.tile_scan_address(1) == 1
               ? 0
               : 1;
}
