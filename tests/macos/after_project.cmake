# Settings that need the project's languages to be known; see toolchain.cmake.

enable_language(OBJCXX)

# CMake's own include folders for them belong to another system. The headers of libraries in these folders are in the
# toolchain.
foreach(language IN ITEMS C CXX OBJCXX)
    list(APPEND CMAKE_${language}_IMPLICIT_INCLUDE_DIRECTORIES /usr/include /usr/include/x86_64-linux-gnu)
endforeach()

add_library(WrapOpenGL::WrapOpenGL INTERFACE IMPORTED GLOBAL) # Qt asks for it, but nothing here uses it.
