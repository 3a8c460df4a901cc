"""scaling_list_data(), H.265 clause 7.3.4."""

from .record import Array, Bits, false, fields, flag, i32, resize, u32, zero


class h265_scaling_list_data(
    fields(
        scaling_list_pred_mode_flag=Array(Bits()),
        scaling_list_pred_matrix_id_delta=Array(Array(u32)),
        scaling_list_dc_coef_minus8=Array(Array(i32)),
        ScalingList=Array(Array(Array(i32))),
        valid=flag,
    )
):
    __slots__ = ()

    def parse(self, r):
        self.valid = False
        self.shape()
        for size_id in range(4):
            for matrix_id in range(0, 6, 3 if size_id == 3 else 1):
                mode = r.flag("scaling_list_pred_mode_flag")
                self.scaling_list_pred_mode_flag[size_id][matrix_id] = mode
                if mode:
                    self.coefficients(size_id, matrix_id, r)
                else:
                    delta = r.ue()
                    self.scaling_list_pred_matrix_id_delta[size_id][matrix_id] = delta
        self.valid = True
        return True

    def shape(self):
        resize(self.ScalingList, 4, list)
        resize(self.scaling_list_pred_mode_flag, 4, list)
        resize(self.scaling_list_dc_coef_minus8, 2, list)
        resize(self.scaling_list_pred_matrix_id_delta, 4, list)
        for size_id in range(4):
            resize(self.ScalingList[size_id], 6, list)
            resize(self.scaling_list_pred_mode_flag[size_id], 6, false)
            resize(self.scaling_list_pred_matrix_id_delta[size_id], 6, zero)
            if size_id > 1:
                resize(self.scaling_list_dc_coef_minus8[size_id - 2], 6, zero)

    def coefficients(self, size_id, matrix_id, r):
        next_coef = 8
        if size_id > 1:
            dc_coef = r.se()
            self.scaling_list_dc_coef_minus8[size_id - 2][matrix_id] = dc_coef
            next_coef = (dc_coef + 8) & 0xFF
        coefficients = self.ScalingList[size_id][matrix_id]
        resize(coefficients, min(64, 1 << (4 + 2 * size_id)), zero)
        for i in range(len(coefficients)):
            next_coef = (next_coef + r.se("scaling_list_delta_coef")) & 0xFF
            coefficients[i] = next_coef
