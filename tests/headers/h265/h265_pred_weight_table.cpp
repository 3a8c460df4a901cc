#include <kovran/h265/h265_pred_weight_table.h>

int main() {
    const kovran::h265_pred_weight_table table;
    return table.LumaWeightL0(0) == 1 && table.LumaWeightL1(0) == 1 &&
                   table.ChromaWeightL0(0, 0) == 1 && table.ChromaWeightL1(0, 1) == 1 &&
                   table.ChromaOffsetL0(0, 0, 128) == 0 && table.ChromaOffsetL1(0, 1, 128) == 0
               ? 0
               : 1;
}
