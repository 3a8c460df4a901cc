#include <kovran/h265/h265_nal_aud.h>

#include "h2645_common/reading.h"
#include "h265/h265_nal_aud.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_nal_aud::parse(h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    valid = access_unit_delimiter_rbsp(walk, *this);
    return valid;
}

}  // namespace kovran
