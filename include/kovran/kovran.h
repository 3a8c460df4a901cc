#ifndef KOVRAN_KOVRAN_H
#define KOVRAN_KOVRAN_H

#include <kovran/export.h>
#include <kovran/h2645_common/bit_io.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h2645_common/h2645_common_nal_reader.h>
#include <kovran/h2645_common/h2645_common_nal_writer.h>
#include <kovran/h2645_common/h2645_common_nalfmt.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#endif  // KOVRAN_KOVRAN_H
