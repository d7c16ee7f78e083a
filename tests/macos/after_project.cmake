# What is settled only once the languages are known; see toolchain.cmake.

enable_language(OBJCXX)

# Their headers of the system are another system's. Those of libraries that lie beside them are in the toolchain.
foreach(language IN ITEMS C CXX OBJCXX)
    list(APPEND CMAKE_${language}_IMPLICIT_INCLUDE_DIRECTORIES /usr/include /usr/include/x86_64-linux-gnu)
endforeach()

add_library(WrapOpenGL::WrapOpenGL INTERFACE IMPORTED GLOBAL) # Asked for by Qt, and used by nothing here.
