include(CheckPIESupported)
check_pie_supported()

# Options for compiling what reads streams of unknown origin. What the packager's flags say already, for
# or against, stays.
set(kovran_hardening_options "")
if(NOT CMAKE_CXX_FLAGS MATCHES "stack-protector")
  list(APPEND kovran_hardening_options -fstack-protector-strong)
endif()
if(NOT CMAKE_CXX_FLAGS MATCHES "cf-protection|branch-protection")
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    list(APPEND kovran_hardening_options -fcf-protection)
  elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
    list(APPEND kovran_hardening_options -mbranch-protection=standard)
  endif()
endif()
if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")  # needs an optimised build
  list(APPEND kovran_hardening_options
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
endif()

# Hardens a program and the static libraries of this tree that it is made of.
function(kovran_harden)
  foreach(target ${ARGN})
    target_compile_options(${target} PRIVATE ${kovran_hardening_options})
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  endforeach()
endfunction()
