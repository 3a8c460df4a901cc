"""ref_pic_lists_modification(), H.265 clause 7.3.6.2."""

from .bits import bit_length
from .record import Array, BadAlloc, fields, flag, resize, u32, zero

# Arrays that the syntax does not bound are refused beyond this.
ENTRY_LIMIT = 1048576


def read_list(entries, count, width, r):
    if count > ENTRY_LIMIT:
        raise BadAlloc
    resize(entries, count, zero)
    for i in range(count):
        if r.exhausted() and count - i > 64:
            entries[i:] = [0] * (count - i)
            r.skip(width * (count - i))
            break
        entries[i] = r.u(width)


class h265_ref_pic_lists_modification(
    fields(
        ref_pic_list_modification_flag_l0=flag,
        list_entry_l0=Array(u32),
        ref_pic_list_modification_flag_l1=flag,
        list_entry_l1=Array(u32),
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r, header):
        self.valid = False
        if header.NumPicTotalCurr == 0:
            return False
        width = bit_length(header.NumPicTotalCurr)
        self.ref_pic_list_modification_flag_l0 = r.flag("ref_pic_list_modification_flag")
        if self.ref_pic_list_modification_flag_l0:
            read_list(self.list_entry_l0, header.num_ref_idx_l0_active_minus1 + 1, width, r)
        if header.slice_type == 0:
            self.ref_pic_list_modification_flag_l1 = r.flag("ref_pic_list_modification_flag")
            if self.ref_pic_list_modification_flag_l1:
                read_list(self.list_entry_l1, header.num_ref_idx_l1_active_minus1 + 1, width, r)
        self.valid = True
        return True
