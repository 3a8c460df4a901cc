#include <kovran/h265/h265_nal_writer.h>

#include "h2645_common/h2645_common_nal_writer.template"

namespace kovran {

template struct h2645_common_nal_writer<h265_nal, h2645_common_nalfmt>;

}  // namespace kovran
