# The only place that sets how targets are compiled.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

option(TIDLO_CCACHE "Compile through ccache where there is one" OFF)
if(TIDLO_CCACHE)
    find_program(CCACHE ccache)
endif()
if(TIDLO_CCACHE AND CCACHE)
    # Paths are relative to this folder, so that one clone can use what another has compiled. ccache requires the two
    # sloppiness settings before it caches sources with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual)
# GCC's plain -Wshadow rejects a constructor's parameter that has the name of the member it sets.
add_compile_options("$<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>")
# GCC 12 wrongly reports an overlap where a literal is put in front of a std::string (its bug 105651).
add_compile_options("$<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>")
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# libc++ has std::stop_token and std::jthread since its release 20, and since release 18 as an experimental feature.
# Both are header-only, so nothing else must be linked.
if(APPLE)
    include(CheckCXXSourceCompiles)
    set(program "#include <stop_token>\nint main() { return std::stop_token().stop_possible(); }")
    check_cxx_source_compiles("${program}" TIDLO_HAS_STOP_TOKEN)
    if(NOT TIDLO_HAS_STOP_TOKEN)
        add_compile_definitions(_LIBCPP_ENABLE_EXPERIMENTAL)
        check_cxx_source_compiles("#define _LIBCPP_ENABLE_EXPERIMENTAL\n${program}" TIDLO_HAS_NEW_STOP_TOKEN)
        if(NOT TIDLO_HAS_NEW_STOP_TOKEN)
            message(FATAL_ERROR "The compiler's C++ library has no std::stop_token. That of Xcode 26 has.")
        endif()
    endif()
endif()

# Keeps libraries that only the window needs out of tidlo-cli.
if(APPLE)
    add_link_options(-Wl,-dead_strip_dylibs)
    add_compile_options($<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-arc>)
else()
    add_link_options(-Wl,--as-needed)
endif()

set(TIDLO_SANITIZERS "" CACHE STRING "Value for -fsanitize, or nothing")
if(TIDLO_SANITIZERS)
    add_compile_options(-fsanitize=${TIDLO_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_compile_options($<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>) # Clang 14 lacks it for coroutines.
    # With a sanitizer's extra code, GCC does not see that the value of an empty optional is never read.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    # The compiler's memory may triple before it collects garbage, which saves a tenth of the time and more.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-expand=200>)
    add_link_options(-fsanitize=${TIDLO_SANITIZERS})
    if(NOT APPLE)
        add_link_options(-fuse-ld=lld)
    endif()
else()
    # Makes memory errors harder to exploit. Fortified calls exist only in optimised code.
    set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
    add_compile_options("$<${optimised}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    if(NOT APPLE) # The linker of macOS has its own defaults.
        add_link_options("$<${optimised}:-Wl,-z,relro,-z,now>")
    endif()
endif()
option(TIDLO_COVERAGE "Count which lines and branches are reached, which takes clang" OFF)
if(TIDLO_COVERAGE)
    # The last is for ccache: an object that one clone compiled must not contain its folder's name in another.
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping -fcoverage-compilation-dir=.)
    add_link_options(-fprofile-instr-generate)
endif()
option(TIDLO_FUZZ "Have the targets in tests/fuzz make up their input, which takes clang and sanitizers" OFF)
if(TIDLO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link) # Reports the code that each input reaches, in all libraries.
endif()
# Takes less than half the time, since templates that the sources share are instantiated once. So names in unnamed
# namespaces must differ within a target.
option(TIDLO_TOGETHER "Compile many sources of a target as one" OFF)
set(CMAKE_UNITY_BUILD ${TIDLO_TOGETHER})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 24) # With eight in each batch, compiling the tests took a quarter longer.
if(TIDLO_TOGETHER)
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>) # It takes the other sources for headers.
    add_compile_options($<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wno-shadow>) # Other sources may have the same names.
endif()

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX) # Without it, CMake sets no option for the linker, whose default may differ.

# tidlo_library(name SOURCES files... [LINKS targets...]): one static library for one folder of src/.
function(tidlo_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${arg_LINKS})
    tidlo_use_precompiled_headers(${name} common_headers)
    qt_extract_metatypes(${name}) # Lets qmllint know the types that views read.
endfunction()
