#include <kovran/h265/h265_nal_reader.h>

#include "h2645_common/h2645_common_nal_reader.template"

namespace kovran {

template struct h2645_common_nal_reader<h265_nal, h2645_common_nalfmt>;

}  // namespace kovran
