"""st_ref_pic_set(), H.265 clause 7.3.7."""

from .bits import MASK32
from .record import Array, Bits, false, fields, flag, i32, resize, u32, zero


class h265_st_ref_pic_set(
    fields(
        deltaRps=i32,
        stRpsIdx=u32,
        RefRpsIdx=u32,
        NumDeltaPocs=u32,
        inter_ref_pic_set_prediction_flag=flag,
        delta_idx_minus1=u32,
        delta_rps_sign=flag,
        abs_delta_rps_minus1=u32,
        used_by_curr_pic_flag=Bits(),
        use_delta_flag=Bits(),
        num_negative_pics=u32,
        num_positive_pics=u32,
        delta_poc_s0_minus1=Array(u32),
        used_by_curr_pic_s0_flag=Bits(),
        delta_poc_s1_minus1=Array(u32),
        used_by_curr_pic_s1_flag=Bits(),
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r, sps, idx, sets):
        """Of `sps` only num_short_term_ref_pic_sets; `sets` may hold this record."""
        self.stRpsIdx = idx
        self.RefRpsIdx = idx
        self.NumDeltaPocs = 0
        self.valid = False

        if idx == 0:
            self.inter_ref_pic_set_prediction_flag = False
        else:
            self.inter_ref_pic_set_prediction_flag = r.flag("inter_ref_pic_set_prediction_flag")
        if self.inter_ref_pic_set_prediction_flag:
            return self.predicted(r, sps, idx, sets)
        return self.explicit(r)

    def predicted(self, r, sps, idx, sets):
        if idx == sps.num_short_term_ref_pic_sets:
            self.delta_idx_minus1 = r.ue("delta_idx_minus1")
        else:
            self.delta_idx_minus1 = 0
        self.delta_rps_sign = r.flag()
        self.abs_delta_rps_minus1 = r.ue()
        self.RefRpsIdx = (idx - 1 - self.delta_idx_minus1) & MASK32
        delta = self.abs_delta_rps_minus1 + 1
        delta = (-delta if self.delta_rps_sign else delta) & MASK32
        self.deltaRps = delta - (1 << 32) if delta >> 31 else delta

        if self.RefRpsIdx >= len(sets):
            return False
        self.num_negative_pics = 0
        self.num_positive_pics = 0
        reference = sets[self.RefRpsIdx]
        pocs = reference.NumDeltaPocs
        self.NumDeltaPocs = pocs
        if pocs < (reference.num_negative_pics + reference.num_positive_pics) & MASK32:
            return False
        if pocs > 127:
            return False
        resize(self.use_delta_flag, pocs + 1, false)
        resize(self.used_by_curr_pic_flag, pocs + 1, false)
        for j in range(pocs + 1):
            self.used_by_curr_pic_flag[j] = r.flag("used_by_curr_pic_flag")
            if self.used_by_curr_pic_flag[j]:
                self.use_delta_flag[j] = True
            else:
                self.use_delta_flag[j] = r.flag()
        self.NumDeltaPocs = self.num_negative_pics + self.num_positive_pics
        self.valid = True
        return True

    def explicit(self, r):
        self.num_negative_pics = r.ue("num_negative_pics")
        self.num_positive_pics = r.ue("num_positive_pics")
        if self.num_negative_pics > 128:
            return False
        resize(self.delta_poc_s0_minus1, self.num_negative_pics, zero)
        resize(self.used_by_curr_pic_s0_flag, self.num_negative_pics, false)
        for i in range(self.num_negative_pics):
            self.delta_poc_s0_minus1[i] = r.ue()
            self.used_by_curr_pic_s0_flag[i] = r.flag("used_by_curr_pic_s0_flag")
        if self.num_positive_pics > 128:
            return False
        resize(self.delta_poc_s1_minus1, self.num_positive_pics, zero)
        resize(self.used_by_curr_pic_s1_flag, self.num_positive_pics, false)
        for i in range(self.num_positive_pics):
            self.delta_poc_s1_minus1[i] = r.ue()
            self.used_by_curr_pic_s1_flag[i] = r.flag("used_by_curr_pic_s1_flag")
        self.NumDeltaPocs = self.num_negative_pics + self.num_positive_pics
        self.valid = True
        return True
