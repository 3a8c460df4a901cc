"""access_unit_delimiter_rbsp(), H.265 clause 7.3.2.5."""

from .record import fields, flag, u8


class h265_nal_aud(fields(pic_type=u8, valid=flag)):
    __slots__ = ()

    def parse(self, r):
        r.align()
        self.pic_type = r.u(3, "pic_type")
        self.valid = r.skip_rbsp_trailing_bits()
        return self.valid
