#ifndef KOVRAN_H265_H265_NAL_WRITER_H
#define KOVRAN_H265_H265_NAL_WRITER_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_nal_writer.h>
#include <kovran/h2645_common/h2645_common_nalfmt.h>
#include <kovran/h265/h265_nal.h>

namespace kovran {

extern template struct KOVRAN_API h2645_common_nal_writer<h265_nal, h2645_common_nalfmt>;

using h265_nal_writer = h2645_common_nal_writer<h265_nal, h2645_common_nalfmt>;

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_WRITER_H
