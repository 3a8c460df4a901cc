"""scaling_list_data(), H.265 clauses 7.3.4 and 7.4.5."""

# Table 7-5.
FLAT = [16] * 16
# Table 7-6, the matrices of intra and of inter prediction.
INTRA = (
    [16] * 10 + [17, 16, 17, 16, 17, 18, 17, 18, 18, 17, 18, 21, 19, 20, 21, 20, 19, 21, 24, 22]
    + [22, 24, 24, 22, 22, 24, 25, 25, 27, 30, 27, 25, 25, 29, 31, 35, 35, 31, 29, 36, 41, 44]
    + [41, 36, 47, 54, 54, 47, 65, 70, 65, 88, 88, 115]
)  # fmt: skip
INTER = (
    [16] * 10 + [17] * 5 + [18] * 6 + [20] * 7 + [24] * 8 + [25] * 7 + [28] * 6 + [33] * 5
    + [41] * 4 + [54] * 3 + [71] * 2 + [91]
)  # fmt: skip


def default_list(size_id, matrix_id):
    if size_id == 0:
        return FLAT[:]
    return INTRA[:] if matrix_id < 3 else INTER[:]


def parse(lists, r):
    lists.reset()
    lists.shape()
    for size_id in range(4):
        step = 3 if size_id == 3 else 1
        for matrix_id in range(0, 6, step):
            mode = r.flag("scaling_list_pred_mode_flag")
            lists.scaling_list_pred_mode_flag[size_id][matrix_id] = mode
            if mode:
                lists.coefficients(size_id, matrix_id, r)
                continue
            delta = r.ue("scaling_list_pred_matrix_id_delta")
            lists.scaling_list_pred_matrix_id_delta[size_id][matrix_id] = delta
            reference = matrix_id - delta * step
            if reference < 0:
                return False
            predict(lists, size_id, matrix_id, reference)
    lists.valid = r.in_data()
    return lists.valid


def predict(lists, size_id, matrix_id, reference):
    matrices = lists.ScalingList[size_id]
    if reference == matrix_id:
        matrices[matrix_id] = default_list(size_id, matrix_id)
    else:
        matrices[matrix_id] = matrices[reference][:]
    if size_id > 1:
        dc_coefs = lists.scaling_list_dc_coef_minus8[size_id - 2]
        dc_coefs[matrix_id] = 8 if reference == matrix_id else dc_coefs[reference]
