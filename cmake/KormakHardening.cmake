# Optimised builds without sanitizers are hardened: a fault that corrupts memory ends the program rather than being of
# use to whoever provoked it. What compiler or linker lack is left out; a summary tells what there is.

include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)
include(CheckLinkerFlag)
include(CheckPIESupported)

set(kormak_user_build "$<NOT:$<CONFIG:Debug>>")
set(kormak_hardening "")

foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "KORMAK_HAS${flag}" has)
    check_cxx_compiler_flag(${flag} ${has})
    if(${has})
        add_compile_options("$<${kormak_user_build}:${flag}>")
        list(APPEND kormak_hardening ${flag})
    endif()
endforeach()

# The flags of a distributor may ask for it already, or for more; without optimisation it does nothing but warn.
get_property(is_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
set(CMAKE_TRY_COMPILE_CONFIGURATION "${CMAKE_BUILD_TYPE}")
if(is_multi_config)
    set(CMAKE_TRY_COMPILE_CONFIGURATION Release)
endif()
set(CMAKE_REQUIRED_QUIET ON)
unset(KORMAK_TAKES_FORTIFY_SOURCE CACHE) # other flags, another answer
check_cxx_source_compiles("
    #if !defined __OPTIMIZE__ || defined _FORTIFY_SOURCE
    #error
    #endif
    int main() {}" KORMAK_TAKES_FORTIFY_SOURCE
)
unset(CMAKE_REQUIRED_QUIET)
unset(CMAKE_TRY_COMPILE_CONFIGURATION)
if(KORMAK_TAKES_FORTIFY_SOURCE)
    add_compile_definitions("$<${kormak_user_build}:_FORTIFY_SOURCE=2>")
    list(APPEND kormak_hardening _FORTIFY_SOURCE=2)
endif()

foreach(keyword relro now noexecstack)
    check_linker_flag(CXX "LINKER:-z,${keyword}" KORMAK_HAS_Z_${keyword})
    if(KORMAK_HAS_Z_${keyword})
        add_link_options("$<${kormak_user_build}:LINKER:-z,${keyword}>")
        list(APPEND kormak_hardening "-z ${keyword}")
    endif()
endforeach()

check_pie_supported(LANGUAGES CXX)
if(CMAKE_CXX_LINK_PIE_SUPPORTED)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    list(APPEND kormak_hardening -pie)
endif()

list(JOIN kormak_hardening ", " kormak_hardening)
message(STATUS "Hardening: ${kormak_hardening}")
