#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DECODED_PICTURE_HASH_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DECODED_PICTURE_HASH_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_decoded_picture_hash.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_decoded_picture_hash& record) {
    auto& [hash_type, picture_md5, picture_crc, picture_checksum, valid] = record;
    start_all_afresh(hash_type, picture_md5, picture_crc, picture_checksum, valid);
}

// decoded_picture_hash(), clause D.2.20.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_decoded_picture_hash& hash,
                                  const sei_context& context) {
    if (context.active_sps() == nullptr) {
        return walk.missing("SPS", context.sps_store->active_id);
    }
    const std::size_t planes = context.active_sps()->chroma_format_idc == 0 ? 1 : 3;
    walk.u(8, ELEMENT(hash, hash_type));
    if (!walk.grow(hash.hash_type == 0 ? planes : 0, hash.picture_md5) ||
        !walk.grow(hash.hash_type == 1 ? planes : 0, hash.picture_crc) ||
        !walk.grow(hash.hash_type == 2 ? planes : 0, hash.picture_checksum)) {
        return false;
    }
    for (std::size_t c = 0; c < planes; ++c) {
        if (hash.hash_type == 0) {
            for (std::size_t i = 0; i < hash.picture_md5[c].size(); ++i) {
                walk.u(8, ELEMENT(hash, picture_md5)[c][i]);
            }
        } else if (hash.hash_type == 1) {
            walk.u(16, ELEMENT(hash, picture_crc)[c]);
        } else if (hash.hash_type == 2) {
            walk.u(32, ELEMENT(hash, picture_checksum)[c]);
        }
    }
    return walk.finish(hash.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_DECODED_PICTURE_HASH_SYNTAX_H
