"""st_ref_pic_set(), H.265 clauses 7.3.7 and 7.4.8."""

MAX_PICTURES = 16
# What a difference of picture order counts may be, clause 8.3.1.
LOWEST, HIGHEST = -(1 << 15), (1 << 15) - 1


def parse(pictures, r, sps, idx, sets):
    """Of `sps` only num_short_term_ref_pic_sets."""
    pictures.reset()
    pictures.stRpsIdx = idx
    pictures.RefRpsIdx = idx
    if idx != 0:
        pictures.inter_ref_pic_set_prediction_flag = r.flag("inter_ref_pic_set_prediction_flag")
    if pictures.inter_ref_pic_set_prediction_flag:
        fits = predicted(pictures, r, idx == sps.num_short_term_ref_pic_sets, sets)
    else:
        fits = explicit(pictures, r)
    pictures.valid = fits and r.in_data()
    return pictures.valid


def explicit(pictures, r):
    pictures.num_negative_pics = r.ue("num_negative_pics")
    pictures.num_positive_pics = r.ue("num_positive_pics")
    pictures.NumDeltaPocs = pictures.num_negative_pics + pictures.num_positive_pics
    if pictures.NumDeltaPocs > MAX_PICTURES:
        return False
    for _ in range(pictures.num_negative_pics):
        pictures.delta_poc_s0_minus1.append(r.ue("delta_poc_minus1"))
        pictures.used_by_curr_pic_s0_flag.append(r.flag("used_by_curr_pic_s0_flag"))
    for _ in range(pictures.num_positive_pics):
        pictures.delta_poc_s1_minus1.append(r.ue("delta_poc_minus1"))
        pictures.used_by_curr_pic_s1_flag.append(r.flag("used_by_curr_pic_s1_flag"))
    return True


def delta_pocs(reference):
    """DeltaPocS0 and DeltaPocS1, equations 7-65 to 7-68, or None when the arrays are too short."""
    found = []
    for count, sign, distances, flags in (
        (
            reference.num_negative_pics,
            -1,
            reference.delta_poc_s0_minus1,
            reference.used_by_curr_pic_s0_flag,
        ),
        (
            reference.num_positive_pics,
            1,
            reference.delta_poc_s1_minus1,
            reference.used_by_curr_pic_s1_flag,
        ),
    ):
        if len(distances) < count or len(flags) < count:
            return None
        pocs = []
        poc = 0
        for distance in distances[:count]:
            poc += sign * (distance + 1)
            pocs.append(poc)
        found.append(pocs)
    return found


def predicted(pictures, r, in_slice_header, sets):
    if in_slice_header:
        pictures.delta_idx_minus1 = r.ue("delta_idx_minus1")
    pictures.delta_rps_sign = r.flag()
    pictures.abs_delta_rps_minus1 = r.ue("abs_delta_rps_minus1")
    pictures.RefRpsIdx = pictures.stRpsIdx - (pictures.delta_idx_minus1 + 1)
    if not 0 <= pictures.RefRpsIdx < len(sets):
        return False
    reference = sets[pictures.RefRpsIdx]
    if reference.num_negative_pics + reference.num_positive_pics > MAX_PICTURES:
        return False
    of_reference = delta_pocs(reference)
    if of_reference is None:
        return False

    for _ in range(reference.num_negative_pics + reference.num_positive_pics + 1):
        used = r.flag("used_by_curr_pic_flag")
        pictures.used_by_curr_pic_flag.append(used)
        pictures.use_delta_flag.append(used or r.flag())
    delta_rps = (1 - 2 * pictures.delta_rps_sign) * (pictures.abs_delta_rps_minus1 + 1)
    # As the field has it, which matters beyond any legal distance only.
    pictures.deltaRps = (delta_rps + (1 << 31)) % (1 << 32) - (1 << 31)
    negative, positive = derive(pictures, *of_reference, delta_rps)
    return (
        pictures.NumDeltaPocs <= MAX_PICTURES
        and min(negative, default=0) >= LOWEST
        and max(positive, default=0) <= HIGHEST
    )


def derive(pictures, before, after, delta_rps):
    """Equations 7-61 and 7-62, as what they amount to: every picture of the reference, and the
    reference's own picture, moved by deltaRps; without those that use_delta_flag leaves out, and
    without the current picture. Returns DeltaPocS0 and DeltaPocS1."""
    moved = [*before, *after, 0]  # in the order of the flags
    kept = {
        poc + delta_rps: used
        for poc, used, use in zip(moved, pictures.used_by_curr_pic_flag, pictures.use_delta_flag)
        if use
    }
    negative = sorted((poc for poc in kept if poc < 0), reverse=True)
    positive = sorted(poc for poc in kept if poc > 0)

    pictures.num_negative_pics = len(negative)
    pictures.num_positive_pics = len(positive)
    pictures.NumDeltaPocs = len(negative) + len(positive)
    for pocs, distances, flags in (
        (negative, pictures.delta_poc_s0_minus1, pictures.used_by_curr_pic_s0_flag),
        (positive, pictures.delta_poc_s1_minus1, pictures.used_by_curr_pic_s1_flag),
    ):
        nearer = 0
        for poc in pocs:
            distances.append(abs(poc - nearer) - 1)
            flags.append(kept[poc])
            nearer = poc
    return negative, positive
