# The headers that most sources include, parsed once for all of them. Without this option every source must include what
# it needs.
option(TIDLO_PRECOMPILE "Precompile headers" OFF)
if(TIDLO_PRECOMPILE) # ccache then ignores the headers' times. With clang, their folder matters.
    add_compile_options("$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")
endif()

# tidlo_precompiled_headers(name LINKS targets... HEADERS headers...): the headers, and the targets that provide them.
function(tidlo_precompiled_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;HEADERS")
    if(TIDLO_PRECOMPILE)
        set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
        file(CONFIGURE OUTPUT "${source}" CONTENT "// A library must have a source.\n")
        add_library(${name} OBJECT "${source}")
        target_link_libraries(${name} PRIVATE ${arg_LINKS})
        target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
    endif()
endfunction()

# tidlo_use_precompiled_headers(target name): the target's sources begin with them. Macros must be the same for both.
function(tidlo_use_precompiled_headers target name)
    if(TARGET ${name})
        target_precompile_headers(${target} REUSE_FROM ${name})
        # They are C++, and of no use to sources in another language.
        get_target_property(sources ${target} SOURCES)
        list(FILTER sources INCLUDE REGEX "\\.mm$")
        set_property(SOURCE ${sources} PROPERTY SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()
