"""profile_tier_level(), H.265 clause 7.3.3."""

from .record import Array, Bits, false, fields, flag, resize, u8


class layer_t(
    fields(
        profile_compatibility_flag=Bits(),
        profile_space=u8,
        profile_idc=u8,
        level_idc=u8,
        progressive_source_flag=flag,
        interlaced_source_flag=flag,
        non_packed_constraint_flag=flag,
        frame_only_constraint_flag=flag,
        max_12bit_constraint_flag=flag,
        max_10bit_constraint_flag=flag,
        max_8bit_constraint_flag=flag,
        max_422chroma_constraint_flag=flag,
        max_420chroma_constraint_flag=flag,
        max_monochrome_constraint_flag=flag,
        intra_constraint_flag=flag,
        one_picture_only_constraint_flag=flag,
        lower_bit_rate_constraint_flag=flag,
        max_14bit_constraint_flag=flag,
        inbld_flag=flag,
        tier_flag=flag,
        profile_present_flag=flag,
        level_present_flag=flag,
        valid=flag,
    )
):
    __slots__ = ()

    def profile(self, *numbers):
        return any(
            self.profile_idc == number or self.profile_compatibility_flag[number]
            for number in numbers
        )

    def parse(self, r):
        if self.profile_present_flag:
            self.profile_space = r.u(2)
            self.tier_flag = r.flag()
            self.profile_idc = r.u(5, "profile_idc")
            resize(self.profile_compatibility_flag, 32, false)
            for j in range(32):
                self.profile_compatibility_flag[j] = r.flag("profile_compatibility_flag")
            self.progressive_source_flag = r.flag()
            self.interlaced_source_flag = r.flag()
            self.non_packed_constraint_flag = r.flag()
            self.frame_only_constraint_flag = r.flag()

            if self.profile(4, 5, 6, 7, 8, 9, 10, 11):
                self.max_12bit_constraint_flag = r.flag()
                self.max_10bit_constraint_flag = r.flag()
                self.max_8bit_constraint_flag = r.flag()
                self.max_422chroma_constraint_flag = r.flag()
                self.max_420chroma_constraint_flag = r.flag()
                self.max_monochrome_constraint_flag = r.flag()
                self.intra_constraint_flag = r.flag()
                self.one_picture_only_constraint_flag = r.flag()
                self.lower_bit_rate_constraint_flag = r.flag()
                if self.profile(5, 9, 10, 11):
                    self.max_14bit_constraint_flag = r.flag()
                    r.skip(33)
                else:
                    r.skip(34)
            elif self.profile(2):
                r.skip(7)
                self.one_picture_only_constraint_flag = r.flag()
                r.skip(35)
            else:
                r.skip(43)

            if self.profile(1, 2, 3, 4, 5, 9, 11):
                self.inbld_flag = r.flag()
            else:
                r.skip(1)
        if self.level_present_flag:
            self.level_idc = r.u(8)
        self.valid = True
        return True


class h265_profile_tier_level(fields(general=layer_t, sub_layers=Array(layer_t), valid=flag)):
    __slots__ = ()

    def parse(self, profile_present_flag, max_num_sub_layers_minus1, r):
        self.general.profile_present_flag = profile_present_flag
        self.general.level_present_flag = True
        self.general.parse(r)
        if max_num_sub_layers_minus1 > 128:
            return False
        self.read_sub_layers(max_num_sub_layers_minus1, r)
        self.valid = True
        return True

    def read_sub_layers(self, max_num_sub_layers_minus1, r):
        resize(self.sub_layers, max_num_sub_layers_minus1, layer_t)
        if max_num_sub_layers_minus1 == 0:
            return
        for layer in self.sub_layers:
            layer.profile_present_flag = r.flag("sub_layer_profile_present_flag")
            layer.level_present_flag = r.flag("sub_layer_level_present_flag")
        for _ in range(max_num_sub_layers_minus1, 8):
            r.skip(2)
        for layer in self.sub_layers:
            layer.parse(r)
