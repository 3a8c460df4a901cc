# For the 64-bit Arm cross compiler of Debian; tests run under QEMU, which finds the target's
# libraries in QEMU_LD_PREFIX (scripts/aarch64 sets it).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64)
