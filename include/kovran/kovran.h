#ifndef KOVRAN_KOVRAN_H
#define KOVRAN_KOVRAN_H

#include <kovran/export.h>
#include <kovran/h2645_common/bit_io.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h2645_common/h2645_common_nal_reader.h>
#include <kovran/h2645_common/h2645_common_nal_writer.h>
#include <kovran/h2645_common/h2645_common_nalfmt.h>
#include <kovran/h2645_common/h2645_common_read_xostylesei_vlu32.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_sei.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_nal_writer.h>
#include <kovran/h265/h265_profile.h>
#include <kovran/h265/h265_profile_tier_level.h>
#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_scaling_list_data.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_st_ref_pic_set.h>
#include <kovran/h265/h265_video_format.h>
#include <kovran/h265/h265_vui_parameters.h>

#endif  // KOVRAN_KOVRAN_H
