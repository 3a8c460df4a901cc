"""Bytes and bits that others give a meaning."""

from .table import payload


@payload(3)
def filler_payload(s, around):
    for _ in range(s.bytes_left()):
        s.u(8, "ff_byte")


@payload(4)
def user_data_registered_itu_t_t35(s, around):
    if s.u(8, "itu_t_t35_country_code") == 0xFF:
        s.u(8, "itu_t_t35_country_code_extension_byte")
    s.run(s.bytes_left(), "itu_t_t35_payload_byte")


@payload(5)
def user_data_unregistered(s, around):
    s.u(128, "uuid_iso_iec_11578")
    s.run(s.bytes_left(), "user_data_payload_byte")


@payload(200)
def sei_manifest(s, around):
    for i in range(s.u(16, "manifest_num_sei_msg_types", top=4)):
        s.u(16, "manifest_sei_payload_type", i)
        s.u(8, "manifest_sei_description", i)


@payload(201)
def sei_prefix_indication(s, around):
    s.u(16, "prefix_sei_payload_type")
    for i in range(s.u(8, "num_sei_prefix_indications_minus1", top=3) + 1):
        for j in range(s.u(16, "num_bits_in_prefix_indication_minus1", i, top=20) + 1):
            s.u(1, "sei_prefix_data_bit", i, j)
        s.align("byte_alignment_bit_equal_to_one", 1)
