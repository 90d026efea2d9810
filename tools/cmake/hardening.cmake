# What a released program for Linux is hardened by: checked stack frames and buffers, an address of
# its own at each start, tables of the linker that nothing writes to once it runs, and calls and
# returns only to where the compiler expects them.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

set(hardening -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
check_cxx_compiler_flag(-fcf-protection SOLVANTA_CF_PROTECTION)
if(SOLVANTA_CF_PROTECTION)
    list(APPEND hardening -fcf-protection)
endif()
add_compile_options("$<$<CONFIG:Release>:${hardening}>")
add_link_options("$<$<CONFIG:Release>:-Wl,-z,relro,-z,now,-z,noexecstack>")
