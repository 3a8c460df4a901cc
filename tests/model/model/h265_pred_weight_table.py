"""pred_weight_table(), H.265 clause 7.3.6.3."""

from .record import Fixed, fields, flag, i32, u32

ENTRIES = 15
PAIR = Fixed(i32, 2)


class h265_pred_weight_table(
    fields(
        luma_log2_weight_denom=u32,
        delta_chroma_log2_weight_denom=i32,
        luma_weight_l0_flag=Fixed(flag, ENTRIES),
        chroma_weight_l0_flag=Fixed(flag, ENTRIES),
        delta_luma_weight_l0=Fixed(i32, ENTRIES),
        luma_offset_l0=Fixed(i32, ENTRIES),
        delta_chroma_weight_l0=Fixed(PAIR, ENTRIES),
        delta_chroma_offset_l0=Fixed(PAIR, ENTRIES),
        luma_weight_l1_flag=Fixed(flag, ENTRIES),
        chroma_weight_l1_flag=Fixed(flag, ENTRIES),
        delta_luma_weight_l1=Fixed(i32, ENTRIES),
        luma_offset_l1=Fixed(i32, ENTRIES),
        delta_chroma_weight_l1=Fixed(PAIR, ENTRIES),
        delta_chroma_offset_l1=Fixed(PAIR, ENTRIES),
        present=flag,
    )
):
    __slots__ = ()
